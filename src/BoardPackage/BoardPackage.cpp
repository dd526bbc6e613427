#include "BoardPackage/BoardPackage.h"

#include <utility>

#include "Base/InvariantTrap.h"
#include "BoardPackage/LoadFailure.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"

namespace vemo {
namespace {

std::string reports_of(const xml::BaseXmlLoader& loader) {
    std::string reports;
    for (unsigned i = 0; i < loader.get_num_errors(); ++i) {
        reports += loader.get_error(i);
    }
    return reports;
}

/// Makes `model` own what `loader` reads from the file `path` with `load_document`. Throws
/// LoadError, which calls the file `name`.
template <typename Owner, typename Loader, typename Model>
void load(Owner& model, Loader& loader, Model* (Loader::*load_document)(tinyxml2::XMLDocument*),
          const std::string& path, const std::string& name) {
    try {
        const InvariantTrap trap;
        model.reset((loader.*load_document)(loader.parse_file_quietly(path.c_str())));
    } catch (const BrokenInvariant& broken) {
        loader.report_error(std::string(broken.file) + ":" + std::to_string(broken.line)
                            + ": assertion failed: " + broken.condition + "\n");
    }
    if (model == nullptr) {
        throw LoadError(name, reports_of(loader));
    }
}

}  // namespace

LoadError::LoadError(const std::string& filename, std::string reports)
    : std::runtime_error(load_failure_message(filename)), m_reports(std::move(reports)) {}

BoardPackage::BoardPackage(const std::string& board_path, board::Overlap overlap) {
    using board::BoardSpecXmlLoader;
    using dmodel::DeviceModelXmlLoader;
    using tmodel::TargetModelXmlLoader;

    auto files = std::make_unique<PackageFiles>();
    files->board = board_path;
    BoardSpecXmlLoader board_loader(overlap);
    load(m_spec, board_loader, &BoardSpecXmlLoader::load_board_spec, board_path, board_path);

    DeviceModelXmlLoader dm_loader;
    const std::string& dm_name = m_spec->get_device_config().device_model;
    std::string& dm_path = m_sources.dm_resolved_path;
    dm_path = dm_loader.resolve_device_model_file(dm_name, board_path, &files->candidates);
    load(m_dm, dm_loader, &DeviceModelXmlLoader::load_target_model, dm_path, dm_name);

    TargetModelXmlLoader tm_loader;
    const std::string& tm_name = m_dm->target_model;
    std::string& tm_path = m_sources.tm_resolved_path;
    tm_path = tm_loader.resolve_target_model_file(tm_name, dm_path, &files->candidates);
    load(m_tm, tm_loader, &TargetModelXmlLoader::load_target_model, tm_path, tm_name);

    m_files = std::move(files);
    m_sources.files = m_files.get();
    m_sources.spec = m_spec.get();
    m_sources.dm = m_dm.get();
    m_sources.tm = m_tm.get();
    m_sources.flow = &m_spec->get_compile_config(m_spec->get_compile_config_names().front());
}

}  // namespace vemo
