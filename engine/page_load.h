#pragma once

#include "engine/document.h"
#include "engine/image.h"

#include <windows.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// One page on its way from the server: first its document, then the pictures that the
// window thread asks for. Workers fetch and decode; what they have waits here until the
// window takes it. A window that is gone, or that loads something else by now, simply
// never asks: the workers keep this object alive and let it go at their end.

namespace engine {

struct LoadedDocument {
    std::wstring address; // after redirections
    Document document;
};

struct ImageOrder {
    std::string name;     // as the page gives it
    std::wstring address; // absolute
};

class PageLoad : public std::enable_shared_from_this<PageLoad> {
public:
    // receiver gets message, without parameters, whenever there is something to take.
    PageLoad(HWND receiver, UINT message, std::wstring userAgent);

    // Window thread. Each starts a worker and returns at once.
    void fetchDocument(const std::wstring& address);
    void fetchImages(std::vector<ImageOrder> orders);
    void cancel() { cancelled = true; }

    std::optional<LoadedDocument> takeDocument();
    std::vector<std::pair<std::string, Image>> takeImages();

private:
    void workOnDocument(const std::wstring& address);
    void workOnImages(const std::vector<ImageOrder>& orders);
    void tell() const { PostMessageW(receiver, message, 0, 0); }

    const HWND receiver;
    const UINT message;
    const std::wstring userAgent;
    std::atomic<bool> cancelled = false;

    std::mutex lock; // guards what follows
    std::optional<LoadedDocument> document;
    std::vector<std::pair<std::string, Image>> images;
};

} // namespace engine
