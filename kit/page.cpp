#include "engine/page.h"
#include "engine/http_fetch.h"
#include "engine/surface.h"
#include "engine/text.h"

#include "kit/command.h"
#include "kit/png.h"

#include <atomic>
#include <cstdio>
namespace kit {

static int run(const Arguments& arguments);

extern const Command pageCommand = {
    "page", "URL WIDTH HEIGHT OUT.png [X Y]", "draws a page of the web panels into a picture",
    "The page is laid out for a panel of that size, with its pictures; scripts do not run.\n"
    "X and Y put the pointer there.\n",
    run};

namespace {

constexpr wchar_t Agent[] = L"vynkit";
const std::atomic<bool> neverCancelled = false;

std::wstring toWide(std::string_view utf8) {
    const std::u16string text = engine::toUtf16(utf8);
    return {text.begin(), text.end()};
}

void fetchImages(engine::Page& page, const std::wstring& base) {
    for (const std::string& name : page.imageAddresses()) {
        const auto fetched = engine::fetch(
            {engine::resolveAddress(base, toWide(name)), Agent, engine::limits::ImageBytes}, neverCancelled);
        auto image = fetched ? engine::decodeImage(fetched->body) : std::nullopt;
        if (image)
            page.addImage(name, std::move(*image));
        else
            fprintf(stderr, "no picture: %s\n", name.c_str());
    }
}

bool writePng(const std::wstring& path, const engine::Bitmap& bitmap) {
    const UILib::Raster picture = {bitmap.pixels, bitmap.width, bitmap.height, bitmap.width};
    return writeFile(path, encodePng(picture, Alpha::Drop));
}

} // namespace

static int run(const Arguments& arguments) {
    if (arguments.size() != 4 && arguments.size() != 6)
        return wrongUsage(pageCommand, "wants four or six arguments");
    const int width = _wtoi(arguments[1].c_str()), height = _wtoi(arguments[2].c_str());
    engine::Surface surface;
    if (width > 4096 || height > 4096 || !surface.resize(width, height))
        return wrongUsage(pageCommand, "no such size");
    const auto fetched = engine::fetch({arguments[0], Agent, engine::limits::PageBytes}, neverCancelled);
    if (!fetched) {
        fputs("the page cannot be fetched\n", stderr);
        return 1;
    }
    engine::Document document = engine::parsePage(fetched->body);
    surface.setLanguage(document.language);
    engine::Page page(std::move(document), surface);
    page.resize(width, height);
    fetchImages(page, fetched->address);
    if (arguments.size() == 6)
        page.pointAt(_wtoi(arguments[4].c_str()), _wtoi(arguments[5].c_str()));
    page.paint(surface.bitmap(), surface, 0);
    printf("page height %d\n", page.height());
    return writePng(arguments[3], surface.bitmap()) ? 0 : 1;
}

} // namespace kit
