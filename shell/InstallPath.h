#pragma once

#include <optional>
#include <string>

// The install folder that follows from a folder that the user chose: with a trailing
// separator, and a folder of its own unless the choice already names one. Nothing when the
// text is too short to be a folder. The main window and the settings name that folder
// differently.

inline constexpr const wchar_t* MainWindowFolder = L"Game";
inline constexpr const wchar_t* SettingsFolder = L"VYN";

std::optional<std::wstring> installPathOf(std::wstring choice, const std::wstring& ownFolder);
