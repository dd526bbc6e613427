#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "TargetModel/DelayModel.h"
#include "TargetModel/FamilyModel.h"
#include "TargetModel/GlobalInterconnectModel.h"
#include "TargetModel/LocalMemModel.h"
#include "TargetModel/TargetFamily.h"

namespace vemo::tmodel {

/// One FPGA device family: its style model files and the models of its memories, interconnect,
/// delays and logic.
///
/// A new model has no sub-models. A loader returns models that have all of them, except for the
/// global interconnect, which is optional in the file. TargetModel/Dump.h prints a model.
class TargetModel {
public:
    /// Version of the file format. TypeCount means that none is set.
    enum Version : std::int32_t { Version_0_9, TypeCount };

    TargetModel() = default;
    ~TargetModel();  // destroys the sub-models
    TargetModel(const TargetModel&) = delete;
    TargetModel& operator=(const TargetModel&) = delete;

    /// Display name of the family ("Peltra A"); aborts when no family is set. Static storage.
    const char* get_family_str() const;

    // Each sub-model has three operations. has_ tells whether it is there. get_ returns it and
    // aborts when it is not; the target model goes on owning it. set_ takes ownership of its
    // argument, which must not be null, and destroys the sub-model that it replaces.

    /// Memory blocks, and how local memories degrade the clock frequency.
    bool has_local_mem_model() const { return m_local_mem_model != nullptr; }
    LocalMemModel& get_local_mem_model();
    const LocalMemModel& get_local_mem_model() const;
    void set_local_mem_model(LocalMemModel* local_mem_model);  // takes ownership

    /// Pipelining of the global memory interconnect. Optional in the file, so ask before getting.
    bool has_global_interconnect_model() const { return m_global_interconnect_model != nullptr; }
    GlobalInterconnectModel& get_global_interconnect_model();
    const GlobalInterconnectModel& get_global_interconnect_model() const;
    void set_global_interconnect_model(
        GlobalInterconnectModel* global_interconnect_model);  // takes ownership

    /// Delays of logic and routing.
    bool has_delay_model() const { return m_delay_model != nullptr; }
    DelayModel& get_delay_model();
    const DelayModel& get_delay_model() const;
    void set_delay_model(DelayModel* delay_model);  // takes ownership

    /// Facts about the family's logic.
    bool has_family_model() const { return m_family_model != nullptr; }
    FamilyModel& get_family_model();
    const FamilyModel& get_family_model() const;
    void set_family_model(FamilyModel* family_model);  // takes ownership

    /// Format version of the file. TypeCount in a new model, and after a load Version_0_9, the only
    /// one that is known.
    Version version = TypeCount;

    /// The device family. TypeCount in a new model.
    TargetFamily family = TargetFamily::TypeCount;

    /// Names of the style model files as the file writes them, in file order and with duplicates.
    /// A loader returns models with at least one; it does not open the files.
    std::vector<std::string> style_models;

private:
    LocalMemModel* m_local_mem_model = nullptr;                      // owned
    GlobalInterconnectModel* m_global_interconnect_model = nullptr;  // owned
    DelayModel* m_delay_model = nullptr;                             // owned
    FamilyModel* m_family_model = nullptr;                           // owned
};

}  // namespace vemo::tmodel
