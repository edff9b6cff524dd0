#include "kit/gallery_markup.h"

namespace kit {

#define IMAGES                                                                                               \
    L"normalimage=\"file='normal.png' corner='6,6,6,6'\" hotimage=\"file='hot.png' corner='6,6,6,6'\" "      \
    L"pushedimage=\"file='pushed.png' corner='6,6,6,6'\" disabledimage=\"file='disabled.png' "               \
    L"corner='6,6,6,6'\" focusedimage=\"file='focused.png' corner='6,6,6,6'\" "
#define STRIP L"standardimage=\"file='strip.png' corner='6,6,6,6'\" "
#define SIZE(WIDTH) L"width=\"" WIDTH L"\" height=\"34\" padding=\"6,3,6,3\" "
#define TITLE(TEXT) L"<Label text=\"" TEXT L"\" height=\"20\" textcolor=\"#FF9FB4D8\" font=\"1\"/>"
#define ROW L"<HBox height=\"40\">"
#define END L"</HBox>"

#define BUTTON(STATE, MORE) L"<Button text=\"" STATE L"\" state=\"" STATE L"\" " SIZE(L"110") MORE L"/>"
#define OPTION(STATE, MORE)                                                                                  \
    L"<Option text=\"" STATE L"\" state=\"" STATE L"\" selectedimage=\"file='pushed.png' "                   \
    L"corner='6,6,6,6'\" selectedtextcolor=\"#FFFFE080\" " SIZE(L"110") IMAGES MORE L"/>"
#define BAR(VALUE)                                                                                           \
    L"<Progress "                                                                                            \
    L"text="                                                                                                 \
    L"\"" VALUE L"\" textcolor=\"#FFFFFFFF\" "                                                               \
    L"value=\"" VALUE L"\" width=\"150\" height=\"20\" padding=\"6,3,6,3\" "                                 \
    L"bkimage=\"file='disabled.png' corner='6,6,6,6'\" foreimage=\"file='hot.png' corner='6,6,6,6'\"/>"
#define UPRIGHT(VALUE)                                                                                       \
    L"<Progress value=\"" VALUE L"\" width=\"20\" height=\"60\" padding=\"6,3,6,3\" hor=\"false\" "          \
    L"bkcolor=\"#FF303848\" forecolor=\"#FF60C080\"/>"
#define EFFECT(TEXT, MORE)                                                                                   \
    L"<Label text=\"" TEXT L"\" font=\"2\" textcolor=\"#FFFFD040\" align=\"center\" enabledeffect=\"true\" " \
    L"width=\"140\" height=\"44\" padding=\"4,2,4,2\" " MORE L"/>"
#define EDIT(TEXT, MORE)                                                                                     \
    L"<Edit text=\"" TEXT L"\" textcolor=\"#FF101828\" bordersize=\"1\" bordercolor=\"#FF607090\" "          \
    L"hotbordercolor=\"#FFFF8040\" " SIZE(L"130") MORE L"/>"
#define COMBO(NAME, MORE)                                                                                    \
    L"<Combo name=\"" NAME L"\" itemfont=\"0\" textcolor=\"#FFFFFFFF\" textpadding=\"8,0,8,0\" "             \
    L"itemtextpadding=\"8,0,8,0\" dropboxsize=\"0,110\" dropbox=\"bkcolor=&quot;#FFFFFFFF&quot;\" "          \
    L"itemhlinesize=\"1\" itemhlinecolor=\"#FFD0D8E8\" itemaltbk=\"true\" itembkcolor=\"#FFF4F0E0\" " SIZE(  \
        L"130") IMAGES                                                                                       \
        MORE L">"                                                                                            \
             L"<ListLabelElement text=\"First\"/><ListLabelElement text=\"Second\" selected=\"true\"/>"      \
             L"<ListLabelElement text=\"Third, hot\" name=\"" NAME L"hot\"/>"                                \
             L"<ListLabelElement text=\"Fourth, disabled\" enabled=\"false\"/>"                              \
             L"<ListLabelElement text=\"Fifth\"/><ListLabelElement text=\"Sixth\"/></Combo>"

const wchar_t galleryMarkup[] =
    L"<Window><Font id=\"0\" name=\"Liberation Sans\" size=\"14\" default=\"true\"/>"
    L"<Font id=\"1\" name=\"Liberation Sans\" size=\"12\" bold=\"true\"/>"
    L"<Font id=\"2\" name=\"Liberation Sans\" size=\"26\" bold=\"true\"/>"
    L"<Default name=\"Label\" value=\"textcolor=&quot;#FFE8ECF4&quot; "
    L"font=&quot;0&quot;\"/>"
    L"<Default name=\"Button\" value=\"textcolor=&quot;#FFFFFFFF&quot; "
    L"font=&quot;0&quot;\"/>"
    L"<Default name=\"Option\" value=\"textcolor=&quot;#FFFFFFFF&quot; "
    L"font=&quot;0&quot;\"/>"
    L"<VBox bkcolor=\"#FF1C2230\" inset=\"10,6,10,6\">" TITLE(
        L"Label: alignment, padding, ellipsis, disabled, lines, "
        L"tags") L"<HBox height=\"60\">"
                 L"<Label text=\"left\" bkcolor=\"#FF303848\" width=\"90\"/>"
                 L"<Label text=\"centre\" align=\"center\" padding=\"6,0,0,0\" "
                 L"bkcolor=\"#FF303848\" width=\"90\"/>"
                 L"<Label text=\"right, bottom\" align=\"right\" valign=\"bottom\" "
                 L"padding=\"6,0,0,0\" "
                 L"bkcolor=\"#FF303848\" width=\"100\"/>"
                 L"<Label text=\"far too long for here\" endellipsis=\"true\" "
                 L"padding=\"6,0,0,0\" "
                 L"textpadding=\"8,0,8,0\" bkcolor=\"#FF303848\" width=\"100\"/>"
                 L"<Label text=\"disabled\" enabled=\"false\" padding=\"6,0,0,0\" "
                 L"bkcolor=\"#FF303848\" width=\"80\"/>"
                 L"<Label text=\"several lines of words that wrap\" multiline=\"true\" "
                 L"align=\"center\" valign=\"top\" "
                 L"padding=\"6,0,0,0\" bkcolor=\"#FF303848\" width=\"120\"/>"
                 L"<Label text=\"{b}bold{/b} {i}italic{/i} {u}under{/u}{n}{c "
                 L"#FF8040}orange{/c} {a x}link{/a}\" "
                 L"showhtml=\"true\" multiline=\"true\" padding=\"6,0,0,0\" "
                 L"bkcolor=\"#FF303848\" width=\"150\"/>" END TITLE(
                     L"Text effects: gradient, stroke, shadow, glow, "
                     L"all") L"<HBox height=\"50\">" EFFECT(L"Gradient", L"textcolor1=\"#FFFF4020\"")
                     EFFECT(L"Stroke", L"enabledstroke=\"true\" strokecolor=\"#FF4060C0\"") EFFECT(
                         L"Shadow",
                         L"enabledshadow=\"true\" shadowoffset=\"-3,45\" "
                         L"textshadowcolora=\"#FF000000\" "
                         L"textshadowcolorb=\"#FF803000\"") EFFECT(L"Glow", L"enabledluminous=\"true\" "
                                                                            L"luminousfuzzy=\"4\"")
                         EFFECT(L"All",
                                L"t"
                                L"e"
                                L"x"
                                L"t"
                                L"c"
                                L"o"
                                L"l"
                                L"o"
                                L"r"
                                L"1"
                                L"="
                                L"\"#FFFF4020\" enabledstroke=\"true\" "
                                L"s"
                                L"t"
                                L"r"
                                L"o"
                                L"k"
                                L"e"
                                L"c"
                                L"o"
                                L"l"
                                L"o"
                                L"r"
                                L"="
                                L"\"#FF4060C0\" "
                                L"e"
                                L"n"
                                L"a"
                                L"b"
                                L"l"
                                L"e"
                                L"d"
                                L"s"
                                L"h"
                                L"a"
                                L"d"
                                L"o"
                                L"w"
                                L"="
                                L"\"true\" shadowoffset=\"-3,45\" "
                                L"e"
                                L"n"
                                L"a"
                                L"b"
                                L"l"
                                L"e"
                                L"d"
                                L"l"
                                L"u"
                                L"m"
                                L"i"
                                L"n"
                                L"o"
                                L"u"
                                L"s"
                                L"="
                                L"\"true\"") END TITLE(L"Button: plain pictures, strip, "
                                                       L"colours, "
                                                       L"fade, mark, lines") ROW BUTTON(L"nor"
                                                                                        L"ma"
                                                                                        L"l",
                                                                                        IMAGES) BUTTON(L"hot",
                                                                                                       IMAGES)
                             BUTTON(L"pushed", IMAGES) BUTTON(L"focused", IMAGES) BUTTON(
                                 L"disabled",
                                 IMAGES) END ROW BUTTON(L"normal",
                                                        STRIP) BUTTON(L"hot",
                                                                      STRIP) BUTTON(L"pushed",
                                                                                    STRIP) BUTTON(L"disabled",
                                                                                                  STRIP)
                                 BUTTON(L"fading", IMAGES L"fadedelta=\"51\"") END ROW BUTTON(
                                     L"hot",
                                     L"bkcolor=\"#FF303848\" hotbkcolor=\"#FF506890\" "
                                     L"hottextcolor=\"#FFFFE080\" "
                                     L"bordersize=\"1\" hotbordercolor=\"#FFFF8040\"") BUTTON(L"pushed",
                                                                                              L"bk"
                                                                                              L"co"
                                                                                              L"lo"
                                                                                              L"r="
                                                                                              L"\""
                                                                                              L"#F"
                                                                                              L"F3"
                                                                                              L"03"
                                                                                              L"84"
                                                                                              L"8"
                                                                                              L"\""
                                                                                              L" p"
                                                                                              L"us"
                                                                                              L"hb"
                                                                                              L"kc"
                                                                                              L"ol"
                                                                                              L"or"
                                                                                              L"="
                                                                                              L"\""
                                                                                              L"#F"
                                                                                              L"F2"
                                                                                              L"03"
                                                                                              L"05"
                                                                                              L"0"
                                                                                              L"\""
                                                                                              L" p"
                                                                                              L"us"
                                                                                              L"he"
                                                                                              L"dt"
                                                                                              L"ex"
                                                                                              L"tc"
                                                                                              L"ol"
                                                                                              L"or"
                                                                                              L"="
                                                                                              L"\""
                                                                                              L"#F"
                                                                                              L"FF"
                                                                                              L"F8"
                                                                                              L"04"
                                                                                              L"0"
                                                                                              L"\"")
                                     BUTTON(
                                         L"disabled", L"bkcolor=\"#FF303848\" "
                                                      L"disabledbkcolor=\"#FF282828\"") BUTTON(L"normal",
                                                                                               IMAGES L"showr"
                                                                                                      L"ed"
                                                                                                      L"=\"tr"
                                                                                                      L"ue"
                                                                                                      L"\" "
                                                                                                      L"redFi"
                                                                                                      L"le"
                                                                                                      L"Path="
                                                                                                      L"\"fil"
                                                                                                      L"e="
                                                                                                      L"'mark"
                                                                                                      L"."
                                                                                                      L"png' "
                                                                                                      L"dest="
                                                                                                      L"'"
                                                                                                      L"84,2,"
                                                                                                      L"94,"
                                                                                                      L"12'"
                                                                                                      L"\"") L"<Button text=\"one<n>two\" showhtml=\"true\" drawmulline=\"true\" " SIZE(L"110")
                                         IMAGES L"/>" END TITLE(L"Option: a group, selected states")
                                             ROW OPTION(L"normal",
                                                        L"group="
                                                        L"\"g\"") OPTION(L"selected", L"group=\"g\"")
                                                 OPTION(L"hot", L"group=\"g\"")
                                                     OPTION(
                                                         L"disabled",
                                                         L"selecte"
                                                         L"d="
                                                         L"\"true"
                                                         L"\" "
                                                         L"selecte"
                                                         L"ddisabl"
                                                         L"edimage"
                                                         L"=\"file"
                                                         L"='"
                                                         L"disable"
                                                         L"d.png' "
                                                         L"corner="
                                                         L"'6,6,6,"
                                                         L"6'"
                                                         L"\"") L"<Option text=\"colour\" "
                                                                L"selected=\"true\" "
                                                                L"selectedbkcolor=\"#"
                                                                L"FF406040\" " SIZE(L"110") L"/>" END TITLE(
                                                                    L"Progress: 0, 1, 50, 99, 100, both "
                                                                    L"directions; "
                                                                    L"animated "
                                                                    L"image") L"<HBox height=\"30\">" BAR(L"0")
                                                                    BAR(L"1") BAR(L"50") BAR(
                                                                        L"99") BAR(L"100")
                                                                        END L"<HBox height=\"70\">" UPRIGHT(
                                                                            L"0") UPRIGHT(L"1")
                                                                            UPRIGHT(L"50") UPRIGHT(L"99")
                                                                                UPRIGHT(
                                                                                    L"10"
                                                                                    L"0") L"<GifAnim "
                                                                                          L"bkimage="
                                                                                          L"\"anim.gif\" "
                                                                                          L"width=\"48\" "
                                                                                          L"height="
                                                                                          L"\"48\" "
                                                                                          L"padding=\"20,"
                                                                                          L"3,0,0\" "
                                                                                          L"autoplay="
                                                                                          L"\"false\"/>"
                                                                                          L"<GifAnim "
                                                                                          L"bkimage="
                                                                                          L"\"anim.gif\" "
                                                                                          L"autosize="
                                                                                          L"\"true\" "
                                                                                          L"padding=\"20,"
                                                                                          L"3,0,0\" "
                                                                                          L"autoplay="
                                                                                          L"\"false\"/"
                                                                                          L">" END TITLE(
                                                                                              L"Edit: "
                                                                                              L"empty, "
                                                                                              L"filled, "
                                                                                              L"password,"
                                                                                              L" "
                                                                                              L"hot, "
                                                                                              L"disabled,"
                                                                                              L" read-"
                                                                                              L"only") ROW
                                                                                              EDIT(L"", L"") EDIT(
                                                                                                  L"C:"
                                                                                                  L"\\Gam"
                                                                                                  L"es\\V"
                                                                                                  L"YN",
                                                                                                  L"") EDIT(L"secret",
                                                                                                            L"password=\"true\"")
                                                                                                  EDIT(
                                                                                                      L"hot",
                                                                                                      L"stat"
                                                                                                      L"e="
                                                                                                      L"\"ho"
                                                                                                      L"t\"") EDIT(L"d"
                                                                                                                   L"i"
                                                                                                                   L"s"
                                                                                                                   L"a"
                                                                                                                   L"b"
                                                                                                                   L"l"
                                                                                                                   L"e"
                                                                                                                   L"d",
                                                                                                                   L"s"
                                                                                                                   L"t"
                                                                                                                   L"a"
                                                                                                                   L"t"
                                                                                                                   L"e"
                                                                                                                   L"="
                                                                                                                   L"\"disabled\"")
                                                                                                      EDIT(
                                                                                                          L"r"
                                                                                                          L"e"
                                                                                                          L"a"
                                                                                                          L"d"
                                                                                                          L"-"
                                                                                                          L"o"
                                                                                                          L"n"
                                                                                                          L"l"
                                                                                                          L"y",
                                                                                                          L"r"
                                                                                                          L"e"
                                                                                                          L"a"
                                                                                                          L"d"
                                                                                                          L"o"
                                                                                                          L"n"
                                                                                                          L"l"
                                                                                                          L"y"
                                                                                                          L"="
                                                                                                          L"\"tru"
                                                                                                          L"e"
                                                                                                          L"\" "
                                                                                                          L"a"
                                                                                                          L"l"
                                                                                                          L"i"
                                                                                                          L"g"
                                                                                                          L"n"
                                                                                                          L"="
                                                                                                          L"\"ce"
                                                                                                          L"n"
                                                                                                          L"t"
                                                                                                          L"e"
                                                                                                          L"r"
                                                                                                          L"\"") END
                                                                                                          TITLE(
                                                                                                              L"Com"
                                                                                                              L"bo:"
                                                                                                              L" at"
                                                                                                              L" re"
                                                                                                              L"st,"
                                                                                                              L" "
                                                                                                              L"hot"
                                                                                                              L", "
                                                                                                              L"dis"
                                                                                                              L"abl"
                                                                                                              L"ed,"
                                                                                                              L" op"
                                                                                                              L"en "
                                                                                                              L"wit"
                                                                                                              L"h "
                                                                                                              L"a "
                                                                                                              L"scr"
                                                                                                              L"oll"
                                                                                                              L" ba"
                                                                                                              L"r, "
                                                                                                              L"a "
                                                                                                              L"hot"
                                                                                                              L" an"
                                                                                                              L"d "
                                                                                                              L"a "
                                                                                                              L"sel"
                                                                                                              L"ect"
                                                                                                              L"ed "
                                                                                                              L"ite"
                                                                                                              L"m") ROW
                                                                                                              COMBO(L"rest", L"") COMBO(
                                                                                                                  L"w"
                                                                                                                  L"a"
                                                                                                                  L"r"
                                                                                                                  L"m",
                                                                                                                  L"s"
                                                                                                                  L"t"
                                                                                                                  L"a"
                                                                                                                  L"t"
                                                                                                                  L"e"
                                                                                                                  L"="
                                                                                                                  L"\"ho"
                                                                                                                  L"t"
                                                                                                                  L"\"")
                                                                                                                  COMBO(
                                                                                                                      L"off",
                                                                                                                      L"state="
                                                                                                                      L"\"disabled"
                                                                                                                      L"\"")
                                                                                                                      COMBO(
                                                                                                                          L"opene"
                                                                                                                          L"d",
                                                                                                                          L"")
                                                                                                                          END L"</"
                                                                                                                              L"VBox"
                                                                                                                              L"></"
                                                                                                                              L"Wind"
                                                                                                                              L"ow>";

} // namespace kit
