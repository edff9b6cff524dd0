#include "shell/QzVySetupFrame.h"

#include "launcher/qzvy/QzVyModel.h"
#include "shell/BrowseFolder.h"
#include "shell/InstallPath.h"
#include "shell/MessageBox.h"
#include "shell/QzVySetupImpl.h"
#include "shell/language_choices.h"
#include "uilib/controls/combo.h"
#include "uilib/controls/edit.h"
#include "uilib/controls/list_element.h"
#include "uilib/controls/option.h"
#include "utility/program_version.h"
#include "utility/system.h"

using namespace UILib;
using utility::usystem::openUrl;

namespace {

constexpr int LanguageFont = 2;
constexpr int LanguageHeight = 30; // pixels a row

// A setting and the two options of its group.
struct Switch {
    const wchar_t* on;
    const wchar_t* off;
    bool QzVySetupImpl::*setting;
};

constexpr Switch Switches[] = {
    {L"autoRunOnOpt", L"autoRunOffOpt", &QzVySetupImpl::autorun},
    {L"exstgameTopOpt", L"exstgameNotTopOpt", &QzVySetupImpl::existgame},
    {L"closeMinOpt", L"closeExistOpt", &QzVySetupImpl::minbyclose},
};

void store(const Switch& changed, bool value) {
    QzVySetupImpl& settings = QzVySetupImpl::instance();
    if (changed.setting == &QzVySetupImpl::autorun)
        QzVyModel::instance().setAutoRun(value);
    settings.*changed.setting = value;
    settings.saveConfig();
}

std::vector<LanguageChoice> languagesOfTable() {
    std::vector<LanguageChoice> languages;
    for (int i = 0; i < CPaintManagerUI::GetLanguageCount(); ++i) {
        CUIString code, name;
        CPaintManagerUI::GetLanguageInfo(i, code, name);
        languages.push_back({code.GetData(), name.GetData()});
    }
    return languages;
}

void restartNow() {
    QzVyModel::instance().needRestart = true;
    PostQuitMessage(0);
}

} // namespace

const WindowImplBase::MessageMap QzVySetupFrame::messageMap = [] {
    static constexpr Entry entries[] = {
        entry(L"click", L"aboutlink1", &QzVySetupFrame::onAboutLink),
        entry(L"click", L"aboutlink2", &QzVySetupFrame::onAboutLink),
        entry(L"click", L"chanagePathBtn", &QzVySetupFrame::onBrowse),
        entry(L"click", L"checkUpdateBtn", &QzVySetupFrame::onCheckUpdateClicked),
        entry(L"itemselect", L"languageCombo", &QzVySetupFrame::onLanguageSelected),
        entry(L"selectchanged", L"", &QzVySetupFrame::onOptionSelected),
    };
    return MessageMap{&WindowImplBase::messageMap, entries};
}();

void QzVySetupFrame::InitWindow() {
    paintManager.SetDefaultFontFamily(languageText("font_name"));
    showSwitches();
    if (auto* path = find<CEditUI>(L"pathEdit", L"Edit")) {
        path->SetText(QzVyModel::instance().getPathDir().c_str());
        path->SetReadOnly(true);
    }
    setText(L"versionLabel",
            languageText("update_currentVersion") + std::wstring(utility::ProgramVersionText));
    fillLanguages();
    paintManager.SetFocusNeeded(find(Switches[0].on)); // for the keys; shown once they are used
}

void QzVySetupFrame::showSwitches() {
    for (const Switch& row : Switches) {
        const bool on = QzVySetupImpl::instance().*row.setting;
        if (auto* option = find<COptionUI>(on ? row.on : row.off, L"Option"))
            option->Selected(true, false);
    }
}

void QzVySetupFrame::fillLanguages() {
    auto* combo = find<CComboUI>(L"languageCombo", L"Combo");
    if (!combo)
        return;
    const std::wstring& present = QzVyModel::instance().market.localeCode;
    combo->SetItemFont(LanguageFont);
    for (const LanguageChoice& language : releasedLanguages(languagesOfTable(), present)) {
        auto* item = new CListLabelElementUI;
        item->SetFixedHeight(LanguageHeight);
        item->SetText(language.name.c_str());
        item->SetUserData(language.code.c_str());
        combo->Add(item);
        if (language.code == present)
            combo->SelectItem(combo->GetCount() - 1, false, false);
    }
}

// Of a group only the option that became selected tells of it.
void QzVySetupFrame::onOptionSelected(TUINotify& notification) {
    const auto* option = static_cast<COptionUI*>(notification.sender->GetInterface(L"Option"));
    if (!option)
        return;
    for (const Switch& row : Switches)
        if (option->GetName() == row.on)
            store(row, option->IsSelected());
        else if (option->GetName() == row.off)
            store(row, !option->IsSelected());
}

void QzVySetupFrame::onAboutLink(TUINotify& notification) {
    const bool first = notification.sender->GetName() == L"aboutlink1";
    openUrl(languageText(first ? "link_about_us_link1" : "link_about_us_link2"));
}

void QzVySetupFrame::onBrowse(TUINotify&) {
    browseForFolder(window, QzVyModel::instance().getPathDir(),
                    [this](const std::wstring& choice) { applyPath(choice); });
}

void QzVySetupFrame::applyPath(const std::wstring& choice) {
    const auto path = installPathOf(choice, SettingsFolder);
    if (!path)
        return;
    QzVyModel::instance().setPathDir(*path);
    if (onPathChanged)
        onPathChanged();
    setText(L"pathEdit", *path);
}

void QzVySetupFrame::onCheckUpdateClicked(TUINotify&) {
    if (onCheckUpdate)
        onCheckUpdate();
}

// The choice is stored whatever the user answers next: it counts from the next start on.
void QzVySetupFrame::onLanguageSelected(TUINotify& notification) {
    auto* combo = static_cast<CComboUI*>(notification.sender->GetInterface(L"Combo"));
    const CControlUI* item = combo ? combo->GetItemAt(static_cast<int>(notification.wParam)) : nullptr;
    if (!item)
        return;
    QzVyModel::instance().setLanguage(item->GetUserData().GetData());
    askForRestart();
}

void QzVySetupFrame::askForRestart() {
    msg::showConfirmBox(window, {languageText("restart_now"), restartNow, true},
                        {languageText("restart_later"), nullptr, false}, languageText("prompt"),
                        languageText("change_restart"));
}

void QzVySetupFrame::OnFinalMessage(HWND handle) {
    WindowImplBase::OnFinalMessage(handle);
    if (onClosed)
        onClosed();
    delete this;
}
