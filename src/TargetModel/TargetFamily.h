#pragma once

#include <cstdint>
#include <string_view>

namespace vemo::tmodel {

/// Supported device families. The values are fixed; TypeCount means that no family is set.
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

/// The family with the key `key`, which is how target model files write it ("peltraa"); TypeCount
/// when there is none. Keys are case-sensitive.
TargetFamily find_target_family(std::string_view key);

/// The key of `family`, or null for a value that is no family.
const char* find_target_family_key(TargetFamily family);

/// The name of `family` for display ("Peltra A"), or null for a value that is no family.
const char* find_target_family_name(TargetFamily family);

}  // namespace vemo::tmodel
