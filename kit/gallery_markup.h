#pragma once

namespace kit {

extern const wchar_t galleryMarkup[]; // controls name the state to be shown in: state="hot"

} // namespace kit
