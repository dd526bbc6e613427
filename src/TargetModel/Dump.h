#pragma once

#include <ostream>

#include "TargetModel/TargetModel.h"

namespace vemo::tmodel {

// Dumps as text, with the number format of the stream. Only that of TargetModel ends in a newline.

/// The family's key; "<unknown>(2)" for Peltra C, and the same form for values that are no family.
std::ostream& operator<<(std::ostream& os, TargetFamily family);

/// "0.9", or "<unknown>(1)" when none is set.
std::ostream& operator<<(std::ostream& os, TargetModel::Version version);

/// Of the sub-models, only the local memory is dumped.
std::ostream& operator<<(std::ostream& os, const TargetModel& tm);

/// The line of the dual-port flag repeats the single-port flag.
std::ostream& operator<<(std::ostream& os, const LocalMemModel& model);
std::ostream& operator<<(std::ostream& os, const LocalMemFmaxDegradationModel& model);
std::ostream& operator<<(std::ostream& os, const GlobalInterconnectModel& model);
std::ostream& operator<<(std::ostream& os, const DelayModel& model);
std::ostream& operator<<(std::ostream& os, const FamilyModel& model);

}  // namespace vemo::tmodel
