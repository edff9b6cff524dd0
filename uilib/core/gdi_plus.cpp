#include "uilib/core/gdi_plus.h"

#include "utility/log.h"

namespace UILib {

namespace {

class Library {
public:
    Library() {
        const Gdiplus::GdiplusStartupInput input;
        const Gdiplus::GpStatus status = Gdiplus::GdiplusStartup(&token, &input, nullptr);
        if (status == Gdiplus::Ok)
            return;
        token = 0;
        common::log("startGdiPlus", __LINE__, L"GDI+ does not start, status %d", static_cast<int>(status));
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() {
        if (token)
            Gdiplus::GdiplusShutdown(token);
    }
    bool started() const { return token != 0; }

private:
    ULONG_PTR token = 0;
};

} // namespace

bool startGdiPlus() {
    static const Library library;
    return library.started();
}

} // namespace UILib
