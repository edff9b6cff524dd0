#include "update/QzHubUpdateCheckFrame.h"

#include "uilib/controls/tab_layout.h"
#include "update/QzHubUpdateModel.h"

using namespace UILib;

namespace {

enum Page { Checking, UpToDate };

} // namespace

void QzHubUpdateCheckFrame::InitWindow() {
    paintManager.SetDefaultFontFamily(languageText("font_name"));
    selectPage(Checking);
    QzHubUpdateModel::instance().checkVersion(false);
}

void QzHubUpdateCheckFrame::showUpToDate() {
    selectPage(UpToDate);
    paintManager.SetNextTabControl(Tab::Forward); // the page's button is the only one
}

void QzHubUpdateCheckFrame::selectPage(int page) {
    if (auto* pages = find<CTabLayoutUI>(L"maintab", L"TabLayout"))
        pages->SelectItem(page);
}

void QzHubUpdateCheckFrame::OnFinalMessage(HWND handle) {
    if (onClosed)
        onClosed();
    WindowImplBase::OnFinalMessage(handle);
    delete this;
}
