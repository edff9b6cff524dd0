#include "kit/text_fit.h"

#include "kit/console.h"
#include "kit/skin_document.h"
#include "uilib/controls/label.h"
#include "uilib/controls/tab_layout.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/utf8.h"

#include <filesystem>

namespace kit {

namespace {

using UILib::CControlUI;
using UILib::CLabelUI;
using UILib::CUIString;

// What the program shows in a control: the text of a key and what is put behind it. The
// samples are the longest that occur in earnest.
struct Sample {
    const wchar_t* control;
    const wchar_t* key;
    const wchar_t* tail;
};

constexpr Sample Samples[] = {
    {L"startBtn", L"launcher_download_game", L""},
    {L"startBtn", L"launcher_start_game", L""},
    {L"startBtn", L"launcher_btn_installing", L""},
    {L"startBtn", L"update_window_text", L""},
    {L"downloadLabel", L"launcher_downloading", L"1888MB/2888MB"},
    {L"downloadLabel", L"flow_no_source", L""},
    {L"downloadLabel", L"flow_no_download", L""},
    {L"downloadLabel", L"flow_no_space", L""},
    {L"downloadLabel", L"flow_broken_package", L""},
    {L"downloadLabel", L"flow_not_unpacked", L""},
    {L"downloadLabel", L"flow_no_client", L""},
    {L"speedLabel", L"launcher_speed", L"1008KB/S"},
    {L"leftTimeLabel", L"launcher_lefttime", L"00:28:58"},
    {L"updateVersionLabel", L"update_newversion", L"1.28.88"},
    {L"oldVersionLabel", L"update_currentVersion", L"1.0.0"},
    {L"versionLabel", L"update_currentVersion", L"1.0.0"},
    {L"titlelabel", L"prompt", L""},
    {L"descriptlabel", L"change_restart", L""},
};

// Labels that the program shows in the course of things.
constexpr const wchar_t* HiddenAtFirst[] = {L"failedLabel"};

std::wstring textOf(const std::wstring& key) {
    const wchar_t* text = UILib::CPaintManagerUI::GetLanguageText(key.c_str());
    return text ? text : key;
}

bool contains(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

// Measures the texts of one window in one language.
class FitCheck {
public:
    FitCheck(SkinDocument& checkedDocument, std::string windowAndLanguage, Findings& results)
        : document(checkedDocument),
          where(std::move(windowAndLanguage)),
          findings(results),
          context(CreateCompatibleDC(nullptr)) {}
    ~FitCheck() { DeleteDC(context); }
    FitCheck(const FitCheck&) = delete;
    FitCheck& operator=(const FitCheck&) = delete;

    void run() {
        const SIZE size = document.manager().GetInitSize();
        for (const wchar_t* name : HiddenAtFirst)
            if (CControlUI* label = document.manager().FindControl(name))
                label->SetVisible(true);
        for (int page = 0; showPage(*document.root(), page); ++page) {
            document.layout(size.cx, size.cy);
            visit(*document.root());
        }
    }

private:
    // Turns every tab of the tree to a page; false when no tab has one and it is not the first.
    bool showPage(CControlUI& control, int page) {
        bool shown = page == 0;
        if (auto* tab = static_cast<UILib::CTabLayoutUI*>(control.GetInterface(L"TabLayout")))
            shown |= tab->SelectItem(page, UILib::Notification::Skip);
        auto* container = static_cast<UILib::IContainerUI*>(control.GetInterface(L"IContainer"));
        for (int i = 0; container && i < container->GetCount(); ++i)
            shown |= showPage(*container->GetItemAt(i), page);
        return shown;
    }

    void visit(CControlUI& control) {
        if (!control.IsVisible())
            return;
        if (auto* label = static_cast<CLabelUI*>(control.GetInterface(L"Label")))
            checkTexts(*label);
        auto* container = static_cast<UILib::IContainerUI*>(control.GetInterface(L"IContainer"));
        for (int i = 0; container && i < container->GetCount(); ++i)
            visit(*container->GetItemAt(i));
    }

    void checkTexts(CLabelUI& label) {
        bool sampled = false;
        for (const Sample& sample : Samples)
            if (label.GetName() == sample.control) {
                check(label, textOf(sample.key) + sample.tail);
                sampled = true;
            }
        const std::wstring text(label.GetText());
        if (!sampled && text.size() > 1 && text[0] == L'@')
            check(label, textOf(text.substr(1)));
    }

    // What leaves its parent or the window is cut off there.
    bool hasRoom(CControlUI& control) {
        const CControlUI* parent = control.GetParent();
        return contains(document.root()->GetPos(), control.GetPos()) &&
               (!parent || contains(parent->GetPos(), control.GetPos()));
    }

    void check(CLabelUI& label, const std::wstring& text) {
        const RECT &place = label.GetPos(), &padding = label.GetTextPadding();
        const LONG width = place.right - place.left - padding.left - padding.right;
        const LONG height = place.bottom - place.top - padding.top - padding.bottom;
        const SIZE needed = measure(label, text, width);
        if (needed.cx > width || needed.cy > height)
            report(label, text,
                   "needs " + std::to_string(needed.cx) + " by " + std::to_string(needed.cy) + ", has " +
                       std::to_string(width) + " by " + std::to_string(height));
        else if (!hasRoom(label))
            report(label, text, "is pushed out of what it lies in");
    }

    SIZE measure(CLabelUI& label, const std::wstring& text, LONG width) {
        const bool singleLine = label.GetTextStyle() & DT_SINGLELINE;
        const unsigned style =
            label.GetTextStyle() & ~(DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM | DT_END_ELLIPSIS);
        RECT rectangle = {0, 0, singleLine ? 9999 : width, 9999};
        int links = 0;
        if (label.IsShowHtml())
            UILib::CRenderEngine::DrawHtmlText(context, &document.manager(), rectangle, text.c_str(), 0,
                                               nullptr, nullptr, links, label.GetFont(), style | DT_CALCRECT);
        else
            UILib::CRenderEngine::DrawText(context, &document.manager(), rectangle, text.c_str(), 0,
                                           label.GetFont(), style | DT_CALCRECT);
        return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
    }

    void report(CLabelUI& label, const std::wstring& text, const std::string& what) {
        const std::wstring name(label.GetName());
        findings.push_back(where + (name.empty() ? std::string("a text") : toUtf8(name)) + " " + what +
                           ": \"" + toUtf8(text) + "\"");
    }

    SkinDocument& document;
    std::string where;
    Findings& findings;
    HDC context;
};

} // namespace

bool findTextsThatDoNotFit(const std::wstring& skin, const TextTable& table, Findings& findings) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(skin)) {
        if (entry.path().extension() != L".xml")
            continue;
        const std::wstring name = std::filesystem::relative(entry.path(), skin).wstring();
        for (const std::string& code : table.codes) {
            SkinDocument document;
            if (!document.loadFrom(skin, name, UILib::wideFromUtf8(code)))
                return false;
            FitCheck(document, toUtf8(name) + ", " + code + ": ", findings).run();
        }
    }
    return true;
}

} // namespace kit
