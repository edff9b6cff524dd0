#pragma once

#include <7zTypes.h>

namespace archive {

// The result code that stands for a status of the decoder.
int resultOfStatus(SRes status);

} // namespace archive
