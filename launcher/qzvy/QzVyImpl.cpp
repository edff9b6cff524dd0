#include "launcher/qzvy/QzVyImpl.h"

#include "launcher/qzvy/CrashReport.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "launcher/qzvy/WebBrowserHelper.h"
#include "launcher/qzvy/WindowSize.h"
#include "shell/QzVySetupImpl.h"
#include "uilib/core/paint_manager.h"
#include "update/QzHubUpdateModel.h"
#include "utility/curl_library.h"
#include "utility/files.h"
#include "utility/log.h"
#include "utility/log_writer.h"
#include "utility/process.h"
#include "utility/system.h"
#include "utility/task_dispatcher.h"

#include <winsock2.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

using namespace utility;

namespace {

constexpr char Entrance[] = "QzVyImpl::entrance";
constexpr unsigned SkinResource = 129;

// The system's libraries; none of their results decides anything.
void startPlatform() {
    InitCommonControls();
    OleInitialize(nullptr);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_DEFAULT,
                         RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE, nullptr);
    WSADATA sockets;
    WSAStartup(MAKEWORD(2, 2), &sockets);
}

// Emptied at every start; a file that a running instance holds open stays.
std::wstring makeLogFolder() {
    const std::wstring folder = ufile::getModuleDir() + L"log";
    ufile::removeDir(folder);
    ufile::makeDir(folder);
    return folder;
}

void makeDataFolder() {
    const std::wstring folder = ufile::getAppDataDir() + L"\\ktvyn\\";
    if (!ufile::isExist(folder))
        ufile::makeDir(folder);
}

std::wstring loadMarketFont() {
    const std::wstring path = ufile::getModuleDir() + L"fonts\\" + QzVyModel::instance().market.fontFile;
    common::log(Entrance, __LINE__, L"font path:%s", path.c_str());
    const int loaded = AddFontResourceExW(path.c_str(), FR_PRIVATE, nullptr);
    common::log(Entrance, __LINE__, L"load Noto Sans fonts ret:%d  error:%d", loaded, GetLastError());
    return path;
}

} // namespace

int QzVyImpl::entrance(HINSTANCE instance) {
    if (FAILED(CoInitialize(nullptr)))
        return -1;
    startPlatform();
    webbrowserhelper::registerIENewVersion();
    const std::wstring logFolder = makeLogFolder();
    makeDataFolder();
    startServices(logFolder);

    QzVyModel& model = QzVyModel::instance();
    model.init();
    fillMarketByShortCode(model.getLanguage(), model.market);
    common::log(Entrance, __LINE__, L"language:%s", model.market.localeCode.c_str());
    loadSkin(instance);
    QzVyModel::addMessage();
    initCrashReport();
    common::log(Entrance, __LINE__, L"\r\n\r\n************ vyn start ************");
    if (isPlayerExist())
        common::log(Entrance, __LINE__, L"main exist");
    else
        runFirstInstance();

    if (model.needRestart)
        process::shell(ufile::getModuleDir() + L"tkvyn.exe", L"", false, true);
    handOver();
    OleUninitialize();
    CoUninitialize();
    return 1;
}

void QzVyImpl::startServices(const std::wstring& logFolder) {
    common::startServices();
    common::LogWriter::start(logFolder + L"\\main.log");
    CurlLibrary::start();
}

void QzVyImpl::loadSkin(HINSTANCE instance) {
    using Manager = UILib::CPaintManagerUI;
    const std::wstring& locale = QzVyModel::instance().market.localeCode;
    Manager::SetInstance(instance);
    Manager::SetLanguageCode(locale, locale);
    Manager::SetResourcePath(Manager::GetInstancePath() + L"skin");
    Manager::LoadResourceArchive(SkinResource, L"multi_language.tsv");
}

void QzVyImpl::runFirstInstance() {
    const std::wstring font = loadMarketFont();
    QzVySetupImpl::instance().loadConfig();
    common::log(Entrance, __LINE__, L"create main");
    createMainFrame();
    if (mainFrame) {
        createTrayIcon();
        runMessageLoop();
    }
    RemoveFontResourceW(font.c_str());
    // A program that is started from here on finds the name free.
    instanceMutex.reset();
    CurlLibrary::end();
    if (trayIcon)
        trayIcon->removeTrayIcon();
}

void QzVyImpl::createMainFrame() {
    // Popup, clipping, minimise box; before Vista also system menu and thick frame.
    const DWORD style = usystem::isVistaOrLater() ? 0x86020000 : 0x860E0000;
    mainFrame = new QzVyMainFrame;
    mainFrame->onClosed = [this] { mainFrame = nullptr; };
    const HWND window = mainFrame->create(style);
    if (!window) {
        common::log("QzVyImpl::createMainFrame", __LINE__, L"create window error %d", GetLastError());
        delete std::exchange(mainFrame, nullptr);
        return;
    }
    QzVyModel::instance().mainWindow = window;
    // The window takes its size before it is seen: nothing jumps, and a window manager that
    // answers to the first size late does not undo the second.
    mainFrame->window().center();
    fitMainFrame();
    mainFrame->window().show(true);
    usystem::bringToFront(window);
}

void QzVyImpl::fitMainFrame() {
    MainFrameView& window = mainFrame->window();
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window.GetHWND(), MONITOR_DEFAULTTONEAREST), &monitor);
    const int screenX = monitor.rcWork.right - monitor.rcWork.left;
    const int screenY = monitor.rcWork.bottom - monitor.rcWork.top;
    common::log("QzVyImpl::createMainFrame", __LINE__, L"screenX:%d screenY:%d", screenX, screenY);
    const WindowSize size = fitWindow(screenX, screenY);
    if (size != DesignSize) {
        window.resizeClient(size.width, size.height);
        window.center();
    }
    if (needsSmallLayout(size))
        mainFrame->applySmallLayout();
}

void QzVyImpl::runMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (UILib::CPaintManagerUI::TranslateMessage(&message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// A fetched program takes over when this one has nothing open any more.
void QzVyImpl::handOver() {
    const QzHubUpdateModel& update = QzHubUpdateModel::instance();
    const bool needUpdate = update.needUpdate;
    // Before the flag is set, a worker that nobody has joined may be writing the path.
    const std::wstring program = needUpdate ? update.getPackagePath() : std::wstring();
    common::log(Entrance, __LINE__, L"It is needUpdate : %d, path %s", needUpdate, program.c_str());
    CurlLibrary::end();
    common::log(Entrance, __LINE__, L"*********************** qznim end ****************");
    common::stopServices();
    if (!needUpdate || program.empty())
        return;
    const std::wstring parameters = L"from=update|path=" + ufile::getModuleDir();
    ShellExecuteW(nullptr, L"runas", program.c_str(), parameters.c_str(), nullptr, SW_HIDE);
}
