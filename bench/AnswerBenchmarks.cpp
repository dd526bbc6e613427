// From the models to an answer.

#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "BoardPackage/AnswerTable.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "BoardText.h"

using benchmark::State;
using vemo::board::BoardSpec;

namespace {

std::unique_ptr<const BoardSpec> load_board(int64_t count) {
    vemo::board::BoardSpecXmlLoader loader;
    const BoardSpec* spec = loader.load_xml(board_text(static_cast<int>(count)).c_str());
    if (spec == nullptr) {
        throw std::runtime_error(loader.get_error(0));
    }
    return std::unique_ptr<const BoardSpec>(spec);
}

void answer(State& state, const char* command) {
    const auto spec = load_board(state.range(0));
    vemo::AnswerSources sources;
    sources.spec = spec.get();
    for (auto _ : state) {
        benchmark::DoNotOptimize(vemo::find_answer(command, sources));
    }
    state.SetComplexityN(state.range(0));
}

void find_last_flow(State& state) {
    const auto spec = load_board(state.range(0));
    const std::string name = "flow" + std::to_string(state.range(0) - 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(&spec->get_compile_config(name));
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(8)->Range(8, 4096)->Complexity();
}

BENCHMARK_CAPTURE(answer, name, "name")->Apply(sizes);
BENCHMARK_CAPTURE(answer, has_snoop, "has_snoop")->Apply(sizes);
BENCHMARK_CAPTURE(answer, channelnames, "channelnames")->Apply(sizes);
BENCHMARK_CAPTURE(answer, globalmemnames, "globalmemnames")->Apply(sizes);
BENCHMARK_CAPTURE(answer, compileflownames, "compileflownames")->Apply(sizes);
BENCHMARK(find_last_flow)->Apply(sizes);

}  // namespace
