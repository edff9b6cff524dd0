#include "update/QzHubUpdateModel.h"

#include "launcher/qzvy/QzVyModel.h"
#include "update/UpdateDocument.h"
#include "utility/encoding.h"
#include "utility/endpoints.h"
#include "utility/files.h"
#include "utility/log.h"
#include "utility/text.h"

namespace {

constexpr int Rounds = 3;
constexpr unsigned RoundPauseMs = 1000;
constexpr uint32_t ProgressIntervalMs = 1000;

template <class Lambda>
common::Runable* makeTask(Lambda lambda) {
    return new common::FunctionRunable<Lambda>(std::move(lambda));
}

// A worker that cannot be started leaves its task behind.
bool startWorker(utility::CHttpDownloader& client, common::Runable* task) {
    bool started = client.start(task);
    if (!started)
        task->release();
    return started;
}

// Both files of an earlier try for the same version.
void removeOld(const std::wstring& path) {
    if (utility::ufile::isExist(path))
        utility::ufile::removeFile(path);
}

std::wstring updateFolder() {
    std::wstring folder = utility::ufile::getModuleDir() + L"update\\";
    if (!utility::ufile::isExist(folder))
        utility::ufile::makeDir(folder);
    return folder;
}

} // namespace

QzHubUpdateModel& QzHubUpdateModel::instance() {
    // Never destroyed: workers and tasks may outlive the end of WinMain.
    static auto* model = new QzHubUpdateModel(utility::endpoints::objectStore() + L"/vyn/update_en.data");
    return *model;
}

void QzHubUpdateModel::checkVersion(bool silent) {
    if (checking)
        return;
    checking = true;
    checkClient.stop();
    language = utility::wideToAnsi(QzVyModel::instance().getLanguage());
    using Check = common::MemberFuncRunable1<QzHubUpdateModel, bool>;
    if (!startWorker(checkClient, new Check(this, &QzHubUpdateModel::_threadProcCheckVersion, silent)))
        checking = false;
}

void QzHubUpdateModel::_threadProcCheckVersion(bool silent) {
    constexpr const char* function = "QzHubUpdateModel::_threadProcCheckVersion";
    common::log(function, __LINE__, L"start check version");
    std::string body;
    UpdateDocument document;
    if (fetchDocument(body))
        document = parseUpdateDocument(body, language);
    UpdateKind kind = decideUpdate(document, silent);
    if (kind != UpdateKind::None && !utility::isPlainVersion(document.strVer)) {
        common::log(function, __LINE__, L"update refused: its version is no plain word");
        kind = UpdateKind::None;
    }
    Update update;
    if (kind != UpdateKind::None)
        update = {document.url, document.content, document.strVer, kind == UpdateKind::Forced};
    checking = false; // before the result is out: whoever gets it may check again at once
    postCheckResult(update);
}

bool QzHubUpdateModel::fetchDocument(std::string& body) {
    for (int round = 0; round < Rounds; ++round) {
        body.clear(); // a failed round may have left a piece
        if (checkClient.download2mem(body, documentUrl))
            return true;
        if (!checkClient.pause(RoundPauseMs))
            return false;
    }
    return false;
}

void QzHubUpdateModel::postCheckResult(const Update& update) {
    poster.post(makeTask([this, update] {
        if (!update.version.empty())
            found = update;
        if (const auto report = onCheckResult) // a copy: what it does may empty the field
            report(update.version, update.content, update.force);
    }));
}

void QzHubUpdateModel::startDownload() {
    downloadClient.stop();
    needUpdate = false; // what an earlier download brought goes
    wanted = found;
    using Download = common::MemberFuncRunable<QzHubUpdateModel>;
    if (!startWorker(downloadClient, new Download(this, &QzHubUpdateModel::_threadDownloadPlayer)))
        postFailure();
}

void QzHubUpdateModel::cancel() {
    onDownloadPercent = nullptr;
    onDownloadFailed = nullptr;
    downloadClient.stop(); // first: it may come to its end while the other takes its time
    checkClient.stop();
    if (checking.exchange(false)) // its worker was ended before it could tell
        postCheckResult({});
}

void QzHubUpdateModel::_threadDownloadPlayer() {
    constexpr const char* function = "QzHubUpdateModel::_threadDownloadPlayer";
    const std::wstring program = updateFolder() + L"vyn_" + wanted.version + L".exe";
    common::log(function, __LINE__, L"update:  download file %s", program.c_str());
    const std::wstring partial = program + L".tmp";
    removeOld(partial);
    if (utility::ufile::isExist(partial)) { // two writers would leave a program with holes
        common::log(function, __LINE__, L"update: another session fetches %s", partial.c_str());
        postFailure();
        return;
    }
    removeOld(program);
    for (int round = 0; round < Rounds; ++round) {
        if (downloadClient.download2file(wanted.url, partial, this, false)) {
            common::log(function, __LINE__, L"update: download file sucess %s", partial.c_str());
            finishDownload(partial, program);
            return;
        }
        common::log(function, __LINE__, L"update: download error %d", round);
        if (!downloadClient.pause(RoundPauseMs))
            return;
    }
    postFailure();
}

// A failed copy is in the log; the hand-over then finds no program to start, and the
// launcher comes up as it is at the next start.
void QzHubUpdateModel::finishDownload(const std::wstring& partial, const std::wstring& program) {
    utility::ufile::copyFile(partial, program, false);
    utility::ufile::removeFile(partial);
    packagePath = program;
    needUpdate = true;
    postPercent(100);
}

bool QzHubUpdateModel::onHttpDownload(const void*, uint32_t, uint32_t received, uint32_t total) {
    const uint32_t tick = GetTickCount();
    if (tick - lastProgressTick >= ProgressIntervalMs) { // holds also when the counter begins again
        postPercent(downloadPercent(received, total));
        lastProgressTick = tick;
    }
    if (received >= total)
        postPercent(downloadPercent(received, total));
    return true;
}

void QzHubUpdateModel::postPercent(int percent) {
    poster.post(makeTask([this, percent] {
        if (const auto report = onDownloadPercent)
            report(percent);
    }));
}

void QzHubUpdateModel::postFailure() {
    poster.post(makeTask([this] {
        if (const auto report = onDownloadFailed)
            report();
    }));
}
