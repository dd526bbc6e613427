#include "BoardDump/AttributeValue.h"

#include <charconv>
#include <type_traits>

namespace vemo::dump {

std::string to_text(const AttributeValue& value) {
    return std::visit(
        [](const auto& alternative) -> std::string {
            using Alternative = std::decay_t<decltype(alternative)>;
            if constexpr (std::is_same_v<Alternative, std::monostate>) {
                return "";
            } else if constexpr (std::is_same_v<Alternative, std::string_view>) {
                return std::string(alternative);
            } else if constexpr (std::is_same_v<Alternative, float>) {
                char text[32];
                return {text, std::to_chars(text, text + sizeof text, alternative).ptr};
            } else {
                return std::to_string(alternative);
            }
        },
        value);
}

}  // namespace vemo::dump
