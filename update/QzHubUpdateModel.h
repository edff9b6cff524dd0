#pragma once

#include "utility/http_downloader.h"
#include "utility/task_dispatcher.h"

#include <atomic>
#include <functional>
#include <string>

// Finds out whether a newer launcher exists, fetches the new program, and keeps what the
// hand-over at the program's end needs. Owns no window: results reach the interface as
// tasks that call the two callbacks on the window thread.
//
// One instance for the life of the process. Operations belong to the window thread, the
// members with an underscore to the workers of the two clients. What a worker needs is
// copied before it starts, and what it finds travels in its task.

class QzHubUpdateModel : public utility::CHttpDownloader::IHttpDownloadSink {
public:
    // The one instance of the program, made on first use.
    static QzHubUpdateModel& instance();

    // documentUrl: where the version document is.
    explicit QzHubUpdateModel(std::wstring documentUrl) : documentUrl(std::move(documentUrl)) {}

    // Starts a check on checkClient's worker; does nothing while one is in flight.
    // A silent check reports only what the publisher wants users to be told of unasked.
    void checkVersion(bool silent);

    // Stops an earlier download and starts one of the update found last on
    // downloadClient's worker.
    void startDownload();

    // Ends a check and a download that are in flight, and forgets who showed the download.
    // May take the time that two clients need to stop.
    void cancel();

    void _threadProcCheckVersion(bool silent);
    void _threadDownloadPlayer();

    bool onHttpDownload(const void* data, uint32_t length, uint32_t received, uint32_t total) override;

    // Belongs to the download worker until needUpdate is set.
    std::wstring getPackagePath() const { return packagePath; }

    // Empty version: no update. Set by the main window.
    std::function<void(const std::wstring& version, const std::wstring& content, bool force)> onCheckResult;

    // 100 only when the new program is in place. Set by whoever shows the download; may
    // be empty.
    std::function<void(int percent)> onDownloadPercent;

    // Every try of the download has failed. Set and emptied with onDownloadPercent.
    std::function<void()> onDownloadFailed;

    utility::CHttpDownloader checkClient;
    utility::CHttpDownloader downloadClient;

    // Set on the download worker after packagePath, once the program is complete; taken
    // back when another download starts.
    std::atomic<bool> needUpdate = false;

private:
    struct Update {
        std::wstring url;
        std::wstring content;
        std::wstring version;
        bool force = false;
    };

    bool fetchDocument(std::string& body);
    void postCheckResult(const Update& found);
    void postPercent(int percent);
    void postFailure();
    void finishDownload(const std::wstring& partial, const std::wstring& program);

    common::TaskPoster poster;
    std::atomic<bool> checking = false;
    uint32_t lastProgressTick = 0;
    Update found;         // of the last check that found one; window thread
    Update wanted;        // what the download worker fetches
    std::string language; // of the release notes, for the check worker
    std::wstring documentUrl;
    std::wstring packagePath;
};
