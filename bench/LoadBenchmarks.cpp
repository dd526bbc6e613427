// From a text to a model, and the two steps of that alone.

#include <memory>

#include <benchmark/benchmark.h>
#include <tinyxml2.h>

#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "BoardSpecXml/BoardVisitor.h"
#include "BoardText.h"

using benchmark::State;
using vemo::board::BoardSpec;

namespace {

void load(State& state) {
    const std::string text = board_text(static_cast<int>(state.range(0)));
    vemo::board::BoardSpecXmlLoader loader;
    for (auto _ : state) {
        const std::unique_ptr<BoardSpec> spec(loader.load_xml(text.c_str()));
        if (spec == nullptr) {
            state.SkipWithError(loader.get_error(0).c_str());
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
    state.SetComplexityN(state.range(0));
}

/// All of it is the XML library's work.
void parse(State& state) {
    const std::string text = board_text(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        tinyxml2::XMLDocument doc;
        benchmark::DoNotOptimize(doc.Parse(text.c_str()));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
    state.SetComplexityN(state.range(0));
}

/// The document has been walked before: the library has no texts left to normalize.
void walk(State& state) {
    tinyxml2::XMLDocument doc;
    doc.Parse(board_text(static_cast<int>(state.range(0))).c_str());
    for (auto _ : state) {
        BoardSpec spec;
        vemo::board::xml::BoardVisitor visitor(&spec, nullptr, false, false);
        if (!doc.Accept(&visitor)) {
            state.SkipWithError("the board does not load");
            break;
        }
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(8)->Range(8, 4096)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK(load)->Apply(sizes);
BENCHMARK(parse)->Apply(sizes);
BENCHMARK(walk)->Apply(sizes);

}  // namespace
