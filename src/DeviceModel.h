#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vemo::dmodel {

/// Estimates of the counts in DeviceResources, fractions included.
struct DeviceResourcesFP {
    float LEs = 0.0f;
    float FFs = 0.0f;
    float RAMs = 0.0f;
    float DSPs = 0.0f;
    float MLABs = 0.0f;
};

/// Resource counts, of a device or of the part of it that is in use.
struct DeviceResources {
    /// All counts 0.
    DeviceResources() = default;

    /// Rounds each estimate half up. Below 0 and NaN become 0, anything too large for 32 bits
    /// becomes the largest count.
    DeviceResources(const DeviceResourcesFP& estimate);  // NOLINT(google-explicit-constructor)

    std::uint32_t LEs = 0;    // logic elements; an adaptive logic module (ALM) counts as two
    std::uint32_t FFs = 0;    // flip-flops
    std::uint32_t RAMs = 0;   // block RAMs
    std::uint32_t DSPs = 0;   // DSP blocks
    std::uint32_t MLABs = 0;  // memory logic array blocks; no file format has them
};

/// One FPGA device: its resources, the clock frequencies to expect of designs built for it, and
/// the name of its family's target model file.
///
/// The three frequencies are in MHz and in no particular order. A setter needs a value above 0 and
/// aborts on any other, NaN included.
class DeviceModel {
public:
    /// Version of the file format. TypeCount means that none is set.
    enum Version : std::int32_t { Version_0_9, TypeCount };

    DeviceModel() = default;
    ~DeviceModel();  // destroys the resources
    DeviceModel(const DeviceModel&) = delete;
    DeviceModel& operator=(const DeviceModel&) = delete;

    /// Clock frequency in MHz that designs are expected to reach; 0 in a new model.
    float get_expected_fmax() const { return m_expected_fmax; }
    void set_expected_fmax(float expected_fmax);  // above 0

    /// Minimum clock frequency in MHz; 0 in a new model.
    float get_min_fmax() const { return m_min_fmax; }
    void set_min_fmax(float min_fmax);  // above 0

    /// Clock frequency in MHz from which on a design counts as fast; 175 in a new model, which is
    /// the default of the file format.
    float get_high_fmax() const { return m_high_fmax; }
    void set_high_fmax(float high_fmax);  // above 0

    /// Whether resources have been set; false in a new model.
    bool has_resources() const { return m_resources != nullptr; }

    /// What the device holds. The model keeps owning the record; aborts when none has been set.
    DeviceResources& get_resources();
    const DeviceResources& get_resources() const;

    /// Takes ownership of the record, which must not be null, and destroys the one it replaces.
    void set_resources(DeviceResources* resources);

    /// Format version of the file. TypeCount in a new model, and after a load Version_0_9, the only
    /// one that is known.
    Version version = TypeCount;

    /// Name of the target model file as the device model file writes it; not a path to open, see
    /// TargetModelXmlLoader::resolve_target_model_file.
    std::string target_model;

private:
    float m_expected_fmax = 0.0f;
    float m_min_fmax = 0.0f;
    float m_high_fmax = 175.0f;
    DeviceResources* m_resources = nullptr;  // owned
};

// Dumps as text, with the number format of the stream. None ends in a newline.

/// "0.9", or "<unknown>(1)" when none is set.
std::ostream& operator<<(std::ostream& os, DeviceModel::Version version);

/// One line: each count after its label.
std::ostream& operator<<(std::ostream& os, const DeviceResources& resources);
std::ostream& operator<<(std::ostream& os, const DeviceResourcesFP& estimate);

/// Five lines. The model must have its resources.
std::ostream& operator<<(std::ostream& os, const DeviceModel& dm);

}  // namespace vemo::dmodel
