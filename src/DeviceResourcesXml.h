#pragma once

#include <cstddef>
#include <cstdint>

#include "BaseVisitor/BaseVisitor.h"
#include "DeviceModel.h"

namespace vemo::dmodel::xml {

/// Base of the readers of files that hold a resource list: an element below the root, in which
/// each kind of resource is an element with its number in the attribute `num`. Device models and
/// board files have one.
class DeviceResourcesVisitor : public vemo::xml::BaseVisitor {
protected:
    using BaseVisitor::BaseVisitor;

    /// An element of a resource list. It sets `count` to `factor` times its number, modulo 2^32.
    struct Resource {
        const char* name;
        std::uint32_t DeviceResources::*count;
        std::uint32_t factor;
    };

    // An adaptive logic module (ALM) counts as two logic elements.
    static constexpr Resource ALMS = {"alms", &DeviceResources::LEs, 2};
    static constexpr Resource LES = {"les", &DeviceResources::LEs, 1};
    static constexpr Resource FFS = {"ffs", &DeviceResources::FFs, 1};
    static constexpr Resource DSPS = {"dsps", &DeviceResources::DSPs, 1};
    static constexpr Resource RAMS = {"rams", &DeviceResources::RAMs, 1};

    /// Checks an element of the list `root`/`list`, of whatever name, and reads its number.
    bool query_resource(const XMLElement& elem, const char* root, const char* list, unsigned* num);

    /// Stores the number in `resources`; reports an element that is not `allowed`.
    template <std::size_t N>
    bool store_resource(const XMLElement& elem, unsigned num, const Resource (&allowed)[N],
                        DeviceResources* resources) {
        for (const Resource& resource : allowed) {
            if (current_name() == resource.name) {
                resources->*resource.count = resource.factor * num;
                return true;
            }
        }
        return report_unexpected_elem(elem, "", {nullptr, names_of(allowed)});
    }
};

}  // namespace vemo::dmodel::xml
