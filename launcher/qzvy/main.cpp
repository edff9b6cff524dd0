#include "launcher/qzvy/QzVyImpl.h"

#include <memory>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    const auto launcher = std::make_unique<QzVyImpl>();
    return launcher->entrance(instance);
}
