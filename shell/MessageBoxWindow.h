#pragma once

#include "shell/MessageBox.h"
#include "uilib/core/window_impl_base.h"

// The window of a message box. The parent is disabled from construction on, and enabled
// again by each way in which the box can end.

namespace msg {

class MessageBoxWindow final : public UILib::WindowImplBase, public IMessageBox {
public:
    MessageBoxWindow(HWND parent, std::wstring skin); // parent may be null
    ~MessageBoxWindow() override;

    bool open(); // once; false when the system makes no window

    // The contents of the open boxes that were asked to be there only once.
    static bool isShown(const std::wstring& content);
    static void remember(const std::wstring& content);

    void setIcon(const std::wstring& image) override;
    void setTitle(const std::wstring& text) override;
    void setContent(const std::wstring& text) override;
    void setCloseAction(std::function<void()> action) override { closeAction = std::move(action); }
    void addSelection(const Selection& selection) override;
    void addRemoteSelection(const Selection& selection) override;

private:
    const wchar_t* GetWindowClassName() const override { return L"MessageBoxWindow"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return skin.c_str(); }
    void InitWindow() override;
    void OnClick(UILib::TUINotify& notification) override;
    LRESULT OnClose(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    void OnFinalMessage(HWND handle) override;

    void addButton(UILib::CControlUI* button, bool primary);
    void choose(const Selection& selection);
    void releaseParent();

    std::function<void()> closeAction;
    std::wstring content;
    HWND parent;
    std::wstring skin;
};

} // namespace msg
