#pragma once

#include <tinyxml2.h>

namespace vemo::lint {

/// A moment of the walk over a document: an element is entered or left.
struct Moment {
    const tinyxml2::XMLElement* elem;  ///< Null for the beginning of the walk.
    bool is_leaving;
};

/// The last moment before the walk enters `elem`.
Moment moment_before(const tinyxml2::XMLElement& elem);

/// Whether `a` comes before `b` in the walk. Both are moments of one document.
bool is_before(const Moment& a, const Moment& b);

}  // namespace vemo::lint
