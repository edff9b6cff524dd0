#include "launcher/qzvy/MainFrameControls.h"

#include <commctrl.h>

namespace {

using View = MainFrameView;

constexpr DWORD Button = BS_OWNERDRAW | WS_TABSTOP;
constexpr DWORD Text = SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE;
constexpr DWORD RightText = SS_RIGHT | SS_NOPREFIX | SS_CENTERIMAGE;
constexpr DWORD Icon = SS_ICON | SS_REALSIZECONTROL;

constexpr MainFrameControl Controls[] = {
    {View::TitleText, L"STATIC", Text, {56, 6, 156, 36}, std::nullopt},
    {View::MinimiseButton, L"BUTTON", Button, {1556, 0, 1599, 41}, std::nullopt},
    {View::CloseButton, L"BUTTON", Button, {1599, 0, 1642, 41}, std::nullopt},
    {View::StartButton, L"BUTTON", Button, {1227, 812, 1542, 880}, std::nullopt},

    {View::PathTitle, L"STATIC", Text, {40, 800, 760, 830}, Page::Path},
    {View::PathText, L"STATIC", Text | SS_PATHELLIPSIS, {40, 838, 720, 874}, Page::Path},
    {View::BrowseButton, L"BUTTON", Button, {728, 838, 772, 874}, Page::Path},

    {View::LoadingIcon, L"STATIC", Icon, {40, 752, 72, 784}, Page::Download},
    {View::DownloadProgress, PROGRESS_CLASSW, PBS_SMOOTH, {40, 790, 1018, 804}, Page::Download},
    {View::PauseButton, L"BUTTON", Button, {1036, 776, 1084, 824}, Page::Download},
    {View::DownloadText, L"STATIC", Text, {40, 822, 540, 852}, Page::Download},
    {View::TimeLeftText, L"STATIC", RightText, {718, 822, 1018, 852}, Page::Download},
    {View::SpeedText, L"STATIC", Text, {40, 856, 540, 886}, Page::Download},

    {View::InstallIcon, L"STATIC", Icon, {40, 752, 72, 784}, Page::Install},
    {View::InstallProgress, PROGRESS_CLASSW, PBS_SMOOTH, {40, 790, 1018, 804}, Page::Install},
    {View::InstallText, L"STATIC", Text, {40, 822, 540, 852}, Page::Install},
};

} // namespace

std::span<const MainFrameControl> mainFrameControls() {
    return Controls;
}
