#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace vemo::dmodel {

/// Estimates of resource counts, fractions included.
struct DeviceResourcesFP {
    float LEs = 0.0f;
    float FFs = 0.0f;
    float RAMs = 0.0f;
    float DSPs = 0.0f;
    float MLABs = 0.0f;
};

/// Resource counts, of a device or of the part of it that is in use.
struct DeviceResources {
    DeviceResources() = default;

    /// Rounds half up. Saturates: below 0 and NaN give 0, what exceeds 32 bits the largest count.
    explicit DeviceResources(const DeviceResourcesFP& estimate);

    std::uint32_t LEs = 0;    // logic elements; an adaptive logic module (ALM) counts as two
    std::uint32_t FFs = 0;    // flip-flops
    std::uint32_t RAMs = 0;   // block RAMs
    std::uint32_t DSPs = 0;   // DSP blocks
    std::uint32_t MLABs = 0;  // memory logic array blocks; no file format gives them
};

/// One FPGA device: its resources, the clock frequencies to expect of designs built for it, and
/// the name of its family's target model file.
class DeviceModel {
public:
    /// Version of the file format.
    enum Version : std::int32_t { Version_0_9, TypeCount };

    DeviceModel() = default;
    ~DeviceModel();
    DeviceModel(const DeviceModel&) = delete;
    DeviceModel& operator=(const DeviceModel&) = delete;

    /// Frequencies in MHz, above 0 once set. The three are not ordered.
    float get_expected_fmax() const { return m_expected_fmax; }
    float get_min_fmax() const { return m_min_fmax; }
    float get_high_fmax() const { return m_high_fmax; }
    void set_expected_fmax(float expected_fmax);
    void set_min_fmax(float min_fmax);
    void set_high_fmax(float high_fmax);

    bool has_resources() const { return m_resources != nullptr; }
    DeviceResources& get_resources();
    const DeviceResources& get_resources() const;

    /// Takes ownership of `resources`, which must not be null; an earlier record is destroyed.
    void set_resources(DeviceResources* resources);

    Version version = TypeCount;
    std::string target_model;  // file name as the device model file writes it

private:
    float m_expected_fmax = 0.0f;
    float m_min_fmax = 0.0f;
    float m_high_fmax = 175.0f;
    DeviceResources* m_resources = nullptr;  // owned
};

// Dumps; none ends in a newline. A device model must have its resources.
std::ostream& operator<<(std::ostream& os, DeviceModel::Version version);
std::ostream& operator<<(std::ostream& os, const DeviceResources& resources);
std::ostream& operator<<(std::ostream& os, const DeviceResourcesFP& estimate);
std::ostream& operator<<(std::ostream& os, const DeviceModel& dm);

}  // namespace vemo::dmodel
