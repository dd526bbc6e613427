#include "expected_invariants.h"

#include <cstddef>
#include <iterator>
#include <string_view>

#include "Base/Assert.h"

namespace {

struct ExpectedInvariant {
    const char* condition;  // as the abort prints it
    const char* reason;     // why input may break it
};

// Every entry has a seed, named after the mistake, that breaks it: the replays see to that.
constexpr ExpectedInvariant EXPECTED_INVARIANTS[] = {
    {"!m_config->has_automigrate()", "a second auto_migrate in a flow of 17.0 or later"},
    {"!m_config->has_generate()", "a second generate in a flow of 17.0 or later"},
    {"!m_config->has_synthesis()", "a second synthesize in a flow of 17.0 or later"},
    {"compile_config->has_automigrate() && compile_config->has_generate() && "
     "compile_config->has_synthesis()",
     "a flow of 17.0 or later that lacks a step"},
    {"size > 0", "an interface size with no bit set in the 32 that are kept"},
    // The readers refuse what is below 0. A NaN is not; the models do not take it, though.
    {"max_bandwidth >= 0.0f", "NaN as the bandwidth of a memory"},
    {"sampling_rate > 0", "NaN as the sampling rate of an interface"},
    {"group_per_all_rams >= 0.0f", "NaN as this constant"},
    {"total_per_all_rams >= 0.0f", "NaN as this constant"},
    {"per_coalescing_width >= 0.0f", "NaN as this constant"},
    {"per_log2_num_banks >= 0.0f", "NaN as this constant"},
    {"per_port_fanin >= 0.0f", "NaN as this constant"},
    {"a >= 0.0f", "NaN as a constant of the global interconnect"},
    // A model that loads, and cannot be dumped.
    {"get_num_intfs() > 0", "a memory whose interfaces stand in another one inside it"},
    {"m_resources != __null", "a device model file without an element"},
};
bool was_broken[std::size(EXPECTED_INVARIANTS)];  // in the same order
bool are_trapped = false;

void throw_if_expected(const char* condition, const char*, int) {
    for (std::size_t i = 0; i < std::size(EXPECTED_INVARIANTS); ++i) {
        if (std::string_view(condition) == EXPECTED_INVARIANTS[i].condition) {
            was_broken[i] = true;
            throw vemo::fuzz::InvariantBroken{condition};
        }
    }
}

}  // namespace

void vemo::fuzz::trap_expected_invariants() {
    are_trapped = true;
    set_invariant_handler(throw_if_expected);
}

std::vector<std::string> vemo::fuzz::unbroken_invariants() {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < std::size(EXPECTED_INVARIANTS); ++i) {
        const auto& [condition, reason] = EXPECTED_INVARIANTS[i];
        if (are_trapped && !was_broken[i]) {
            texts.push_back(std::string(condition) + " (" + reason + ")");
        }
    }
    return texts;
}

// The one leak that is meant.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizers' name
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0:suppressions='" VEMO_LSAN_SUPPRESSIONS "'";
}
