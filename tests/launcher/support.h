#pragma once

#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "publisher/publisher.h"
#include "utility/handles.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// What the launcher's tests of threads and files share: the services, a registry of the
// test's own, a publisher that plays every host, and the log lines of the test.

namespace launcher_test {

class Stage : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs the message loop until the condition holds; false after the deadline.
    static bool pumpUntil(const std::function<bool()>& condition, unsigned seconds = 30);
    static bool pumpUntilLogged(const std::wstring& text, int count = 1);
    static int logged(const std::wstring& text); // lines that hold the text

    // The configuration thread from its start to its end; its tasks are delivered meanwhile.
    static void runConfigThread(QzVyModel& model);

    int requests(const std::string& path) const;

    // times: how many requests it hits; 0 for all.
    void addFault(const std::string& path, publisher::FaultKind kind, uint64_t number = 0,
                  unsigned times = 0) {
        server.addFault(path, {kind, number, {}, times});
    }

    // The folder of the test program, and what lies in it.
    static std::wstring at(const std::wstring& name);
    static bool exists(const std::wstring& name);
    static std::string read(const std::wstring& name);
    static void write(const std::wstring& name, const std::string& content);

    publisher::Publisher server;

private:
    utility::Key registry;
};

// Bytes that look like nothing in particular.
std::string someBytes(size_t count);

} // namespace launcher_test
