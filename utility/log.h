#pragma once

// The one reporting call of the whole program.
//
// common::log() formats a line on the caller's stack and appends it to a text in
// memory; it never touches the disk and never blocks longer than the writer's turn at
// the lock. The LogWriter thread moves the text to the file. There are no levels and
// there is no filter. Any thread may call log() at any time: before a sink is
// installed and after the writer has stopped, calls vanish without trace.
//
// This header is free of Windows, so that windowless code can report and be built
// natively.

namespace common {

// function: qualified name of the calling function, "utility::ufile::removeFile".
// format: wide printf format in the C runtime's Windows dialect: %s is a wide string.
// The finished message must stay below 8192 characters.
void log(const char* function, int line, const wchar_t* format, ...);

// Receives each finished message; does not interpret it again.
using LogSink = void (*)(const char* function, int line, const wchar_t* text);

// Installs the receiver of all messages; null switches logging off.
void setLogSink(LogSink sink);

} // namespace common
