#include "shell/MessageBox.h"

#include "shell/MessageBoxWindow.h"

#include <memory>

namespace msg {

namespace {

constexpr int NoticeType = 0;

} // namespace

std::wstring iconOfType(int type) {
    switch (type) {
    case 0:
    case 1:
    case 2:
        return L"common/msg_noice48.png";
    case 3:
        return L"common/msg_ok.png";
    default:
        return {};
    }
}

std::wstring skinForIcon(const std::wstring& icon) {
    return icon.empty() ? L"common/xml_messagebox_noicon.xml" : L"common/xml_messagebox.xml";
}

IMessageBox* createMessageBox(HWND parent, const std::wstring& skin) {
    auto box = std::make_unique<MessageBoxWindow>(parent, skin);
    if (!box->open())
        return nullptr;
    return box.release(); // its window deletes it
}

void showConfirmBox(HWND parent, const Selection& first, const Selection& second, const std::wstring& title,
                    const std::wstring& content) {
    if (MessageBoxWindow::isShown(content))
        return;
    IMessageBox* box = createMessageBox(parent, skinForIcon(iconOfType(NoticeType)));
    if (!box)
        return;
    MessageBoxWindow::remember(content);
    box->setTitle(title);
    box->setContent(content);
    box->addSelection(first);
    box->addSelection(second);
}

} // namespace msg
