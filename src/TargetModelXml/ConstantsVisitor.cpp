#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

bool ConstantsVisitor::query_positive_unsigned_constant(const XMLElement& elem,
                                                        unsigned int* value) {
    return query_unsigned_constant(elem, value)
           && (*value > 0 || report_value_range(elem, "positive"));
}

bool ConstantsVisitor::query_boolean(const XMLElement& elem, unsigned int* value) {
    return query_unsigned_constant(elem, value)
           && (*value <= 1 || report_value_range(elem, "0 or 1"));
}

bool ConstantsVisitor::query_unsigned_constant(const XMLElement& elem, unsigned int* value) {
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED);
}

bool ConstantsVisitor::query_non_negative_float_constant(const XMLElement& elem, float* value) {
    // Not below zero, so a NaN passes: it is the model that refuses it.
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED)
           && (!(*value < 0.0f) || report_value_range(elem, "non-negative"));
}

bool ConstantsVisitor::query_string_constant(const XMLElement& elem, std::string* value) {
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED);
}

bool ConstantsVisitor::check_sub_model_elem(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
           && report_unexpected_attrs(elem, 0);
}

bool ConstantsVisitor::check_constant_elem(const XMLElement& elem, const char* parent) {
    return report_unexpected_elem_stack(elem, 1, parent)
           && report_unexpected_elem_stack_count(elem, 1)
           && report_unexpected_attrs(elem, 1, "value");
}

bool ConstantsVisitor::report_value_range(const XMLElement& elem, const char* range) {
    return report_attr_error(elem, "value",
                             std::string("<") + elem.Value() + "> must be " + range + ".");
}

}  // namespace vemo::tmodel::xml
