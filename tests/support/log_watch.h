#pragma once

#include <string>
#include <vector>

// What the code under test logs, watched in every test of every test program. A line that tells
// of an error fails the test that neither took it nor asked for it. Any thread may log; the
// functions here belong to the test's own.

namespace test {

// Lines of the running test that hold this text are no surprise: the test makes them happen.
void allowErrors(const std::wstring& text);

// How many lines of the running test hold this text. Taken lines do not count any more.
int logged(const std::wstring& text);

// The lines since the test began or since the last call; who takes them has seen them.
std::vector<std::wstring> takeLog();

// Watches again after startServices has sent the log to its file.
void watchLog();

} // namespace test
