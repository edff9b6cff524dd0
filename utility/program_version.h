#pragma once

// The version of this program, as the number that the publisher's documents are compared
// with and as the text that users see. Two decimal digits each of major, minor and patch;
// the zero in front is part of the constant, which as a number is 10000.

namespace utility {

inline constexpr const wchar_t* ProgramVersion = L"010000";
inline constexpr const wchar_t* ProgramVersionText = L"1.0.0";

} // namespace utility
