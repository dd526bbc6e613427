#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "BaseVisitor/BaseVisitor.h"

namespace vemo::tmodel::xml {

/// Base of the sub-model readers. A sub-model element holds constants: elements that are named
/// after one field of the model and give its figure in the attribute `value`. Each constant must
/// occur exactly once.
class ConstantsVisitor : public vemo::xml::BaseVisitor {
public:
    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;

    // Value queries: true when the value was read and is in range, false after a report.

    bool query_positive_unsigned_constant(const XMLElement& elem, unsigned int* value);
    bool query_boolean(const XMLElement& elem, unsigned int* value);  // 0 or 1
    bool query_unsigned_constant(const XMLElement& elem, unsigned int* value);
    bool query_non_negative_float_constant(const XMLElement& elem, float* value);
    bool query_string_constant(const XMLElement& elem, std::string* value);

protected:
    explicit ConstantsVisitor(BaseVisitor* parent) : BaseVisitor(parent) {}

    /// A row of a table of constants: the element, and what reads it into a Model.
    template <typename Model>
    struct Constant {
        const char* name;
        void (*read)(ConstantsVisitor* visitor, const XMLElement& elem, Model* model);
    };

    // What stands in the rows: each reads a constant with the query of that kind into `Store`, a
    // setter or a field of the model.

    template <auto Store, typename Model>
    static void positive(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        visitor->read<Store>(&ConstantsVisitor::query_positive_unsigned_constant, elem, model);
    }
    template <auto Store, typename Model>
    static void boolean(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        visitor->read<Store>(&ConstantsVisitor::query_boolean, elem, model);
    }
    template <auto Store, typename Model>
    static void any_unsigned(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        visitor->read<Store>(&ConstantsVisitor::query_unsigned_constant, elem, model);
    }
    template <auto Store, typename Model>
    static void non_negative(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        visitor->read<Store>(&ConstantsVisitor::query_non_negative_float_constant, elem, model);
    }
    template <auto Store, typename Model>
    static void text(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        visitor->read<Store>(&ConstantsVisitor::query_string_constant, elem, model);
    }

    /// Whether the sub-model element may be read: the root of the walk, once, no attributes.
    bool check_sub_model_elem(const XMLElement& elem);

    /// Reads `elem` into `model` if it is one of `constants` in its place below `parent`.
    template <typename Model, std::size_t N>
    bool visit_constant(const XMLElement& elem, const char* parent,
                        const Constant<Model> (&constants)[N], Model* model) {
        if (!check_constant_elem(elem, parent)) {
            return false;
        }
        for (const Constant<Model>& constant : constants) {
            if (current_name() == constant.name) {
                constant.read(this, elem, model);
                return !m_has_error;
            }
        }
        return report_unexpected_elem(elem, "");
    }

    /// Whether each of `constants` has occurred once, on leaving the sub-model element `elem`.
    template <typename Model, std::size_t N>
    bool check_constants(const XMLElement& elem, const Constant<Model> (&constants)[N]) {
        for (const Constant<Model>& constant : constants) {
            if (!report_unexpected_elem_count(elem, 1, 2, elem.Value(), constant.name)) {
                return false;
            }
        }
        return true;
    }

private:
    template <auto Store, typename Model, typename T>
    void read(bool (ConstantsVisitor::*query)(const XMLElement&, T*), const XMLElement& elem,
              Model* model) {
        T value{};
        if (!(this->*query)(elem, &value)) {
            return;
        }
        if constexpr (std::is_member_function_pointer_v<decltype(Store)>) {
            (model->*Store)(value);
        } else {
            model->*Store = value;
        }
    }

    bool check_constant_elem(const XMLElement& elem, const char* parent);
    bool report_value_range(const XMLElement& elem, const char* range);
};

}  // namespace vemo::tmodel::xml
