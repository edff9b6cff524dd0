#include "archive/filters.h"

#include <algorithm>
#include <iterator>

namespace archive {

namespace {

constexpr UInt32 deltaMethod = 0x03;
constexpr UInt32 x86Method = 0x03030103;

constexpr struct {
    UInt32 method;
    z7_Func_BranchConv convert;
} branchFilters[] = {
    {0x03030205, z7_BranchConv_PPC_Dec},   {0x03030401, z7_BranchConv_IA64_Dec},
    {0x03030501, z7_BranchConv_ARM_Dec},   {0x03030701, z7_BranchConv_ARMT_Dec},
    {0x03030805, z7_BranchConv_SPARC_Dec},
};

z7_Func_BranchConv branchFilter(UInt32 method) {
    auto found = std::find_if(std::begin(branchFilters), std::end(branchFilters),
                              [&](const auto& filter) { return filter.method == method; });
    return found == std::end(branchFilters) ? nullptr : found->convert;
}

} // namespace

bool FilterStage::isSupported(const CSzCoderInfo& coder) {
    if (coder.MethodID == deltaMethod)
        return coder.PropsSize == 1;
    return coder.PropsSize == 0 && (coder.MethodID == x86Method || branchFilter(coder.MethodID));
}

FilterStage::FilterStage(const CSzCoderInfo& coder, const Byte* properties, ByteSink& next)
    : next(next), method(coder.MethodID) {
    Delta_Init(deltaState);
    if (method == deltaMethod)
        distance = properties[0] + 1u;
}

size_t FilterStage::convert(uint8_t* data, size_t length) {
    if (method == deltaMethod) {
        Delta_Decode(deltaState, distance, data, length);
        return length;
    }
    const uint8_t* end = method == x86Method ? z7_BranchConvSt_X86_Dec(data, length, position, &x86State)
                                             : branchFilter(method)(data, length, position);
    return static_cast<size_t>(end - data);
}

size_t FilterStage::write(uint8_t* data, size_t length) {
    const size_t converted = convert(data, length);
    position += static_cast<UInt32>(converted);
    return next.write(data, converted ? converted : length);
}

} // namespace archive
