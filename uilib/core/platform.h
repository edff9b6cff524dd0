#pragma once

#include "utility/windows.h"

// The Windows headers for the framework, less the macros that would rename its own
// operations. Call the system under its full name, with the W.

#undef DrawText
#undef LoadImage
#undef GetClassName
#undef FindWindow
#undef SendMessage
#undef PostMessage
#undef TranslateAccelerator
