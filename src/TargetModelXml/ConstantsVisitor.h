#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "Base/ArrayView.h"
#include "BaseVisitor/BaseVisitor.h"

namespace vemo::tmodel::xml {

/// The checks and value queries that the sub-model readers share.
class ConstantQueries : public vemo::xml::BaseVisitor {
public:
    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;

    // Value queries, on the attribute `value` of a constant: true when it was read and is in range,
    // false after a report, be it an earlier one.

    bool query_positive_unsigned_constant(const XMLElement& elem, unsigned int* value);
    bool query_boolean(const XMLElement& elem, unsigned int* value);  // 0 or 1
    bool query_unsigned_constant(const XMLElement& elem, unsigned int* value);
    bool query_non_negative_float_constant(const XMLElement& elem, float* value);
    bool query_string_constant(const XMLElement& elem, std::string* value);

protected:
    /// `element` is the name of the sub-model element, a literal.
    ConstantQueries(BaseVisitor* parent, std::string_view element)
        : BaseVisitor(parent), m_element(element) {}

    /// Whether the element entered or left is named as the sub-model element.
    bool is_sub_model_elem() const { return current_name() == m_element; }

    /// Checks the sub-model element: the root of the walk, once, without attributes.
    bool check_sub_model_elem(const XMLElement& elem);

    /// Checks a constant, of whatever name: a child of the sub-model element, once, and no
    /// attribute but `value`.
    bool check_constant_elem(const XMLElement& elem);

private:
    bool report_value_error(const XMLElement& elem, const char* range);

    std::string_view m_element;
};

/// Base of the sub-model readers. A sub-model element holds constants: elements that are named
/// after one field of the Model and give its figure in the attribute `value`. Each constant must
/// occur exactly once.
///
/// A reader adds the table of its constants, the handler of the sub-model element, which creates
/// the Model, and the handler of a constant, which knows where the Model is.
template <typename Model>
class ConstantsVisitor : public ConstantQueries {
public:
    using ConstantQueries::VisitEnter;
    using ConstantQueries::VisitExit;

    /// Checks the number of each constant on leaving the sub-model element.
    bool VisitExit(const XMLElement& elem) override {
        if (!m_has_error && is_sub_model_elem() && !check_constants(elem)) {
            return false;
        }
        return BaseVisitor::VisitExit(elem);
    }

private:
    using Queries = ConstantQueries;

    /// Never called: its result has the type that a query reads.
    template <typename T>
    static T value_of(bool (Queries::*query)(const XMLElement&, T*));

    /// Reads the constant that `elem` is with `Query`, and puts its value into `Store`.
    template <auto Query, auto Store>
    static void read(ConstantsVisitor* visitor, const XMLElement& elem, Model* model) {
        decltype(value_of(Query)) value{};
        if (!(visitor->*Query)(elem, &value)) {
            return;
        }
        if constexpr (std::is_member_function_pointer_v<decltype(Store)>) {
            (model->*Store)(value);
        } else {
            model->*Store = value;
        }
    }

protected:
    using Read = void (*)(ConstantsVisitor* visitor, const XMLElement& elem, Model* model);

    /// A row of the table: a constant, and what reads it into the Model.
    struct Constant {
        std::string_view name;  // a literal
        Read read;
    };

    /// The constants are in the order of the final check.
    ConstantsVisitor(BaseVisitor* parent, std::string_view element, ArrayView<Constant> constants)
        : ConstantQueries(parent, element), m_constants(constants) {}

    // The readers in the rows, one for each query. `Store` is a setter or a field of the Model.

    template <auto Store>
    static constexpr Read positive = read<&Queries::query_positive_unsigned_constant, Store>;
    template <auto Store>
    static constexpr Read boolean = read<&Queries::query_boolean, Store>;
    template <auto Store>
    static constexpr Read any_unsigned = read<&Queries::query_unsigned_constant, Store>;
    template <auto Store>
    static constexpr Read non_negative = read<&Queries::query_non_negative_float_constant, Store>;
    template <auto Store>
    static constexpr Read text = read<&Queries::query_string_constant, Store>;

    /// Reads the constant that `elem` is into `model`; reports an element of any other name.
    /// `sub_model` is the name of an element that is allowed there as well.
    bool read_constant(const XMLElement& elem, Model* model, const char* sub_model = nullptr) {
        for (const Constant& constant : m_constants) {
            if (current_name() == constant.name) {
                constant.read(this, elem, model);
                return !m_has_error;
            }
        }
        std::vector<std::string> names = names_of(m_constants);
        if (sub_model != nullptr) {
            names.emplace_back(sub_model);
        }
        return report_unexpected_elem(elem, "", {nullptr, std::move(names)});
    }

    /// Whether each constant has occurred once in the sub-model element `elem`.
    bool check_constants(const XMLElement& elem) {
        for (const Constant& constant : m_constants) {
            if (!report_unexpected_elem_count(elem, 1, 2, elem.Value(), constant.name.data())) {
                return false;
            }
        }
        return true;
    }

private:
    ArrayView<Constant> m_constants;
};

}  // namespace vemo::tmodel::xml
