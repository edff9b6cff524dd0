#include <httplib.h> // before any other Windows header

#include "publisher/publisher.h"
#include "publisher/reply.h"
#include "publisher/resource.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace publisher {

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t PieceSize = 64 * 1024;
constexpr int PiecesPerSecond = 20;                       // of a slow answer
constexpr size_t AnswersAtATime = 48;                     // a hanging answer keeps its thread
constexpr auto LoopDelay = std::chrono::milliseconds(10); // spares the ports of clients that follow for ever

// A flag that sleepers wake up from.
class StopSignal {
public:
    void raise() {
        std::scoped_lock guard(lock);
        raised = true;
        changed.notify_all();
    }
    void lower() {
        std::scoped_lock guard(lock);
        raised = false;
    }
    void wait() {
        std::unique_lock guard(lock);
        changed.wait(guard, [this] { return raised; });
    }
    // True if the signal was raised meanwhile.
    bool waitUntil(Clock::time_point time) {
        std::unique_lock guard(lock);
        return changed.wait_until(guard, time, [this] { return raised; });
    }

private:
    std::mutex lock;
    std::condition_variable changed;
    bool raised = false;
};

// Hands the body of one answer to the connection piece by piece.
class BodyPump {
public:
    BodyPump(Resource resource, const Reply& reply, StopSignal& stop)
        : resource(std::move(resource)), reply(reply), stop(stop), buffer(PieceSize) {}

    // False closes the connection at once.
    bool sendPiece(httplib::DataSink& sink) {
        if (position == reply.sent) {
            if (reply.sent == reply.length)
                sink.done();
            return reply.sent == reply.length;
        }
        auto size = static_cast<size_t>(std::min<uint64_t>(pieceSize(), reply.sent - position));
        if (!resource.read(reply.first + position, buffer.data(), size))
            return false;
        position += size;
        return sink.write(buffer.data(), size) && !pausedByStop();
    }

private:
    uint64_t pieceSize() const {
        if (reply.bytesPerSecond == 0)
            return PieceSize;
        return std::clamp<uint64_t>(reply.bytesPerSecond / PiecesPerSecond, 1, PieceSize);
    }

    bool pausedByStop() {
        Clock::time_point due = begin;
        if (reply.bytesPerSecond != 0)
            due += std::chrono::milliseconds(position * 1000 / reply.bytesPerSecond);
        return stop.waitUntil(due);
    }

    Resource resource;
    Reply reply;
    StopSignal& stop;
    std::vector<char> buffer;
    uint64_t position = 0;
    Clock::time_point begin = Clock::now();
};

std::optional<RangeRequest> rangeOf(const httplib::Request& request) {
    if (request.ranges.size() != 1 || request.ranges[0].first < 0)
        return std::nullopt;
    RangeRequest range{.start = static_cast<uint64_t>(request.ranges[0].first), .end = std::nullopt};
    if (request.ranges[0].second >= 0)
        range.end = static_cast<uint64_t>(request.ranges[0].second);
    return range;
}

std::string contentRange(const Reply& reply, uint64_t size) {
    return "bytes " + std::to_string(reply.first) + "-" + std::to_string(reply.first + reply.length - 1) +
           "/" + std::to_string(size);
}

RequestRecord recordOf(const httplib::Request& request) {
    RequestRecord record{request.method, request.path, request.target, request.get_header_value("Range"), {}};
    for (const auto& [name, value] : request.headers)
        if (!name.starts_with("REMOTE_") && !name.starts_with("LOCAL_")) // the library's own
            record.headers.emplace(name, value);
    return record;
}

} // namespace

struct Publisher::Impl {
    void route();
    void answer(const httplib::Request& request, httplib::Response& response);
    void answerBody(httplib::Response& response, const std::string& path, const Reply& reply,
                    Resource resource);
    void answerPage(httplib::Response& response, Reply reply, uint64_t size);
    void setFault(const httplib::Request& request, httplib::Response& response);
    void listRequests(httplib::Response& response) const;
    std::vector<Fault> takeFaults(const std::string& path);
    std::optional<Resource> find(const std::string& path);
    std::string pageFor(const httplib::Request& request);

    std::string folder;
    httplib::Server server;
    std::thread thread;
    int port = 0;
    StopSignal stop;

    mutable std::mutex lock; // guards what follows
    std::map<std::string, std::shared_ptr<const std::string>> texts;
    std::multimap<std::string, Fault> faults;
    std::vector<RequestRecord> log;
};

Publisher::Publisher(std::string folder) : impl(std::make_unique<Impl>()) {
    impl->folder = std::move(folder);
    impl->server.new_task_queue = [] { return new httplib::ThreadPool(AnswersAtATime); };
    impl->server.set_keep_alive_max_count(1);
    impl->server.set_tcp_nodelay(true);
    impl->route();
}

Publisher::~Publisher() {
    stop();
}

bool Publisher::start(int port) {
    constexpr const char* host = "127.0.0.1";
    if (port != 0 && !impl->server.bind_to_port(host, port))
        return false;
    impl->port = port != 0 ? port : impl->server.bind_to_any_port(host);
    if (impl->port <= 0)
        return false;
    impl->stop.lower();
    impl->thread = std::thread([this] { impl->server.listen_after_bind(); });
    while (!impl->server.is_running()) // a stop before that would be lost
        std::this_thread::yield();
    return true;
}

