#include "engine/page_load.h"

#include "engine/http_fetch.h"

#include <exception>
#include <thread>

namespace engine {

namespace {

// A page can bring a worker to the end of memory, but not the program down: then, or when
// no thread is to be had, the panel stays as it is.
template <class Work>
void startWorker(Work work) {
    const auto guarded = [work = std::move(work)] {
        try {
            work();
        } catch (const std::exception&) {
        }
    };
    try {
        std::thread(guarded).detach();
    } catch (const std::exception&) {
    }
}

} // namespace

PageLoad::PageLoad(HWND receiver, UINT message, std::wstring userAgent)
    : receiver(receiver), message(message), userAgent(std::move(userAgent)) {}

void PageLoad::fetchDocument(const std::wstring& address) {
    startWorker([self = shared_from_this(), address] { self->workOnDocument(address); });
}

void PageLoad::fetchImages(std::vector<ImageOrder> orders) {
    startWorker([self = shared_from_this(), orders = std::move(orders)] { self->workOnImages(orders); });
}

void PageLoad::workOnDocument(const std::wstring& address) {
    const auto fetched = fetch({address, userAgent, limits::PageBytes}, cancelled);
    if (!fetched)
        return;
    LoadedDocument loaded{fetched->address, parsePage(fetched->body)};
    {
        const std::scoped_lock guard(lock);
        document = std::move(loaded);
    }
    tell();
}

void PageLoad::workOnImages(const std::vector<ImageOrder>& orders) {
    for (const ImageOrder& order : orders) {
        const auto fetched = fetch({order.address, userAgent, limits::ImageBytes}, cancelled);
        auto image = fetched ? decodeImage(fetched->body) : std::nullopt;
        if (!image)
            continue;
        {
            const std::scoped_lock guard(lock);
            images.emplace_back(order.name, std::move(*image));
        }
        tell();
    }
}

std::optional<LoadedDocument> PageLoad::takeDocument() {
    const std::scoped_lock guard(lock);
    return std::exchange(document, std::nullopt);
}

std::vector<std::pair<std::string, Image>> PageLoad::takeImages() {
    const std::scoped_lock guard(lock);
    return std::exchange(images, {});
}

} // namespace engine
