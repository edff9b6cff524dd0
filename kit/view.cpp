#include "kit/attribute_origins.h"
#include "kit/console.h"
#include "kit/skin_document.h"
#include "uilib/controls/control.h"
#include "uilib/core/render_engine.h"
#include "utility/handles.h"

#include <cstdio>

namespace kit {

extern const Command viewCommand;

using UILib::CControlUI;

struct ChangeTraits {
    using Handle = HANDLE;
    static Handle empty() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { FindCloseChangeNotification(handle); }
};

// The live window: shows the skin file, loads it again when something in its folder has
// changed, and with the inspector on draws what the tree consists of over it.
class ViewWindow : public UILib::CWindowWnd {
public:
    bool open(const std::wstring& file, const std::wstring& languageCode);

private:
    static constexpr UINT WatchTimer = 1000; // beyond the numbers of the controls' timers
    static constexpr UINT WatchInterval = 200;
    static constexpr uint32_t HotColor = 0xFFFFFF00;
    static constexpr RECT Panel = {8, 8, 460, 420};

    const wchar_t* GetWindowClassName() const override { return L"vynkit view"; }
    UINT GetClassStyle() const override { return CS_DBLCLKS; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    bool load();
    void reloadWhenChanged();
    void setTitle(const std::wstring& remark);
    void toggleInspector();
    bool paintInspector(UILib::PaintArguments& arguments);
    void paintPanel(HDC context, CControlUI& control);
    std::wstring describe(CControlUI& control);

    std::wstring path, name, language;
    utility::Owner<ChangeTraits> change;
    UILib::CPaintManagerUI paintManager;
    AttributeOrigins origins;
    bool inspecting = false;
};

bool ViewWindow::open(const std::wstring& file, const std::wstring& languageCode) {
    path = file;
    language = languageCode;
    name = useSkinOf(path, language);
    if (!Create(nullptr, path.c_str(), WS_OVERLAPPEDWINDOW, 0, CW_USEDEFAULT, CW_USEDEFAULT, 640, 480))
        return false;
    paintManager.Init(window);
    const UILib::CUIString folder = UILib::CPaintManagerUI::GetResourcePath();
    change.reset(FindFirstChangeNotificationW(folder, TRUE,
                                              FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_FILE_NAME |
                                                  FILE_NOTIFY_CHANGE_SIZE));
    ::SetTimer(window, WatchTimer, WatchInterval, nullptr);
    const bool loaded = load();
    ShowWindow();
    return loaded;
}

// A file that does not load leaves the last good tree and tells why in the title.
bool ViewWindow::load() {
    UILib::CDialogBuilder builder;
    CControlUI* trial = builder.Create(name.c_str()); // without the manager, which so keeps its fonts
    if (!trial) {
        const auto& markup = builder.GetMarkup();
        const std::wstring reason =
            std::wstring(markup.GetLastErrorMessage()) + L" at " + markup.GetLastErrorLocation();
        fprintf(stderr, "error: %s\n", toUtf8(reason).c_str());
        setTitle(reason);
        return false;
    }
    trial->Delete();
    origins.clear();
    paintManager.GetResourceTables().Clear();
    applyLanguageFont(paintManager);
    CControlUI* tree = builder.Create(&origins, &paintManager, nullptr);
    paintManager.AttachDialog(tree);
    tree->OnPostPaint.Add(this, &ViewWindow::paintInspector);
    paintManager.AddPostPaint(tree);
    setTitle(L"");
    InvalidateRect(window, nullptr, FALSE);
    return true;
}

void ViewWindow::setTitle(const std::wstring& remark) {
    SetWindowTextW(window, (remark.empty() ? path : path + L" - " + remark).c_str());
}

void ViewWindow::reloadWhenChanged() {
    if (!change || WaitForSingleObject(change.get(), 0) != WAIT_OBJECT_0)
        return;
    while (WaitForSingleObject(change.get(), 0) == WAIT_OBJECT_0 &&
           FindNextChangeNotification(change.get())) {
    }
    useSkinOf(path, language); // the table of texts may be what has changed
    load();
}

LRESULT ViewWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (message == WM_TIMER && wParam == WatchTimer) {
        reloadWhenChanged();
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    if (message == WM_KEYDOWN && wParam == VK_F12)
        toggleInspector();
    if (message == WM_MOUSEMOVE && inspecting)
        paintManager.Invalidate();
    if (paintManager.MessageHandler(message, wParam, lParam, result))
        return result;
    return CWindowWnd::HandleMessage(message, wParam, lParam);
}

void ViewWindow::toggleInspector() {
    inspecting = !inspecting;
    paintManager.Invalidate();
}

static constexpr uint32_t OutlineColor = 0xFFFF00FF;

static CControlUI* outline(CControlUI* control, void* context) {
    UILib::CRenderEngine::DrawRect(static_cast<HDC>(context), control->GetPos(), 1, OutlineColor);
    return nullptr;
}

bool ViewWindow::paintInspector(UILib::PaintArguments& arguments) {
    if (!inspecting)
        return true;
    arguments.control->FindControl(outline, arguments.context, UILib::FindVisible | UILib::FindMeFirst);
    if (CControlUI* hot = paintManager.FindControl(paintManager.GetMousePos())) {
        UILib::CRenderEngine::DrawRect(arguments.context, hot->GetPos(), 2, HotColor);
        paintPanel(arguments.context, *hot);
    }
    return true;
}

void ViewWindow::paintPanel(HDC context, CControlUI& control) {
    RECT panel = Panel;
    if (paintManager.GetMousePos().y < panel.bottom) // out of the way of the mouse
        panel = UILib::moved(panel, 0, std::max<int>(paintManager.GetClientSize().cy - panel.bottom - 8, 0));
    UILib::CRenderEngine::DrawColor(context, panel, 0xE0202020);
    RECT text = UILib::shrunk(panel, {8, 8, 8, 8});
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, RGB(255, 255, 255));
    const utility::Selection font(context, GetStockObject(DEFAULT_GUI_FONT));
    DrawTextW(context, describe(control).c_str(), -1, &text, DT_NOPREFIX | DT_WORDBREAK);
}

std::wstring ViewWindow::describe(CControlUI& control) {
    const RECT& place = control.GetPos();
    wchar_t head[200];
    swprintf(head, std::size(head), L"%ls #%ls\n%ld,%ld,%ld,%ld  (%d x %d)\n", control.GetClass(),
             control.GetName().GetData(), place.left, place.top, place.right, place.bottom,
             control.GetWidth(), control.GetHeight());
    std::wstring text = head;
    for (const AttributeOrigins::Origin& origin : origins.of(control)) {
        const std::string from = origin.from;
        text += L"\n" + origin.name + L" = " + origin.value + L"   [" +
                std::wstring(from.begin(), from.end()) + (origin.known ? L"]" : L", no class reads it]");
    }
    return text;
}

static int run(const Arguments& arguments) {
    if (arguments.size() != 1 && !(arguments.size() == 3 && arguments[1] == L"--lang"))
        return wrongUsage(viewCommand, "a file, please");
    ViewWindow view;
    if (!view.open(arguments[0], arguments.size() == 3 ? arguments[2] : L"") && !IsWindow(view))
        return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        if (!UILib::CPaintManagerUI::TranslateMessage(&message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    return 0;
}

const Command viewCommand = {
    "view",
    "FILE [--lang CODE]",
    "show a skin file in a window that follows its changes",
    "The window loads the file again when something in its folder has changed. F12 turns the\n"
    "inspector on: it outlines every control and shows of the one under the mouse its class,\n"
    "name, rectangle and attributes, each with the place that it came from.\n",
    run,
};

} // namespace kit
