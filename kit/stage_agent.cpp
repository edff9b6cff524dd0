#include "utility/handles.h"
#include "utility/windows.h"

#include <commctrl.h>

#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

// What a test asks about the Windows side of its stage, answered by one program that stays, so
// that a question costs no program's start. Its hidden window keeps the desktop's shell alive,
// too, which goes when nobody could show a window any more.
//
// Each line of the input is a question; the answer is lines and an empty one at the end:
//   windows        the visible windows from the top down: program, class, title, left, top,
//                  width, height, "enabled" or "disabled", "active" or ""; split by tabs
//   front CLASS    gives the keyboard to the window of that class, or to the one open before it
//   key NAME       presses a key: Tab, Return, space ..., also as shift+Tab or alt+F4
//   folder         the path that the dialog for choosing a folder stands on, from its tree
//   value KEY NAME the text of a registry value below HKEY_CURRENT_USER, split by a tab

namespace {

std::string utf8(const wchar_t* text) {
    char bytes[1024] = {};
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes - 1, nullptr, nullptr);
    return bytes;
}

std::wstring wide(const std::string& text) {
    wchar_t letters[1024] = {};
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, letters, 1023);
    return letters;
}

std::string programOf(DWORD id) {
    wchar_t path[MAX_PATH] = {};
    DWORD length = MAX_PATH;
    const utility::KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    if (!process || !QueryFullProcessImageNameW(process.get(), 0, path, &length))
        return {};
    const wchar_t* name = wcsrchr(path, L'\\');
    return utf8(name ? name + 1 : path);
}

// A window that does not answer has no title.
std::string titleOf(HWND window) {
    wchar_t title[256] = {};
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(title), SMTO_ABORTIFHUNG, 200,
                        &length);
    return utf8(title);
}

BOOL CALLBACK printWindow(HWND window, LPARAM) {
    RECT place = {};
    wchar_t name[256] = {};
    DWORD process = 0;
    if (!IsWindowVisible(window) || IsIconic(window) || !GetWindowRect(window, &place) ||
        !GetClassNameW(window, name, 256))
        return TRUE;
    GetWindowThreadProcessId(window, &process);
    std::cout << programOf(process) << '\t' << utf8(name) << '\t' << titleOf(window) << '\t' << place.left
              << '\t' << place.top << '\t' << place.right - place.left << '\t' << place.bottom - place.top
              << '\t' << (IsWindowEnabled(window) ? "enabled" : "disabled") << '\t'
              << (GetForegroundWindow() == window ? "active" : "") << '\n';
    return TRUE;
}

BOOL CALLBACK findTree(HWND window, LPARAM found) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (wcscmp(name, WC_TREEVIEWW) != 0 || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The text of a tree's item, through memory of the tree's own process.
std::string itemText(HWND tree, HANDLE process, LPARAM item) {
    struct Request {
        TVITEMW item;
        wchar_t text[256];
    } request = {};
    void* there = VirtualAllocEx(process, nullptr, sizeof request, MEM_COMMIT, PAGE_READWRITE);
    if (!there)
        return {};
    request.item.mask = TVIF_TEXT;
    request.item.hItem = reinterpret_cast<HTREEITEM>(item);
    request.item.pszText = static_cast<Request*>(there)->text;
    request.item.cchTextMax = 256;
    WriteProcessMemory(process, there, &request, sizeof request, nullptr);
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(there));
    ReadProcessMemory(process, there, &request, sizeof request, nullptr);
    VirtualFreeEx(process, there, 0, MEM_RELEASE);
    return utf8(request.text);
}

void printFolder() {
    const HWND dialog = FindWindowW(L"#32770", L"Browse for Folder");
    HWND tree = nullptr;
    EnumChildWindows(dialog, findTree, reinterpret_cast<LPARAM>(&tree));
    if (!tree)
        return;
    DWORD id = 0;
    GetWindowThreadProcessId(tree, &id);
    const utility::KernelHandle process(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    std::string path;
    LPARAM item = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
    for (; item != 0; item = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_PARENT, item))
        path = itemText(tree, process.get(), item) + '\\' + path;
    std::cout << path << '\n';
}

void printValue(const std::string& key, const std::string& name) {
    wchar_t data[1024] = {};
    DWORD size = sizeof data - sizeof data[0];
    if (RegGetValueW(HKEY_CURRENT_USER, wide(key).c_str(), wide(name).c_str(), RRF_RT_REG_SZ, nullptr, data,
                     &size) == ERROR_SUCCESS)
        std::cout << utf8(data) << '\n';
}

void bringToFront(const std::string& name) {
    const HWND window = FindWindowW(wide(name).c_str(), nullptr);
    SetForegroundWindow(GetLastActivePopup(window));
}

WORD keyCode(const std::string& name) {
    static const std::map<std::string, WORD> codes = {
        {"Tab", VK_TAB},   {"Return", VK_RETURN}, {"Escape", VK_ESCAPE}, {"space", VK_SPACE},
        {"Left", VK_LEFT}, {"Up", VK_UP},         {"Right", VK_RIGHT},   {"Down", VK_DOWN},
        {"F4", VK_F4},     {"shift", VK_SHIFT},   {"alt", VK_MENU},
    };
    const auto found = codes.find(name);
    return found == codes.end() ? WORD{0} : found->second;
}

INPUT keyEvent(WORD code, DWORD flags) {
    const bool arrow = code >= VK_LEFT && code <= VK_DOWN;
    INPUT event = {};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = code;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags | (arrow ? KEYEVENTF_EXTENDEDKEY : 0);
    return event;
}

// Down in the order of the names, up in the other.
void pressKey(const std::string& names) {
    std::istringstream text(names);
    std::vector<INPUT> events;
    for (std::string name; std::getline(text, name, '+');)
        events.push_back(keyEvent(keyCode(name), 0));
    for (size_t left = events.size(); left-- > 0;)
        events.push_back(keyEvent(events[left].ki.wVk, KEYEVENTF_KEYUP));
    SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

void answer(const std::string& question) {
    std::istringstream text(question);
    std::string verb, first, second;
    std::getline(std::getline(std::getline(text, verb, '\t'), first, '\t'), second, '\t');
    if (verb == "windows")
        EnumWindows(printWindow, 0);
    else if (verb == "front")
        bringToFront(first);
    else if (verb == "key")
        pressKey(first);
    else if (verb == "folder")
        printFolder();
    else if (verb == "value")
        printValue(first, second);
    std::cout << std::endl;
}

} // namespace

int main() {
    CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    // The window must go on answering what the system sends to all windows.
    std::thread([] {
        for (std::string question; std::getline(std::cin, question);)
            answer(question.substr(0, question.find('\r')));
        ExitProcess(0);
    }).detach();
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;)
        DispatchMessageW(&message);
    return 0;
}
