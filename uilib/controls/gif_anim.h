#pragma once

#include "uilib/controls/control.h"
#include "uilib/core/gdi_plus.h"

#include <vector>

// Plays an animated GIF with the delays that its file gives. The file stays in memory and
// frames are decoded as they come, so that a long animation costs no more than a short one.
// A hidden animation stops and begins again from its first frame.

namespace UILib {

class CGifAnimUI : public CControlUI {
public:
    ~CGifAnimUI() override;

    const wchar_t* GetClass() const override { return L"GifAnim"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    void SetBkImage(const wchar_t* fileName); // of the skin, or a path
    CUIString GetBkImage() const { return imageName; }
    void SetAutoPlay(bool on) { autoPlay = on; } // from loading on
    bool IsAutoPlay() const { return autoPlay; }
    void SetAutoSize(bool on) { autoSize = on; } // takes the size of the image
    bool IsAutoSize() const { return autoSize; }
    void PlayGif();
    void StopGif();
    bool IsPlaying() const { return playing; }
    unsigned GetFrameCount() const { return frameCount; }
    unsigned GetFrameIndex() const { return frameIndex; }

    void SetVisible(bool on) override;
    void DoInit() override;
    void DoEvent(TUIEvent& event) override;
    bool DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) override;

private:
    static constexpr int Endless = 9999; // rounds

    void load();
    bool readImage();
    void readFrames();
    void selectFrame(unsigned index);
    void nextFrame();
    void startTimer();
    UINT delayOf(unsigned index) const; // ms

    GdiPlusImage image;
    unsigned frameCount = 0;
    unsigned frameIndex = 0;           // to be drawn next
    std::vector<uint32_t> frameDelays; // 1/100 s; empty: none are stored
    CUIString imageName;
    bool autoPlay = true;
    bool autoSize = false;
    bool playing = false;
    int loopsLeft = Endless;
};

} // namespace UILib
