#pragma once

namespace vemo::tmodel {

/// How the reachable clock frequency (fmax) degrades with the structure of local memories.
///
/// Figures are kept as the file gives them. The file format states neither their units nor the
/// formula that uses them; the descriptions below follow from the names.
///
/// Each is 0 in a new model. A setter aborts on a negative value and on NaN.
class LocalMemFmaxDegradationModel {
public:
    /// For a group of RAMs, in relation to all RAMs.
    float get_group_per_all_rams() const { return m_group_per_all_rams; }
    void set_group_per_all_rams(float group_per_all_rams);  // at least 0

    /// For the total, in relation to all RAMs.
    float get_total_per_all_rams() const { return m_total_per_all_rams; }
    void set_total_per_all_rams(float total_per_all_rams);  // at least 0

    /// For the width to which accesses are coalesced.
    float get_per_coalescing_width() const { return m_per_coalescing_width; }
    void set_per_coalescing_width(float per_coalescing_width);  // at least 0

    /// For the base-2 logarithm of the number of banks, so for each doubling of the banks.
    float get_per_log2_num_banks() const { return m_per_log2_num_banks; }
    void set_per_log2_num_banks(float per_log2_num_banks);  // at least 0

    /// For the fan-in of a port.
    float get_per_port_fanin() const { return m_per_port_fanin; }
    void set_per_port_fanin(float per_port_fanin);  // at least 0

private:
    float m_group_per_all_rams = 0.0f;
    float m_total_per_all_rams = 0.0f;
    float m_per_coalescing_width = 0.0f;
    float m_per_log2_num_banks = 0.0f;
    float m_per_port_fanin = 0.0f;
};

}  // namespace vemo::tmodel
