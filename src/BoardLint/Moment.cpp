#include "BoardLint/Moment.h"

#include <cstddef>

namespace vemo::lint {

using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

namespace {

std::size_t depth_of(const XMLNode* node) {
    std::size_t depth = 0;
    for (; node->Parent() != nullptr; node = node->Parent()) {
        ++depth;
    }
    return depth;
}

/// Whether `a`, a sibling of `b`, comes first.
bool is_earlier_sibling(const XMLNode* a, const XMLNode* b) {
    // In both directions by turns: the two are often neighbors.
    for (const XMLNode *back = b, *forth = b; back != nullptr || forth != nullptr;) {
        if (back == a || forth == a) {
            return back == a;
        }
        back = back == nullptr ? nullptr : back->PreviousSibling();
        forth = forth == nullptr ? nullptr : forth->NextSibling();
    }
    return false;
}

}  // namespace

Moment moment_before(const XMLElement& elem) {
    if (const XMLElement* previous = elem.PreviousSiblingElement()) {
        return {previous, true};
    }
    return {elem.Parent()->ToElement(), false};
}

bool is_before(const Moment& a, const Moment& b) {
    if (a.elem == nullptr || b.elem == nullptr) {
        return b.elem != nullptr;
    }
    if (a.elem == b.elem) {
        return !a.is_leaving && b.is_leaving;
    }
    const XMLNode* a_node = a.elem;
    const XMLNode* b_node = b.elem;
    std::size_t a_depth = depth_of(a_node);
    std::size_t b_depth = depth_of(b_node);
    for (; a_depth > b_depth; --a_depth) {
        a_node = a_node->Parent();
    }
    if (a_node == b.elem) {
        return b.is_leaving;  // a is inside b
    }
    for (; b_depth > a_depth; --b_depth) {
        b_node = b_node->Parent();
    }
    if (b_node == a.elem) {
        return !a.is_leaving;
    }
    while (a_node->Parent() != b_node->Parent()) {
        a_node = a_node->Parent();
        b_node = b_node->Parent();
    }
    return is_earlier_sibling(a_node, b_node);
}

}  // namespace vemo::lint
