#pragma once

#include "uilib/core/platform.h"

// What the render engine asks of the manager of a window. Window thread only.

namespace UILib {

class CControlUI;
class ResourceTables;

class IRenderHost {
public:
    virtual ResourceTables& GetResourceTables() = 0;
    virtual HDC GetPaintDC() const = 0;    // null before the manager has a window
    virtual POINT GetMousePos() const = 0; // in client coordinates
    // Paints that part of a control, or of the root for null, in client coordinates.
    virtual void PaintTree(HDC context, const RECT& part, CControlUI* control) = 0;

protected:
    ~IRenderHost() = default;
};

} // namespace UILib
