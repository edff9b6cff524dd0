#pragma once

#include <string>

// Takes the place of the generated header for the sources that a test compiles itself:
// their hosts are the test's own publisher.

namespace launcher_test {
inline std::wstring ObjectStore;
inline std::wstring Cdn;
} // namespace launcher_test

namespace utility::endpoints {
using launcher_test::Cdn;
using launcher_test::ObjectStore;
} // namespace utility::endpoints
