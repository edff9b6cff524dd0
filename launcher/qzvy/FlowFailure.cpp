#include "launcher/qzvy/FlowFailure.h"

#include "archive/extract.h"
#include "launcher/qzvy/PackageCheck.h"

#include <algorithm>

namespace {

// Systems and other programs fight for the last of a disk: with less than this left, a
// file that could not be written was one too many.
constexpr uint64_t FullDisk = 1 << 20;
constexpr uint64_t FullForPackage = 64 << 20; // whose largest files have this size

} // namespace

const char* failureText(FlowFailure failure) {
    switch (failure) {
    case FlowFailure::NoSource:
        return "flow_no_source";
    case FlowFailure::NoSpace:
        return "flow_no_space";
    case FlowFailure::BrokenPackage:
        return "flow_broken_package";
    case FlowFailure::NotUnpacked:
        return "flow_not_unpacked";
    case FlowFailure::NoClient:
        return "flow_no_client";
    case FlowFailure::NoDownload:
    case FlowFailure::None:
        break;
    }
    return "flow_no_download";
}

FlowFailure judgeDownload(uint64_t freeSpace, uint64_t missing) {
    return freeSpace < std::max(missing, FullDisk) ? FlowFailure::NoSpace : FlowFailure::NoDownload;
}

FlowFailure judgeInstallation(int result, bool client, uint64_t freeSpace) {
    if (isBrokenPackage(result))
        return FlowFailure::BrokenPackage;
    if (result != archive::Ok)
        return freeSpace < FullForPackage ? FlowFailure::NoSpace : FlowFailure::NotUnpacked;
    return client ? FlowFailure::None : FlowFailure::NoClient;
}
