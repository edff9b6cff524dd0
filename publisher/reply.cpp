#include "publisher/reply.h"

#include <algorithm>

namespace publisher {

namespace {

const Fault* find(const std::vector<Fault>& faults, FaultKind kind) {
    auto found =
        std::find_if(faults.begin(), faults.end(), [&](const Fault& fault) { return fault.kind == kind; });
    return found == faults.end() ? nullptr : &*found;
}

void applyRange(Reply& reply, uint64_t size, const RangeRequest& range) {
    if (range.start >= size) {
        reply.status = 416;
        reply.length = 0;
        reply.sendsResource = false;
        return;
    }
    uint64_t last = std::min(range.end.value_or(size - 1), size - 1);
    reply.status = 206;
    reply.first = range.start;
    reply.length = last < range.start ? 0 : last - range.start + 1;
}

void beginEarlier(Reply& reply, uint64_t bytes) {
    uint64_t step = std::min(bytes, reply.first);
    reply.first -= step;
    reply.length += step;
}

bool replaceByStatus(Reply& reply, const std::string& path, const std::vector<Fault>& faults) {
    if (const Fault* fault = find(faults, FaultKind::Status)) {
        reply.status = static_cast<int>(fault->number);
    } else if (const Fault* redirect = find(faults, FaultKind::Redirect)) {
        reply.status = 302;
        reply.location = redirect->text;
    } else if (find(faults, FaultKind::RedirectLoop)) {
        reply.status = 302;
        reply.location = path;
    } else {
        return false;
    }
    reply.sendsResource = false;
    return true;
}

void spoilBody(Reply& reply, const std::vector<Fault>& faults) {
    reply.announced = reply.sent = reply.length;
    if (find(faults, FaultKind::Chunked))
        reply.framing = Framing::Chunked;
    if (find(faults, FaultKind::NoLength))
        reply.framing = Framing::Close;
    if (const Fault* fault = find(faults, FaultKind::WrongLength))
        reply.announced += fault->number;
    if (const Fault* fault = find(faults, FaultKind::Cut))
        reply.sent = std::min(reply.length, fault->number);
    if (const Fault* fault = find(faults, FaultKind::Slow))
        reply.bytesPerSecond = std::max<uint64_t>(fault->number, 1);
}

} // namespace

Reply decideReply(const std::string& path, uint64_t size, const std::optional<RangeRequest>& range,
                  const std::vector<Fault>& faults) {
    Reply reply;
    reply.hangs = find(faults, FaultKind::Hang) != nullptr;
    if (replaceByStatus(reply, path, faults))
        return reply;
    reply.length = size;
    if (range && !find(faults, FaultKind::IgnoreRange))
        applyRange(reply, size, *range);
    if (const Fault* fault = find(faults, FaultKind::WrongRange); fault && reply.status == 206)
        beginEarlier(reply, fault->number);
    spoilBody(reply, faults);
    return reply;
}

} // namespace publisher
