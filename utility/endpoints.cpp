#include "utility/endpoints.h"

#include "utility/endpoint_hosts.h"
#include "utility/windows.h"

#include <string_view>

namespace utility::endpoints {

namespace {

constexpr std::wstring_view ThisMachine = L"http://127.0.0.1:";
constexpr DWORD LongestAddress = 32;

std::wstring publisherOfThisMachine(std::wstring_view otherwise) {
    wchar_t address[LongestAddress];
    const DWORD length = GetEnvironmentVariableW(L"VYN_PUBLISHER", address, LongestAddress);
    std::wstring_view found(address, length < LongestAddress ? length : 0);
    const bool valid = found.starts_with(ThisMachine) && found.length() > ThisMachine.length() &&
                       found.find_first_not_of(L"0123456789", ThisMachine.length()) == found.npos;
    return std::wstring(valid ? found : otherwise);
}

template <const auto& Host>
std::wstring host() {
    if constexpr (std::wstring_view(Host).starts_with(ThisMachine))
        return publisherOfThisMachine(Host);
    else
        return Host;
}

} // namespace

std::wstring objectStore() {
    return host<ObjectStore>();
}

std::wstring cdn() {
    return host<Cdn>();
}

std::wstring contentHost() {
    return host<ContentHost>();
}

} // namespace utility::endpoints
