#pragma once

#include "uilib/core/platform.h"

#include <random>
#include <string>
#include <vector>

// Random trees of controls as markup. The controls are named "c0", "c1" and so on, and each
// shows its state by colours.

class RandomTree {
public:
    // OnlyFixed is for questions about places: a child without a size of its own takes what its
    // box has and had, so that a second layout of a scrolled box may differ from the first. What
    // floats in a box's margins is painted there or not by what part of the box is painted, so
    // that only the places of such children can be asked for.
    enum class Scrolled { Any, OnlyFixed };

    explicit RandomTree(unsigned seed, Scrolled scrolled = Scrolled::Any) : chance(seed), scrolled(scrolled) {
        text = box(3);
    }

    const std::wstring& markup() const { return text; }
    std::wstring someName() { return L"c" + std::to_wstring(below(count)); }
    int below(int limit) { return int(chance() % unsigned(limit)); }
    bool sometimes(int times) { return below(times) == 0; }

private:
    std::wstring color() {
        wchar_t hex[16];
        swprintf(hex, std::size(hex), L"#FF%06X", unsigned(chance() & 0xFFFFFF));
        return hex;
    }
    std::wstring number(const wchar_t* name, int least, int most) {
        return std::wstring(name) + L"=\"" + std::to_wstring(least + below(most - least)) + L"\" ";
    }
    std::wstring margins(const wchar_t* name) {
        std::wstring all = std::wstring(name) + L"=\"";
        for (int i = 0; i < 4; ++i)
            all += (i ? L"," : L"") + std::to_wstring(below(6));
        return all + L"\" ";
    }
    std::wstring state(const wchar_t* name) { return std::wstring(name) + L"=\"color='" + color() + L"'\" "; }
    std::wstring common(bool fixed = false, bool showsFocus = false) {
        std::wstring all =
            L"name=\"c" + std::to_wstring(count++) + L"\" keyboard=\"true\" bkcolor=\"" + color() + L"\" ";
        if (fixed || sometimes(2))
            all += number(L"width", 20, 150);
        if (fixed || sometimes(2))
            all += number(L"height", 15, 80);
        if (sometimes(3))
            all += margins(L"padding");
        if (sometimes(6))
            all += number(L"minwidth", 30, 60) + number(L"maxheight", 20, 60);
        if (sometimes(4))
            all += number(L"bordersize", 1, 4) + L"bordercolor=\"" + color() + L"\" ";
        if (showsFocus)
            all += L"focusbordercolor=\"" + color() + L"\" ";
        if (scrolled == Scrolled::OnlyFixed && sometimes(10))
            all += L"float=\"true\" pos=\"10,10,70,40\" ";
        if (sometimes(12))
            all += L"visible=\"false\" ";
        return all;
    }
    std::wstring leaf(bool fixed) {
        const std::wstring states =
            state(L"normalimage") + state(L"hotimage") + state(L"focusedimage") + state(L"disabledimage");
        switch (below(6)) {
        case 0:
            return L"<Button " + common(fixed, true) + states + state(L"pushedimage") + L"/>";
        case 1:
            return L"<Option " + common(fixed, true) + states + state(L"selectedimage") +
                   state(L"selectedhotimage") + (sometimes(2) ? L"group=\"g\"" : L"") + L"/>";
        case 2:
            return L"<Edit " + common(fixed, true) + states + L"text=\"typed\"/>";
        case 3:
            return L"<Progress " + common(fixed, false) + number(L"value", 0, 100) + L"forecolor=\"" +
                   color() + L"\"/>";
        case 4:
            return L"<Label " + common(fixed, false) + L"text=\"some words\" textcolor=\"" + color() +
                   L"\"/>";
        default:
            return L"<Control " + common(fixed, true) + L"/>";
        }
    }
    std::wstring box(int depth) {
        constexpr const wchar_t* tags[] = {L"VBox", L"HBox", L"VBox", L"HBox", L"Container", L"TabLayout"};
        const std::wstring tag = tags[below(std::size(tags))];
        std::wstring all = L"<" + tag + L" " + common() + margins(L"inset") + number(L"childpadding", 0, 4);
        const std::wstring style = L"scrollbarstyle=\"thumbcolor=&quot;" + color() +
                                   L"&quot; bkcolor=&quot;" + color() + L"&quot;\" ";
        const bool steady = scrolled == Scrolled::OnlyFixed, vertical = tag == L"VBox";
        const bool bar = sometimes(2) && (!steady || vertical || tag == L"HBox");
        if (bar)
            all += (vertical ? L"v" : L"h") + style;
        if (!steady && sometimes(3))
            all += (vertical ? L"h" : L"v") + style;
        if (sometimes(3))
            all += L"childalign=\"center\" childvalign=\"bottom\" ";
        all += L">";
        for (int i = 1 + below(4); i > 0; --i)
            all += depth > 0 && !(steady && bar) && sometimes(2) ? box(depth - 1) : leaf(steady && bar);
        return all + L"</" + tag + L">";
    }

    std::mt19937 chance;
    const Scrolled scrolled;
    int count = 0;
    std::wstring text;
};
