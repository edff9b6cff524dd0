#pragma once

// The one place that includes the Windows headers. The build defines UNICODE, NOMINMAX,
// STRICT and WIN32_LEAN_AND_MEAN for all.

#include <windows.h>
