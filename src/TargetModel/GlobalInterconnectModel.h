#pragma once

namespace vemo::tmodel {

/// Pipelining rules of the global memory interconnect.
///
/// All figures, also depths, the switch and the latency, are floats, kept as the file gives them;
/// the file format states no units. Each is 0 in a new model. A setter aborts on a negative value
/// and on NaN.
class GlobalInterconnectModel {
public:
    /// Spacing of the pipeline stages for data.
    float get_arb2_data_pipe_spacing() const { return m_arb2_data_pipe_spacing; }
    void set_arb2_data_pipe_spacing(float a);  // at least 0

    /// Minimum depth of the pipeline for data.
    float get_arb2_data_pipe_min_depth() const { return m_arb2_data_pipe_min_depth; }
    void set_arb2_data_pipe_min_depth(float a);  // at least 0

    /// Spacing of the pipeline stages for stall signals.
    float get_arb2_stall_pipe_spacing() const { return m_arb2_stall_pipe_spacing; }
    void set_arb2_stall_pipe_spacing(float a);  // at least 0

    /// Minimum depth of the pipeline for stall signals.
    float get_arb2_stall_pipe_min_depth() const { return m_arb2_stall_pipe_min_depth; }
    void set_arb2_stall_pipe_min_depth(float a);  // at least 0

    /// Switch for a pipeline stage at the output. Any value of at least 0, not only 0 and 1.
    float get_arb2_pipe_at_output() const { return m_arb2_pipe_at_output; }
    void set_arb2_pipe_at_output(float a);  // at least 0

    /// Latency to add for tests.
    float get_arb2_test_add_latency() const { return m_arb2_test_add_latency; }
    void set_arb2_test_add_latency(float a);  // at least 0

private:
    float m_arb2_data_pipe_spacing = 0.0f;
    float m_arb2_data_pipe_min_depth = 0.0f;
    float m_arb2_stall_pipe_spacing = 0.0f;
    float m_arb2_stall_pipe_min_depth = 0.0f;
    float m_arb2_pipe_at_output = 0.0f;
    float m_arb2_test_add_latency = 0.0f;
};

}  // namespace vemo::tmodel
