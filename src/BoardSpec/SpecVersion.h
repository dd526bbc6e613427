#pragma once

#include <string>

namespace vemo::board {

/// Version of the board file format: a single-precision number with a printer of its own. 0 means
/// that none was set. Converts from and to float, so that versions compare as numbers.
class SpecVersion {
public:
    SpecVersion(float number = 0.0f) : m_number(number) {}  // NOLINT(google-explicit-constructor)
    operator float() const { return m_number; }             // NOLINT(google-explicit-constructor)

private:
    float m_number;
};

/// The number in up to six significant digits, as in the "C" locale: "17.1".
std::string number_text(SpecVersion version);

/// The version as users see it: the number, or "<unknown>(0)" when none was set.
std::string to_string(SpecVersion version);

}  // namespace vemo::board
