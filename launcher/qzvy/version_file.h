#pragma once

#include <string>

// The small files that name what is installed: a version in decimal ASCII digits and
// nothing else. Any thread.

// The whole file. False, with a log line, when it cannot be opened.
bool readTextFile(const std::wstring& path, std::string& out);

// 0 when the file is missing or does not begin with a number.
int readVersionFile(const std::wstring& path);

// Makes the folder if it is missing. A failure is logged.
void writeVersionFile(const std::wstring& path, int version);
