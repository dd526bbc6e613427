#include "BoardDump/MemoryAttributes.h"

#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

using board::GlobalMemConfig;

template <auto Getter>
AttributeValue get(const GlobalMemConfig& memory) {
    return (memory.*Getter)();
}

AttributeValue name(const GlobalMemConfig& memory) { return std::string_view(memory.name); }

AttributeValue type(const GlobalMemConfig& memory) {
    return word_value(board::MEMORY_TYPE_WORDS, static_cast<std::size_t>(memory.get_type()));
}

AttributeValue interleaved_bytes(const GlobalMemConfig& memory) {
    return figure_value(memory.interleaved_bytes);
}

AttributeValue config_addr(const GlobalMemConfig& memory) { return memory.config_addr; }

constexpr MemoryAttribute ROWS[] = {
    {"name", name},
    {"type", type},
    {"max_bandwidth", get<&GlobalMemConfig::get_max_bandwidth>},
    {"interleaved_bytes", interleaved_bytes},
    {"config_addr", config_addr},
    {"min_address", get<&GlobalMemConfig::get_min_byte_address>},
    {"max_address", get<&GlobalMemConfig::get_max_byte_address>},
};

}  // namespace

const ArrayView<MemoryAttribute> MEMORY_ATTRIBUTES = ROWS;

}  // namespace vemo::dump
