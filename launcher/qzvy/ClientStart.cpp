#include "launcher/qzvy/ClientStart.h"

#include "utility/log.h"
#include "utility/process.h"
#include "utility/system.h"

using namespace utility;

bool fitsUserStart(const std::wstring& client, const std::wstring& parameters) {
    const size_t quotesAndBlank = 3;
    return client.size() + quotesAndBlank + parameters.size() < 260;
}

void startClient(const std::wstring& client, const std::wstring& parameters) {
    if (usystem::isWin8OS() && fitsUserStart(client, parameters) &&
        process::createAsUser(client, parameters.c_str(), false) != -1)
        return;
    common::log("startClient", __LINE__, L"run player adminstror");
    process::shell(client, parameters, false, true);
}
