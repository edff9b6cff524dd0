#pragma once

#include <cstdint>
#include <string>

// The publisher's version document as a struct, and what follows from it for this
// program. Pure functions of their arguments.

struct UpdateDocument {
    int32_t ver = 0;      // newest launcher
    int32_t forceVer = 0; // forced if this is above the local version
    int32_t noiceVer = 0; // reported without being asked for if this is
    std::wstring strVer;  // ver as text; becomes part of a file name
    std::wstring url;     // of the new program
    std::wstring content; // release notes, in the launcher's language if there are any
};

// body: UTF-8 text from the network. language: the launcher's code, such as "th". What is
// missing or of another type stays 0 or empty.
UpdateDocument parseUpdateDocument(const std::string& body, const std::string& language);

enum class UpdateKind { None, Offered, Forced };

// silent: nobody asked for the check.
UpdateKind decideUpdate(const UpdateDocument& document, bool silent);

// Percent of a download that is not in place yet: 0 to 99, whatever the counts.
int downloadPercent(uint32_t received, uint32_t total);
