#pragma once

#include <optional>
#include <string>

// The install folder that follows from a folder that the user chose: with a trailing
// separator, and a folder Game of its own unless the choice already names one. Nothing
// when the text is too short to be a folder.
std::optional<std::wstring> installPathOf(std::wstring choice);
