#include "kit/gallery.h"

#include "kit/control_state.h"
#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

namespace kit {

// One row of the sheet: a control named "it" in a box of its own for each state.
struct Sample {
    const wchar_t* caption;
    const wchar_t* markup;
};

static const Sample Samples[] = {
    {L"Control: colour and border", L"<Control name='it' bkcolor='#FF3060A0' bordersize='2' "
                                    L"bordercolor='#FFFFFFFF' focusbordercolor='#FFFFC000'/>"},
    {L"Control: gradients and round corners", L"<Control name='it' bkcolor='#FFFF8040' bkcolor2='#FF802020' "
                                              L"bkcolor3='#FF4040C0' borderround='16,16'/>"},
    {L"Control: sides of the border",
     L"<Control name='it' bkcolor='#FF404040' bordersize='1,4,8,2' bordercolor='#FF80FF80'/>"},
    {L"Control: translucent colour",
     L"<VBox bkcolor='#FFFFFFFF' bkcolor2='#FF000000'><Control name='it' bkcolor='#80FF0000'/></VBox>"},
    {L"ScrollBar: vertical",
     L"<HBox><Control/><ScrollBar name='it' width='16' thumbcolor='#FFB0B0B0' button1color='#FF707070' "
     L"button2color='#FF707070' bkcolor='#FF303030' value='40'/><Control/></HBox>"},
    {L"ScrollBar: horizontal", L"<VBox><Control/><ScrollBar name='it' hor='true' height='16' "
                               L"thumbcolor='#FFB0B0B0' button1color='#FF707070' "
                               L"button2color='#FF707070' bkcolor='#FF303030' value='40'/><Control/></VBox>"},
    {L"VerticalLayout", L"<VBox name='it' inset='4,4,4,4' childpadding='4' childalign='center'>"
                        L"<Control bkcolor='#FF3060A0' height='12'/><Control bkcolor='#FF6090D0' width='60'/>"
                        L"<Control bkcolor='#FF3060A0' maxwidth='30'/></VBox>"},
    {L"HorizontalLayout",
     L"<HBox name='it' inset='4,4,4,4' childpadding='4' childvalign='vcenter'>"
     L"<Control bkcolor='#FF3060A0' width='12'/><Control bkcolor='#FF6090D0' height='20'/>"
     L"<Control bkcolor='#FF3060A0'/></HBox>"},
    {L"Layout that scrolls",
     L"<VBox name='it' vscrollbar='true' vscrollbarstyle=\"thumbcolor='#FFFFFFFF' "
     L"bkcolor='#FF303030'\"><Control bkcolor='#FF3060A0' bkcolor2='#FFD0E0FF' height='200'/></VBox>"},
    {L"TabLayout", L"<TabLayout name='it' selectedid='1'><Control bkcolor='#FFFF0000'/>"
                   L"<Control bkcolor='#FF00A000'/></TabLayout>"},
};
static const wchar_t* const States[] = {L"normal", L"hot", L"pushed", L"disabled", L"focused"};

constexpr int CaptionWidth = 230, CellWidth = 130, CellHeight = 76, HeadHeight = 28, Gap = 8;

static std::wstring documentOf(const Sample& sample) {
    std::wstring text = std::wstring(L"<Window>") + sample.markup + L"</Window>";
    // Lists of attributes inside an attribute keep single quotes in the table above, too.
    bool inside = false;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'"')
            inside = !inside;
        else if (text[i] == L'\'')
            text.replace(i, 1, inside ? L"&quot;" : L"\"");
    }
    return text;
}

static void drawCaption(HDC context, RECT place, const wchar_t* text) {
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, RGB(230, 230, 230));
    DrawTextW(context, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

// Each cell has a tree and a manager of its own, so that the focus can be in all of them.
static bool drawCell(HDC context, const Sample& sample, const wchar_t* state, const RECT& cell) {
    UILib::CPaintManagerUI manager;
    UILib::CDialogBuilder builder;
    UILib::CControlUI* root = builder.Create(documentOf(sample).c_str(), nullptr, nullptr, &manager, nullptr);
    if (!root || !manager.AttachDialog(root))
        return false;
    root->SetPos(cell, false);
    if (!applyState(manager, L"it", state))
        return false;
    root->SetPos(cell, false);
    manager.PaintTree(context, cell, nullptr);
    return true;
}

SIZE gallerySize() {
    return {CaptionWidth + static_cast<int>(std::size(States)) * (CellWidth + Gap),
            HeadHeight + static_cast<int>(std::size(Samples)) * (CellHeight + Gap)};
}

bool drawGallery(const UILib::DibSurface& sheet) {
    const RECT all = {0, 0, sheet.raster().width, sheet.raster().height};
    UILib::CRenderEngine::DrawColor(sheet.context(), all, 0xFF181C24);
    const auto columnAt = [](size_t column) {
        return CaptionWidth + static_cast<int>(column) * (CellWidth + Gap);
    };
    for (size_t column = 0; column < std::size(States); ++column)
        drawCaption(sheet.context(), {columnAt(column), 0, columnAt(column) + CellWidth, HeadHeight},
                    States[column]);
    int top = HeadHeight;
    for (const Sample& sample : Samples) {
        drawCaption(sheet.context(), {Gap, top, CaptionWidth, top + CellHeight}, sample.caption);
        for (size_t column = 0; column < std::size(States); ++column) {
            const int left = columnAt(column);
            if (!drawCell(sheet.context(), sample, States[column],
                          {left, top, left + CellWidth, top + CellHeight}))
                return false;
        }
        top += CellHeight + Gap;
    }
    return true;
}

} // namespace kit
