#include "TargetModel/TargetModel.h"

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::tmodel {

TargetModel::~TargetModel() {
    delete m_local_mem_model;
    delete m_global_interconnect_model;
    delete m_delay_model;
    delete m_family_model;
}

const char* TargetModel::get_family_str() const {
    const char* name = find_target_family_name(family);
    if (name == nullptr) {
        VEMO_ASSERT(false && "Could not find string for family enum");
    }
    return name;
}

LocalMemModel& TargetModel::get_local_mem_model() {
    VEMO_ASSERT(m_local_mem_model != NULL);
    return *m_local_mem_model;
}

const LocalMemModel& TargetModel::get_local_mem_model() const {
    VEMO_ASSERT(m_local_mem_model != NULL);
    return *m_local_mem_model;
}

void TargetModel::set_local_mem_model(LocalMemModel* local_mem_model) {
    VEMO_ASSERT(local_mem_model != NULL);
    replace_owned(m_local_mem_model, local_mem_model);
}

GlobalInterconnectModel& TargetModel::get_global_interconnect_model() {
    VEMO_ASSERT(m_global_interconnect_model != NULL);
    return *m_global_interconnect_model;
}

const GlobalInterconnectModel& TargetModel::get_global_interconnect_model() const {
    VEMO_ASSERT(m_global_interconnect_model != NULL);
    return *m_global_interconnect_model;
}

void TargetModel::set_global_interconnect_model(
    GlobalInterconnectModel* global_interconnect_model) {
    VEMO_ASSERT(global_interconnect_model != NULL);
    replace_owned(m_global_interconnect_model, global_interconnect_model);
}

DelayModel& TargetModel::get_delay_model() {
    VEMO_ASSERT(m_delay_model != NULL);
    return *m_delay_model;
}

const DelayModel& TargetModel::get_delay_model() const {
    VEMO_ASSERT(m_delay_model != NULL);
    return *m_delay_model;
}

void TargetModel::set_delay_model(DelayModel* delay_model) {
    VEMO_ASSERT(delay_model != NULL);
    replace_owned(m_delay_model, delay_model);
}

FamilyModel& TargetModel::get_family_model() {
    VEMO_ASSERT(m_family_model != NULL);
    return *m_family_model;
}

const FamilyModel& TargetModel::get_family_model() const {
    VEMO_ASSERT(m_family_model != NULL);
    return *m_family_model;
}

void TargetModel::set_family_model(FamilyModel* family_model) {
    VEMO_ASSERT(family_model != NULL);
    replace_owned(m_family_model, family_model);
}

}  // namespace vemo::tmodel
