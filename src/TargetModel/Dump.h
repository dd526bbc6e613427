#pragma once

#include <ostream>

#include "TargetModel/TargetModel.h"

namespace vemo::tmodel {

// Dumps as text, with the number format of the stream. Only that of TargetModel ends in a newline.

/// The family's key; "<unknown>(2)" for Peltra C, and the same form for values that are no family.
std::ostream& operator<<(std::ostream& os, TargetFamily family);

/// "0.9", or "<unknown>(1)" when none is set.
std::ostream& operator<<(std::ostream& os, TargetModel::Version version);

/// Of the sub-models, only the local memory is dumped, or "<null>" when it is absent.
std::ostream& operator<<(std::ostream& os, const TargetModel& tm);

/// The line of the dual-port flag repeats the single-port flag. The fmax degradation follows.
std::ostream& operator<<(std::ostream& os, const LocalMemModel& model);

/// A title, then a line for each figure.
std::ostream& operator<<(std::ostream& os, const LocalMemFmaxDegradationModel& model);

/// The same; the last two figures share a line.
std::ostream& operator<<(std::ostream& os, const GlobalInterconnectModel& model);

/// A title, then a line for each figure, with its unit.
std::ostream& operator<<(std::ostream& os, const DelayModel& model);

/// A title, then a line for each figure and name.
std::ostream& operator<<(std::ostream& os, const FamilyModel& model);

}  // namespace vemo::tmodel
