#include "BoardPackage/BoardPackage.h"

#include "BoardPackage/LoadFailure.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"

namespace vemo {

LoadError::LoadError(const xml::BaseXmlLoader& loader, const std::string& filename)
    : std::runtime_error(load_failure_message(filename)) {
    for (unsigned i = 0; i < loader.get_num_errors(); ++i) {
        m_reports += loader.get_error(i);
    }
}

BoardPackage::BoardPackage(const std::string& board_path, bool allow_overlap) {
    board::BoardSpecXmlLoader board_loader(false, allow_overlap);
    m_spec.reset(board_loader.load_board_spec(board_loader.parse_file_quietly(board_path.c_str())));
    if (m_spec == nullptr) {
        throw LoadError(board_loader, board_path);
    }

    const std::string& dm_name = m_spec->get_device_config().device_model;
    dmodel::DeviceModelXmlLoader dm_loader(false);
    std::string& dm_path = m_sources.dm_resolved_path;
    dm_path = dm_loader.resolve_device_model_file(dm_name, board_path);
    m_dm.reset(dm_loader.load_target_model(dm_loader.parse_file_quietly(dm_path.c_str())));
    if (m_dm == nullptr) {
        throw LoadError(dm_loader, dm_name);
    }

    const std::string& tm_name = m_dm->target_model;
    tmodel::TargetModelXmlLoader tm_loader(false);
    std::string& tm_path = m_sources.tm_resolved_path;
    tm_path = tm_loader.resolve_target_model_file(tm_name, dm_path);
    m_tm.reset(tm_loader.load_target_model(tm_loader.parse_file_quietly(tm_path.c_str())));
    if (m_tm == nullptr) {
        throw LoadError(tm_loader, tm_name);
    }

    m_sources.spec = m_spec.get();
    m_sources.dm = m_dm.get();
    m_sources.tm = m_tm.get();
    m_sources.flow = &m_spec->get_compile_config(m_spec->get_compile_config_names().front());
}

}  // namespace vemo
