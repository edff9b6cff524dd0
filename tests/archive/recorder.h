#pragma once

#include "archive/extract.h"

#include <cstdint>
#include <string>
#include <vector>

namespace archive_test {

// Keeps what an extraction tells its callback, and stops it after a number of bytes.
class Recorder final : public archive::SzExtractCallback {
public:
    struct Progress {
        std::wstring name;
        uint64_t index, count, done, total;
    };

    bool isContinue() override { return steps.empty() ? stopAfter > 0 : steps.back().done < stopAfter; }
    void onProgress(const wchar_t* name, uint64_t index, uint64_t count, uint64_t done,
                    uint64_t total) override {
        steps.push_back({name, index, count, done, total});
    }
    void onResult(int code, const wchar_t* name) override {
        results.push_back(code);
        lastName = name;
    }

    uint64_t stopAfter = UINT64_MAX;
    std::vector<Progress> steps;
    std::vector<int> results; // one for each call of onResult
    std::wstring lastName;
};

} // namespace archive_test