void Publisher::stop() {
    if (!impl->thread.joinable())
        return;
    impl->stop.raise();
    impl->server.stop();
    impl->thread.join();
}

int Publisher::port() const {
    return impl->port;
}

std::string Publisher::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(impl->port) + path;
}

void Publisher::publish(const std::string& path, std::string bytes) {
    std::scoped_lock guard(impl->lock);
    impl->texts[path] = std::make_shared<const std::string>(std::move(bytes));
}

void Publisher::addFault(const std::string& path, const Fault& fault) {
    std::scoped_lock guard(impl->lock);
    impl->faults.emplace(path, fault);
}

void Publisher::clearFaults() {
    std::scoped_lock guard(impl->lock);
    impl->faults.clear();
}

std::vector<RequestRecord> Publisher::requests() const {
    std::scoped_lock guard(impl->lock);
    return impl->log;
}

void Publisher::clearRequests() {
    std::scoped_lock guard(impl->lock);
    impl->log.clear();
}

void Publisher::Impl::route() {
    using Request = const httplib::Request&;
    using Response = httplib::Response&;
    server.Post("/control/fault",
                [this](Request request, Response response) { setFault(request, response); });
    server.Post("/control/clear", [this](Request, Response) {
        std::scoped_lock guard(lock);
        faults.clear();
        log.clear();
    });
    server.Get("/control/requests", [this](Request, Response response) { listRequests(response); });
    server.Get(".*", [this](Request request, Response response) { answer(request, response); });
}

void Publisher::Impl::answer(const httplib::Request& request, httplib::Response& response) {
    {
        std::scoped_lock guard(lock);
        log.push_back(recordOf(request));
    }
    std::string path = request.path;
    std::optional<Resource> resource = find(path);
    if (!resource)
        resource = find(path = pageFor(request));
    uint64_t size = resource ? resource->size() : 0;
    Reply reply =
        decideReply(request.path, size, resource ? rangeOf(request) : std::nullopt, takeFaults(request.path));
    if (reply.hangs)
        stop.wait();
    if (!resource && reply.sendsResource) {
        reply.status = 404;
        reply.sendsResource = false;
    }
    response.status = reply.status;
    if (reply.sendsResource) {
        if (reply.status == 206)
            response.set_header("Content-Range", contentRange(reply, size));
        answerBody(response, path, reply, std::move(*resource));
    } else {
        answerPage(response, reply, size);
    }
}

void Publisher::Impl::answerBody(httplib::Response& response, const std::string& path, const Reply& reply,
                                 Resource resource) {
    if (reply.framing == Framing::Length)
        response.set_header("Content-Length", std::to_string(reply.announced));
    auto pump = std::make_shared<BodyPump>(std::move(resource), reply, stop);
    auto provide = [pump](size_t, httplib::DataSink& sink) { return pump->sendPiece(sink); };
    std::string type = contentTypeOf(path);
    if (reply.framing == Framing::Chunked)
        response.set_chunked_content_provider(type, provide);
    else
        response.set_content_provider(type, provide);
}

void Publisher::Impl::answerPage(httplib::Response& response, Reply reply, uint64_t size) {
    if (reply.status == 416)
        response.set_header("Content-Range", "bytes */" + std::to_string(size));
    if (!reply.location.empty()) {
        stop.waitUntil(Clock::now() + LoopDelay);
        response.set_header("Location", reply.location);
    }
    auto page = std::make_shared<const std::string>("<html><body>status " + std::to_string(reply.status) +
                                                    "</body></html>");
    reply.first = 0;
    reply.length = reply.announced = reply.sent = page->size();
    answerBody(response, ".html", reply, Resource(page));
}

void Publisher::Impl::setFault(const httplib::Request& request, httplib::Response& response) {
    std::string path = request.get_param_value("path");
    std::optional<Fault> fault = parseFault(request.get_param_value("kind"), request.get_param_value("value"),
                                            request.get_param_value("times"));
    if (path.empty() || !fault) {
        response.status = 400;
        return;
    }
    std::scoped_lock guard(lock);
    faults.emplace(path, *fault);
}

void Publisher::Impl::listRequests(httplib::Response& response) const {
    std::scoped_lock guard(lock);
    std::string text;
    for (const RequestRecord& record : log)
        text += record.method + " " + record.path + " " + record.range + "\n";
    response.set_content(text, "text/plain");
}

std::vector<Fault> Publisher::Impl::takeFaults(const std::string& path) {
    std::scoped_lock guard(lock);
    std::vector<Fault> taken;
    auto [each, end] = faults.equal_range(path);
    while (each != end) {
        taken.push_back(each->second);
        bool spent = each->second.times != 0 && --each->second.times == 0;
        each = spent ? faults.erase(each) : std::next(each);
    }
    return taken;
}

std::optional<Resource> Publisher::Impl::find(const std::string& path) {
    {
        std::scoped_lock guard(lock);
        if (auto text = texts.find(path); text != texts.end())
            return Resource(text->second);
    }
    return Resource::openFile(folder, path);
}

// A page in several languages is a folder: one file for each, English for all others.
std::string Publisher::Impl::pageFor(const httplib::Request& request) {
    const std::string language = request.get_param_value("language");
    std::string page = request.path + "/" + language + ".html";
    return !language.empty() && find(page) ? page : request.path + "/en.html";
}

} // namespace publisher
