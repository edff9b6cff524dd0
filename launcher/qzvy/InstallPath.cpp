#include "launcher/qzvy/InstallPath.h"

std::optional<std::wstring> installPathOf(std::wstring choice) {
    if (choice.size() < 2)
        return std::nullopt;
    if (choice.back() != L'\\' && choice.back() != L'/')
        choice += L'\\';
    const bool driveRoot = choice.size() == 3;
    if (driveRoot || choice.find(L"Game") == std::wstring::npos)
        choice += L"Game\\";
    return choice;
}
