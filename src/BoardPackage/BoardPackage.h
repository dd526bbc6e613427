#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "BaseXmlLoader.h"
#include "BoardPackage/AnswerTable.h"

namespace vemo {

/// A file of a board package did not load. what() is the message that ends the matter.
class LoadError : public std::runtime_error {
public:
    LoadError(const xml::BaseXmlLoader& loader, const std::string& filename);

    /// What the loader has reported: finished texts, to be shown before what().
    const std::string& reports() const { return m_reports; }

private:
    std::string m_reports;
};

/// A board and the device and target models that its file leads to, loaded. Owns the models.
class BoardPackage {
public:
    /// Throws LoadError, which names a model file as the file that refers to it does. With
    /// `allow_overlap`, global memories may overlap.
    BoardPackage(const std::string& board_path, bool allow_overlap);

    /// Of all answers; the flow is the one that the board defines first.
    const AnswerSources& sources() const { return m_sources; }

private:
    std::unique_ptr<const board::BoardSpec> m_spec;
    std::unique_ptr<const dmodel::DeviceModel> m_dm;
    std::unique_ptr<const tmodel::TargetModel> m_tm;
    AnswerSources m_sources;
};

}  // namespace vemo
