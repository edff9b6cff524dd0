#pragma once

#include "uilib/controls/label.h"

// A bar that covers as much of the control as the value's share of the range. The bar is a
// picture, whose borders stay unstretched, or a colour, or both. The value is not shown as
// text: the owner sets what stands there.

namespace UILib {

class CProgressUI : public CLabelUI {
public:
    CProgressUI();

    const wchar_t* GetClass() const override { return L"Progress"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    int GetValue() const { return value; }
    void SetValue(int newValue); // limited to the range as it is now
    int GetMinValue() const { return minValue; }
    void SetMinValue(int lowest) { setAndInvalidate(minValue, lowest); }
    int GetMaxValue() const { return maxValue; }
    void SetMaxValue(int highest) { setAndInvalidate(maxValue, highest); }
    bool IsHorizontal() const { return horizontal; }
    void SetHorizontal(bool on) { setAndInvalidate(horizontal, on); } // else it grows upward
    void SetForeColor(Color color) { setAndInvalidate(foreColor, color); }

    void PaintStatusImage(HDC context) override;

private:
    static const Attribute Rows[];

    RECT bar() const; // relative to the control

    bool horizontal = true;
    int maxValue = 100;
    int minValue = 0;
    int value = 0;
    DrawRecord foreImage;
    Color foreColor;
};

} // namespace UILib
