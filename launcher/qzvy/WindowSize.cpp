#include "launcher/qzvy/WindowSize.h"

WindowSize fitWindow(int screenWidth, int screenHeight) {
    WindowSize size = DesignSize;
    if (screenWidth < size.width) {
        size.width = screenWidth - 40;
        size.height = size.width * DesignSize.height / DesignSize.width;
    }
    if (screenHeight < size.height) {
        size.height = screenHeight - 20;
        size.width = size.height * DesignSize.width / DesignSize.height;
    }
    return size;
}

bool needsSmallLayout(const WindowSize& size) {
    return size.height <= 800;
}
