#pragma once

#include <string>

#include "DeviceModel.h"

namespace vemo::board {

/// The board's device: its model file, and what the board's own logic uses of it.
class DeviceConfig {
public:
    DeviceConfig() = default;
    ~DeviceConfig();
    DeviceConfig(const DeviceConfig&) = delete;
    DeviceConfig& operator=(const DeviceConfig&) = delete;

    bool has_used_resources() const { return m_used_resources != nullptr; }
    dmodel::DeviceResources& get_used_resources();
    const dmodel::DeviceResources& get_used_resources() const;

    /// Takes ownership of the record, which must not be null; an earlier one is destroyed.
    void set_used_resources(dmodel::DeviceResources* used_resources);

    std::string device_model;  // file name as the board file writes it

private:
    dmodel::DeviceResources* m_used_resources = nullptr;  // owned
};

}  // namespace vemo::board
