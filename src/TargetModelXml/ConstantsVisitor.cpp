#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {
namespace {

// Of a constant.
constexpr const char* ATTRIBUTES[] = {"value"};

}  // namespace

bool ConstantQueries::query_positive_unsigned_constant(const XMLElement& elem,
                                                       unsigned int* value) {
    return query_unsigned_constant(elem, value)
           && (*value > 0 || report_value_error(elem, "> must be positive."));
}

bool ConstantQueries::query_boolean(const XMLElement& elem, unsigned int* value) {
    return query_unsigned_constant(elem, value)
           && (*value <= 1 || report_value_error(elem, "> must be 0 or 1."));
}

bool ConstantQueries::query_unsigned_constant(const XMLElement& elem, unsigned int* value) {
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED);
}

bool ConstantQueries::query_non_negative_float_constant(const XMLElement& elem, float* value) {
    // Not below zero, so a NaN passes: it is the model that refuses it.
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED)
           && (!(*value < 0.0f) || report_value_error(elem, "> must be non-negative."));
}

bool ConstantQueries::query_string_constant(const XMLElement& elem, std::string* value) {
    return !m_has_error && query_attribute(elem, "value", value, REPORT, REQUIRED);
}

bool ConstantQueries::check_sub_model_elem(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
           && report_unexpected_attrs(elem, 0);
}

bool ConstantQueries::check_constant_elem(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 1, m_element.data())
           && report_unexpected_elem_stack_count(elem, 1)
           && report_unexpected_attrs(elem, vemo::xml::FoundAttributes(elem, ATTRIBUTES));
}

bool ConstantQueries::report_value_error(const XMLElement& elem, const char* range) {
    return report_attr_error(elem, "value", std::string("<") + elem.Value() + range,
                             {"out-of-range", {"1"}});
}

}  // namespace vemo::tmodel::xml
