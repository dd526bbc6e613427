#pragma once

#include "BaseXmlLoader.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board {

/// Loads board_spec.xml files.
class BoardSpecXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    /// With `debug`, each document is echoed to standard error and its walk traced there. With
    /// `skip_overlap`, global memories may overlap.
    BoardSpecXmlLoader(bool debug, bool skip_overlap)
        : m_echo(echo_if(debug)), m_skip_overlap(skip_overlap) {}

    // The loads return a specification owned by the caller, or null when an error was reported.

    BoardSpec* load_file(const char* filename);
    BoardSpec* load_xml(const char* xml);

    /// Takes ownership of `doc`; null stands for a parse that failed.
    BoardSpec* load_board_spec(tinyxml2::XMLDocument* doc);

private:
    Echo m_echo;
    bool m_skip_overlap;
};

}  // namespace vemo::board
