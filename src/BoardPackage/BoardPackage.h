#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "BoardPackage/AnswerTable.h"
#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"

namespace vemo {

/// A file of a board package did not load. what() is the closing message, which names the file: the
/// board file as the program does, a model file as the file that refers to it does.
class LoadError : public std::runtime_error {
public:
    /// `reports` are finished texts, see reports().
    LoadError(const std::string& filename, std::string reports);

    /// The diagnostics, each ending in a newline, to be shown before what(). Empty for a port
    /// attribute whose encoding does not fit the port, which the readers refuse without a
    /// diagnostic.
    const std::string& reports() const { return m_reports; }

private:
    std::string m_reports;
};

/// A board and the device and target models that its file leads to, loaded. Owns the models, and
/// the ports of the board's interfaces. May be moved, but not copied.
///
/// Guarantees:
/// - A package is loaded or the constructor throws, and then nothing is left behind: no memory and
///   no open file.
/// - No file aborts the program while it is loaded or answers are computed: a broken invariant is a
///   LoadError. (Getters and dumps of the models still have requirements of their own.)
/// - Packages may be loaded on several threads at once. A loaded package may be read on several
///   threads at once.
/// - The state of the process stays as it is. Nothing is written to standard output or standard
///   error, locale and signal handlers are left alone, and numbers are read as in the "C" locale,
///   whatever locale is set. Of the environment, only VEMOSDKROOT is read.
class BoardPackage {
public:
    /// Loads the board file `board_path`, then the device model that it names, then the target
    /// model that this names. Relative paths start in the working directory.
    ///
    /// Throws LoadError if a file is missing, unreadable or invalid, and std::bad_alloc if memory
    /// runs out.
    explicit BoardPackage(const std::string& board_path,
                          board::Overlap overlap = board::Overlap::Refuse);

    /// The sources of all answers. The models live as long as the package. The compile flow is the
    /// one that the board defines first; a copy of the sources may point to another.
    const AnswerSources& sources() const { return m_sources; }

private:
    std::unique_ptr<const PackageFiles> m_files;  // stays in place when the package is moved
    std::unique_ptr<const board::BoardSpec, board::DestroyWithPorts> m_spec;
    std::unique_ptr<const dmodel::DeviceModel> m_dm;
    std::unique_ptr<const tmodel::TargetModel> m_tm;
    AnswerSources m_sources;
};

}  // namespace vemo
