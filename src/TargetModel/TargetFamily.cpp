#include "TargetModel/TargetFamily.h"

#include <cstddef>
#include <iterator>

namespace vemo::tmodel {
namespace {

struct FamilyNames {
    const char* display_name;
    const char* key;  // in target model files
};

// Indexed by TargetFamily.
constexpr FamilyNames FAMILY_NAMES[] = {
    {"Peltra A", "peltraa"},    {"Peltra B", "peltrab"}, {"Peltra C", "peltrac"},
    {"Osmin C", "osminc"},      {"Osmin B", "osminb"},   {"Duvel B", "duvelb"},
    {"Duvel C LX", "duvelclx"},
};
static_assert(std::size(FAMILY_NAMES) == static_cast<std::size_t>(TargetFamily::TypeCount));

/// Names of a family, or nulls for a value that is none.
FamilyNames names_of(TargetFamily family) {
    const auto index = static_cast<std::uint32_t>(family);
    return index < std::size(FAMILY_NAMES) ? FAMILY_NAMES[index] : FamilyNames{nullptr, nullptr};
}

}  // namespace

TargetFamily find_target_family(std::string_view key) {
    std::int32_t index = 0;
    for (const FamilyNames& names : FAMILY_NAMES) {
        if (key == names.key) {
            break;
        }
        ++index;
    }
    return static_cast<TargetFamily>(index);
}

const char* find_target_family_key(TargetFamily family) { return names_of(family).key; }

const char* find_target_family_name(TargetFamily family) { return names_of(family).display_name; }

}  // namespace vemo::tmodel
