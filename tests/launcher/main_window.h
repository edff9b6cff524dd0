#pragma once

#include "launcher/qzvy/QzVyMainFrame.h"
#include "tests/launcher/support.h"
#include "uilib/controls/control.h"

// The main window as a user has it: made from the real skin on the display of the test, pressed
// by its buttons and asked for what it shows. Its web panels are missing, as is the engine. It
// stays hidden, which is quicker, unless the test shows it.

namespace launcher_test {

class MainWindow : public Stage {
protected:
    void SetUp() override; // in English, with no game at the install folder
    void TearDown() override;

    // Another window in place of the open one, in the language and market of a short code.
    void openAnew(const std::wstring& market);

    void showWindow(); // painted, with all controls at their places

    static QzVyModel& model() { return QzVyModel::instance(); }
    HWND window() const { return model().mainWindow; }
    UILib::CControlUI& control(const wchar_t* name) const; // fails the test when it is missing
    std::wstring text(const wchar_t* name) const;
    std::wstring image(const wchar_t* button) const; // of its normal state
    bool isShown(const wchar_t* name) const;
    int progress(const wchar_t* bar) const;

    // The text of the start button, "off" while it is disabled, and the page beside it:
    // "Installing off download".
    std::string screen() const;
    bool pumpUntilScreen(const std::string& expected) {
        return pumpUntil([&] { return screen() == expected; });
    }

    // Presses a button that can be pressed.
    void click(const wchar_t* button);
    static void runWaitingTasks();

    QzVyMainFrame* frame = nullptr; // null once its window is gone

private:
    void open();
    void close();
};

} // namespace launcher_test
