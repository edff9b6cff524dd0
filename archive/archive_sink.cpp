#include "archive/archive_sink.h"

#include "archive/database.h"

namespace archive {

std::wstring ArchiveSink::takeName() {
    std::wstring name = entryName(*archive, fileIndex);
    fileName[name.copy(fileName, nameUnits - 1)] = L'\0';
    return name;
}

void ArchiveSink::advance(size_t bytes) {
    doneBytes += bytes;
    fileRemaining -= bytes;
}

} // namespace archive
