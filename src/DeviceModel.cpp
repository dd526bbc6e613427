#include "DeviceModel.h"

#include <limits>
#include <ostream>

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::dmodel {
namespace {

std::uint32_t round_saturating(float estimate) {
    constexpr std::uint32_t LARGEST = std::numeric_limits<std::uint32_t>::max();
    const double sum = static_cast<double>(estimate) + 0.5;
    if (!(sum >= 0.0)) {  // NaN included
        return 0;
    }
    return sum > LARGEST ? LARGEST : static_cast<std::uint32_t>(sum);
}

template <typename Resources>
std::ostream& write_resources(std::ostream& os, const Resources& resources) {
    return os << "LEs = " << resources.LEs << "  FFs = " << resources.FFs
              << "  RAMs = " << resources.RAMs << "  DSPs = " << resources.DSPs
              << "  MLABs = " << resources.MLABs;
}

}  // namespace

DeviceResources::DeviceResources(const DeviceResourcesFP& estimate)
    : LEs(round_saturating(estimate.LEs)),
      FFs(round_saturating(estimate.FFs)),
      RAMs(round_saturating(estimate.RAMs)),
      DSPs(round_saturating(estimate.DSPs)),
      MLABs(round_saturating(estimate.MLABs)) {}

DeviceModel::~DeviceModel() { delete m_resources; }

void DeviceModel::set_expected_fmax(float expected_fmax) {
    VEMO_ASSERT(expected_fmax > 0.0f);
    m_expected_fmax = expected_fmax;
}

void DeviceModel::set_min_fmax(float min_fmax) {
    VEMO_ASSERT(min_fmax > 0.0f);
    m_min_fmax = min_fmax;
}

void DeviceModel::set_high_fmax(float high_fmax) {
    VEMO_ASSERT(high_fmax > 0.0f);
    m_high_fmax = high_fmax;
}

DeviceResources& DeviceModel::get_resources() {
    VEMO_ASSERT(m_resources != NULL);
    return *m_resources;
}

const DeviceResources& DeviceModel::get_resources() const {
    VEMO_ASSERT(m_resources != NULL);
    return *m_resources;
}

void DeviceModel::set_resources(DeviceResources* resources) {
    VEMO_ASSERT(resources != NULL);
    replace_owned(m_resources, resources);
}

std::ostream& operator<<(std::ostream& os, DeviceModel::Version version) {
    if (version == DeviceModel::Version_0_9) {
        return os << "0.9";
    }
    return os << "<unknown>(" << static_cast<std::int32_t>(version) << ")";
}

std::ostream& operator<<(std::ostream& os, const DeviceResources& resources) {
    return write_resources(os, resources);
}

std::ostream& operator<<(std::ostream& os, const DeviceResourcesFP& estimate) {
    return write_resources(os, estimate);
}

std::ostream& operator<<(std::ostream& os, const DeviceModel& dm) {
    os << "Device model (v" << dm.version << "):\n";
    os << "  Target Model: " << dm.target_model << "\n";
    os << "  Resources: " << dm.get_resources() << "\n";
    os << "  Expected fmax: " << dm.get_expected_fmax() << " MHz\n";
    // One line for both, on purpose.
    os << "  Minimum fmax: " << dm.get_min_fmax() << " MHz";
    return os << "  High fmax threshold: " << dm.get_high_fmax() << " MHz";
}

}  // namespace vemo::dmodel
