#include "uilib/core/markup.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <string>

// Parsing of some megabytes of markup such as skins are made of, beside a parser that is
// known to be fast. Both start from UTF-8 bytes and end with a table that can be walked.

namespace {

std::string makeDocument(size_t size) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\" ?>\r\n<Window size=\"1642,977\">\r\n";
    for (int i = 0; text.size() < size; ++i) {
        const std::string n = std::to_string(i);
        text += "  <VerticalLayout name=\"panel" + n +
                "\" inset=\"4,4,4,4\" bkcolor=\"#FF203040\">\r\n"
                "    <HorizontalLayout height=\"40\">\r\n"
                "      <Label name=\"label" +
                n + "\" text=\"@launcher_text_" + n +
                "\" font=\"2\" align=\"center\" "
                "textcolor=\"#FFEAEAEB\" padding=\"2,0,2,0\"/>\r\n"
                "      <Button name=\"button" +
                n +
                "\" width=\"120\" height=\"32\" tooltip=\"a &amp; b\" "
                "normalimage=\"file='vyn\\button.png' corner='4,4,4,4' source='0,0,120,32'\"/>\r\n"
                "    </HorizontalLayout>\r\n  </VerticalLayout>\r\n";
    }
    return text + "</Window>\r\n";
}

const std::string& document() {
    static const std::string text = makeDocument(4u << 20);
    return text;
}

void parseMarkup(benchmark::State& state) {
    for (auto _ : state) {
        UILib::CMarkup markup;
        if (!markup.LoadUtf8(document()))
            state.SkipWithError("does not parse");
        benchmark::DoNotOptimize(markup.GetRoot().HasChildren());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * document().size()));
}

void parseWithPeer(benchmark::State& state) {
    for (auto _ : state) {
        pugi::xml_document parsed;
        if (!parsed.load_buffer(document().data(), document().size()))
            state.SkipWithError("does not parse");
        benchmark::DoNotOptimize(parsed.first_child());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * document().size()));
}

} // namespace

BENCHMARK(parseMarkup)->Unit(benchmark::kMillisecond);
BENCHMARK(parseWithPeer)->Unit(benchmark::kMillisecond);
