#pragma once

#include <string>
#include <string_view>

// Conversions between the bytes of a page, which are UTF-8, and the UTF-16 that is drawn.
// No operation fails: what is no text becomes U+FFFD. Any thread.

namespace engine {

// The same text as valid UTF-8 without zero characters.
std::string repairedUtf8(std::string_view bytes);

std::u16string toUtf16(std::string_view utf8);
std::string toUtf8(std::u16string_view text);

bool isBlank(char letter); // a white space of HTML and CSS

std::string_view trimmed(std::string_view text);
std::string lowered(std::string_view text); // ASCII letters only

} // namespace engine
