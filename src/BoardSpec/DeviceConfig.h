#pragma once

#include <string>

#include "DeviceModel.h"

namespace vemo::board {

/// The board's device: the name of its model file, and the resources that the board's own logic
/// uses.
class DeviceConfig {
public:
    DeviceConfig() = default;
    ~DeviceConfig();
    DeviceConfig(const DeviceConfig&) = delete;
    DeviceConfig& operator=(const DeviceConfig&) = delete;

    /// Always true for a board that was loaded.
    bool has_used_resources() const { return m_used_resources != nullptr; }

    /// The record, which must have been set. Owned by this object.
    dmodel::DeviceResources& get_used_resources();
    const dmodel::DeviceResources& get_used_resources() const;

    /// Takes ownership of the record, which must not be null, and destroys an earlier one.
    void set_used_resources(dmodel::DeviceResources* used_resources);

    std::string device_model;  ///< File name as the board file writes it, not resolved.

private:
    dmodel::DeviceResources* m_used_resources = nullptr;  // owned
};

}  // namespace vemo::board
