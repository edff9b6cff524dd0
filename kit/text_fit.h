#pragma once

#include "kit/text_table.h"

// Whether the texts of a skin fit where they stand: every window file is laid out at its
// design size, in each language with that language's font, and every text is measured in its
// control. Texts that the program puts together at run time are measured with samples.

namespace kit {

// skin: the folder of the markup and the table. False when a file cannot be laid out.
bool findTextsThatDoNotFit(const std::wstring& skin, const TextTable& table, Findings& findings);

} // namespace kit
