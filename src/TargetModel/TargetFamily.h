#pragma once

#include <cstdint>
#include <string_view>

namespace vemo::tmodel {

/// Supported device families. The numbers are fixed: 0 for PeltraA, up to 6 for DuvelCLX.
/// TypeCount, 7, means that no family is set.
enum class TargetFamily : std::int32_t {
    PeltraA,
    PeltraB,
    PeltraC,
    OsminC,
    OsminB,
    DuvelB,
    DuvelCLX,
    TypeCount
};

/// The family with the key `key`, which is how target model files write it ("peltraa"). TypeCount
/// when there is none: keys are case-sensitive, and display names are no keys.
TargetFamily find_target_family(std::string_view key);

/// The key of `family`, or null for a value that is no family. The text is never freed.
const char* find_target_family_key(TargetFamily family);

/// The name of `family` for display ("Peltra A"), or null for a value that is no family. The text
/// is never freed.
const char* find_target_family_name(TargetFamily family);

}  // namespace vemo::tmodel
