#include "shell/InstallPath.h"

std::optional<std::wstring> installPathOf(std::wstring choice, const std::wstring& ownFolder) {
    if (choice.size() < 2)
        return std::nullopt;
    if (choice.back() != L'\\' && choice.back() != L'/')
        choice += L'\\';
    const bool driveRoot = choice.size() == 3;
    if (driveRoot || choice.find(ownFolder) == std::wstring::npos)
        choice += ownFolder + L'\\';
    return choice;
}
