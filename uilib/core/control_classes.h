#pragma once

// The table of tags and the controls they make.

namespace UILib {

class CControlUI;

// A new control, or null for a tag of no class. Case does not count, but for tags that
// say so.
CControlUI* createControlOfTag(const wchar_t* tag);

} // namespace UILib
