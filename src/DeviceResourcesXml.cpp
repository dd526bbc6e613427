#include "DeviceResourcesXml.h"

namespace vemo::dmodel::xml {
namespace {

// Of a resource.
constexpr const char* ATTRIBUTES[] = {"num"};

}  // namespace

bool DeviceResourcesVisitor::query_resource(const XMLElement& elem, const char* root,
                                            const char* list, unsigned* num) {
    return report_unexpected_elem_stack(elem, 2, root, list)
           && report_unexpected_elem_stack_count(elem, 1)
           && report_unexpected_attrs(elem, vemo::xml::FoundAttributes(elem, ATTRIBUTES))
           && query_attribute(elem, "num", num, REPORT, REQUIRED);
}

}  // namespace vemo::dmodel::xml
