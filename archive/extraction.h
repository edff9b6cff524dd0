#pragma once

#include "archive/archive_sink.h"
#include "archive/input_stream.h"

#include <cstddef>

namespace archive {

// The common way of both entry points: opens the archive, pumps its blocks into the
// sink, and gives the result code. Memory that is out beyond the budget, or in the
// sink's own containers, is a result like any other.
int extract(const InputStream& input, ArchiveSink& sink, size_t memoryBudget);

} // namespace archive
