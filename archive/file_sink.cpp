#include "archive/file_sink.h"

#include "archive/database.h"
#include "utility/log.h"

#include <7zCrc.h>

#include <algorithm>

namespace archive {

size_t FileSink::write(uint8_t* data, size_t length) {
    size_t taken = 0;
    while (error == Ok && taken < length) {
        if (callback && !callback->isContinue()) {
            fail(Cancelled);
            break;
        }
        if (!file.isOpen() && !openNextEntry())
            break;
        const auto piece = static_cast<size_t>(std::min<uint64_t>(length - taken, fileRemaining));
        if (!writePiece(data + taken, piece))
            break;
        taken += piece;
        if (fileRemaining == 0 && (!finishEntry() || isPastLastEntry()))
            break;
    }
    return taken;
}

bool FileSink::openNextEntry() {
    for (; !isPastLastEntry(); ++fileIndex) {
        const EntryKind kind = SzArEx_IsDir(archive, fileIndex) ? EntryKind::Folder : EntryKind::File;
        std::wstring path;
        const NameRule rule = judgeName(takeName(), kind, path);
        if (rule != NameRule::Accepted)
            return refuse(ruleText(rule));
        if (!makeEntry(path, kind))
            return false;
        if (kind == EntryKind::Folder)
            continue;
        fileRemaining = SzArEx_GetFileSize(archive, fileIndex);
        if (fileRemaining > 0) {
            crc = CRC_INIT_VAL;
            expectedCrc = hasEntryCrc(*archive, fileIndex) ? archive->CRCs.Vals[fileIndex] : 0;
            return true;
        }
        file.close();
    }
    return false;
}

bool FileSink::makeEntry(const std::wstring& path, EntryKind kind) {
    const bool isFile = kind == EntryKind::File;
    // Any other failure shows when a file is opened in there.
    if (folder.makeFolders(isFile ? parentOf(path) : path) == FolderState::Link)
        return refuse(L"the path leads through a link");
    return !isFile || openFile(path);
}

bool FileSink::openFile(const std::wstring& path) {
    const unsigned failure = file.open(folder.pathOf(path));
    if (failure == 0)
        return true;
    common::log("FileSink::openFile", __LINE__, L"%s error %u", folder.pathOf(path).c_str(), failure);
    fail(OpenFailed);
    return false;
}

bool FileSink::writePiece(const uint8_t* data, size_t length) {
    const unsigned failure = file.write(data, length);
    if (failure) {
        common::log("FileSink::writePiece", __LINE__, L"%s error %u", fileName, failure);
        fail(WriteFailed);
        return false;
    }
    if (expectedCrc != 0)
        crc = CrcUpdate(crc, data, length);
    advance(length);
    if (callback)
        callback->onProgress(fileName, fileIndex, archive->NumFiles, doneBytes,
                             archive->UnpackPositions[archive->NumFiles]);
    return true;
}

bool FileSink::finishEntry() {
    ++fileIndex;
    file.close();
    if (expectedCrc == 0 || CRC_GET_DIGEST(crc) == expectedCrc)
        return true;
    common::log("FileSink::finishEntry", __LINE__, L"%s crc %08X, not %08X", fileName, CRC_GET_DIGEST(crc),
                expectedCrc);
    fail(CrcError);
    return false;
}

bool FileSink::refuse(const wchar_t* reason) {
    common::log("FileSink::refuse", __LINE__, L"entry %u %s: %s", fileIndex, fileName, reason);
    fail(OpenFailed);
    return false;
}

} // namespace archive
