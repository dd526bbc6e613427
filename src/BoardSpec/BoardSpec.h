#pragma once

#include <map>
#include <string>
#include <vector>

#include "BoardSpec/ChannelConfig.h"
#include "BoardSpec/CompileConfig.h"
#include "BoardSpec/DeviceConfig.h"
#include "BoardSpec/GlobalMemConfig.h"
#include "BoardSpec/HostConfig.h"
#include "BoardSpec/InterfaceConfig.h"
#include "BoardSpec/SpecVersion.h"

namespace vemo::board {

/// One board, as its board_spec.xml describes it.
///
/// A set_ or add_ operation takes ownership of its argument, which must not be null, and destroys
/// what it replaces. A get_ operation requires the part to be present and aborts otherwise; a has_
/// operation tests for it. References stay valid until the part is replaced or the board destroyed.
/// A board that was loaded has every part except, perhaps, channels.
class BoardSpec {
public:
    /// Version of the board file format.
    using Version = SpecVersion;
    static constexpr float Version_0_9 = 0.9f;    ///< The first format, without compile flows.
    static constexpr float Version_14_1 = 14.1f;  ///< The first with compile flows.
    static constexpr float Version_17_0 = 17.0f;  ///< The first with named compile flows.

    BoardSpec() = default;
    ~BoardSpec();
    BoardSpec(const BoardSpec&) = delete;
    BoardSpec& operator=(const BoardSpec&) = delete;

    /// The device: its model file and the resources in use.
    bool has_device_config() const { return m_device_config != nullptr; }
    DeviceConfig& get_device_config();
    const DeviceConfig& get_device_config() const;
    void set_device_config(DeviceConfig* device_config);

    /// The host's window on the kernel.
    bool has_host_config() const { return m_host_config != nullptr; }
    HostConfig& get_host_config();
    const HostConfig& get_host_config() const;
    void set_host_config(HostConfig* host_config);

    /// The streaming channels. Optional in the file.
    bool has_channel_config() const { return m_channel_config != nullptr; }
    ChannelConfig& get_channel_config();
    const ChannelConfig& get_channel_config() const;
    void set_channel_config(ChannelConfig* channel_config);

    /// The interfaces between the board and the kernel, its clocks and its reset.
    bool has_interface_config() const { return m_interface_config != nullptr; }
    InterfaceConfig& get_interface_config();
    const InterfaceConfig& get_interface_config() const;
    void set_interface_config(InterfaceConfig* interface_config);

    /// Adds a compile flow, or replaces the one of that name. Either way the name is appended to
    /// the list of names.
    void set_compile_config(CompileConfig* compile_config, const std::string& name);

    /// The flow of exactly that name, which must exist. Of flows with equal names, the last.
    CompileConfig& get_compile_config(const std::string& name);
    const CompileConfig& get_compile_config(const std::string& name) const;

    /// Number of distinct flow names.
    unsigned num_compile_configs() const;

    /// The flow names in file order. A name that occurs twice in the file occurs twice.
    std::vector<std::string> get_compile_config_names() const;

    /// The distinct flow names in ascending byte order, joined with ", ".
    std::string get_string_of_board_compile_config_names() const;

    /// Adds a global memory: at the front of the list if it `is_default`, else at the end.
    void add_global_mem_config(GlobalMemConfig* gmc, bool is_default);

    /// Whether the board has a global memory.
    bool has_global_mem_config() const { return !m_global_mem_configs.empty(); }

    /// The default global memory: the first of the list, which must not be empty.
    GlobalMemConfig& get_global_mem_config();
    const GlobalMemConfig& get_global_mem_config() const;

    /// The last global memory of the list that has exactly that name; one must.
    GlobalMemConfig& get_global_mem_config(const std::string& name);
    const GlobalMemConfig& get_global_mem_config(const std::string& name) const;

    /// Whether a global memory has exactly that name.
    bool is_valid_global_mem_interface(const std::string& name) const;

    /// Whether the default global memory, which must exist, has exactly that name.
    bool is_default_global_mem(const std::string& name) const;

    /// Appends the names of the global memories in list order, joined with ", ", to `out`.
    void get_string_of_board_global_interface_names(std::string& out) const;

    /// Number of global memories.
    unsigned get_num_global_mem_definitions() const;

    /// All global memories, the default one first. Owned by the board.
    const std::vector<GlobalMemConfig*>& get_global_mem_configs() const;

    Version version;   ///< 0 before it is set.
    std::string name;  ///< Name of the board; may be empty.

private:
    /// Index of the last global memory of that name; the size of the list when there is none.
    std::size_t find_global_mem_config(const std::string& name) const;

    DeviceConfig* m_device_config = nullptr;                  // owned
    std::map<std::string, CompileConfig*> m_compile_configs;  // owned, by name
    std::vector<std::string> m_compile_config_names;
    std::vector<GlobalMemConfig*> m_global_mem_configs;  // owned, the default one first
    HostConfig* m_host_config = nullptr;                 // owned
    ChannelConfig* m_channel_config = nullptr;           // owned
    InterfaceConfig* m_interface_config = nullptr;       // owned
};

}  // namespace vemo::board
