#include "BoardSpec/BoardSpec.h"

#include <algorithm>
#include <memory>

#include "Base/Assert.h"
#include "Base/JoinedList.h"
#include "Base/Ownership.h"

namespace vemo::board {

BoardSpec::~BoardSpec() {
    delete m_device_config;
    for (const auto& entry : m_compile_configs) {
        delete entry.second;
    }
    clean_ptr_container(m_global_mem_configs);
    delete m_host_config;
    delete m_channel_config;
    delete m_interface_config;
}

DeviceConfig& BoardSpec::get_device_config() {
    VEMO_ASSERT(m_device_config != NULL);
    return *m_device_config;
}

const DeviceConfig& BoardSpec::get_device_config() const {
    VEMO_ASSERT(m_device_config != NULL);
    return *m_device_config;
}

void BoardSpec::set_device_config(DeviceConfig* device_config) {
    VEMO_ASSERT(device_config != NULL);
    replace_owned(m_device_config, device_config);
}

HostConfig& BoardSpec::get_host_config() {
    VEMO_ASSERT(m_host_config != NULL);
    return *m_host_config;
}

const HostConfig& BoardSpec::get_host_config() const {
    VEMO_ASSERT(m_host_config != NULL);
    return *m_host_config;
}

void BoardSpec::set_host_config(HostConfig* host_config) {
    VEMO_ASSERT(host_config != NULL);
    replace_owned(m_host_config, host_config);
}

ChannelConfig& BoardSpec::get_channel_config() {
    VEMO_ASSERT(m_channel_config != NULL);
    return *m_channel_config;
}

const ChannelConfig& BoardSpec::get_channel_config() const {
    VEMO_ASSERT(m_channel_config != NULL);
    return *m_channel_config;
}

void BoardSpec::set_channel_config(ChannelConfig* channel_config) {
    VEMO_ASSERT(channel_config != NULL);
    replace_owned(m_channel_config, channel_config);
}

InterfaceConfig& BoardSpec::get_interface_config() {
    VEMO_ASSERT(m_interface_config != NULL);
    return *m_interface_config;
}

const InterfaceConfig& BoardSpec::get_interface_config() const {
    VEMO_ASSERT(m_interface_config != NULL);
    return *m_interface_config;
}

void BoardSpec::set_interface_config(InterfaceConfig* interface_config) {
    VEMO_ASSERT(interface_config != NULL);
    replace_owned(m_interface_config, interface_config);
}

void BoardSpec::set_compile_config(CompileConfig* compile_config, const std::string& config_name) {
    VEMO_ASSERT(compile_config != NULL);
    std::unique_ptr<CompileConfig> owned(compile_config);
    m_compile_config_names.push_back(config_name);
    try {
        CompileConfig*& slot = m_compile_configs[config_name];
        replace_owned(slot, owned.release());
    } catch (...) {
        m_compile_config_names.pop_back();
        throw;
    }
}

CompileConfig& BoardSpec::get_compile_config(const std::string& config_name) {
    const auto iter = m_compile_configs.find(config_name);
    VEMO_ASSERT(iter != m_compile_configs.end());
    return *iter->second;
}

const CompileConfig& BoardSpec::get_compile_config(const std::string& config_name) const {
    const auto iter = m_compile_configs.find(config_name);
    VEMO_ASSERT(iter != m_compile_configs.end());
    return *iter->second;
}

unsigned BoardSpec::num_compile_configs() const {
    return static_cast<unsigned>(m_compile_configs.size());
}

std::vector<std::string> BoardSpec::get_compile_config_names() const {
    return m_compile_config_names;
}

std::string BoardSpec::get_string_of_board_compile_config_names() const {
    std::string names;
    append_joined(names, m_compile_configs,
                  [](const auto& entry) -> const std::string& { return entry.first; });
    return names;
}

void BoardSpec::add_global_mem_config(GlobalMemConfig* gmc, bool is_default) {
    VEMO_ASSERT(gmc != NULL);
    insert_owned(m_global_mem_configs,
                 is_default ? m_global_mem_configs.begin() : m_global_mem_configs.end(),
                 std::unique_ptr<GlobalMemConfig>(gmc));
}

GlobalMemConfig& BoardSpec::get_global_mem_config() {
    VEMO_ASSERT(!m_global_mem_configs.empty());
    return *m_global_mem_configs.front();
}

const GlobalMemConfig& BoardSpec::get_global_mem_config() const {
    VEMO_ASSERT(!m_global_mem_configs.empty());
    return *m_global_mem_configs.front();
}

GlobalMemConfig& BoardSpec::get_global_mem_config(const std::string& mem_name) {
    const std::size_t index = find_global_mem_config(mem_name);
    VEMO_ASSERT(index < m_global_mem_configs.size());
    return *m_global_mem_configs[index];
}

const GlobalMemConfig& BoardSpec::get_global_mem_config(const std::string& mem_name) const {
    const std::size_t index = find_global_mem_config(mem_name);
    VEMO_ASSERT(index < m_global_mem_configs.size());
    return *m_global_mem_configs[index];
}

bool BoardSpec::is_valid_global_mem_interface(const std::string& mem_name) const {
    return find_global_mem_config(mem_name) < m_global_mem_configs.size();
}

bool BoardSpec::is_default_global_mem(const std::string& mem_name) const {
    return get_global_mem_config().name == mem_name;
}

void BoardSpec::get_string_of_board_global_interface_names(std::string& out) const {
    append_joined(out, m_global_mem_configs,
                  [](const GlobalMemConfig* gmc) -> const std::string& { return gmc->name; });
}

unsigned BoardSpec::get_num_global_mem_definitions() const {
    return static_cast<unsigned>(m_global_mem_configs.size());
}

const std::vector<GlobalMemConfig*>& BoardSpec::get_global_mem_configs() const {
    return m_global_mem_configs;
}

std::size_t BoardSpec::find_global_mem_config(const std::string& mem_name) const {
    const auto last =
        std::find_if(m_global_mem_configs.rbegin(), m_global_mem_configs.rend(),
                     [&mem_name](const GlobalMemConfig* gmc) { return gmc->name == mem_name; });
    return last == m_global_mem_configs.rend()
               ? m_global_mem_configs.size()
               : static_cast<std::size_t>(m_global_mem_configs.rend() - last) - 1;
}

}  // namespace vemo::board
