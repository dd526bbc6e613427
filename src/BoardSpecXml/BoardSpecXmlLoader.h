#pragma once

#include "BaseXmlLoader.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board {

/// What a loader makes of global memories whose address ranges overlap.
enum class Overlap {
    Refuse,  ///< An error.
    Allow,   ///< Nothing.
};

/// Loads board_spec.xml files.
class BoardSpecXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    /// With Debug::On, each document is echoed to standard error and its walk traced there.
    explicit BoardSpecXmlLoader(Overlap overlap = Overlap::Refuse,
                                vemo::xml::Debug debug = vemo::xml::Debug::Off)
        : BoardSpecXmlLoader(debug == vemo::xml::Debug::On, overlap == Overlap::Allow) {}

    /// The same; `debug` means Debug::On, `skip_overlap` means Overlap::Allow.
    BoardSpecXmlLoader(bool debug, bool skip_overlap)
        : m_echo(echo_if(debug)), m_skip_overlap(skip_overlap) {}

    /// Loads the file `filename`, see parse_file. Returns a specification owned by the caller, or
    /// null when an error was reported. Global memories are checked for overlaps last.
    ///
    /// Neither the specification nor its interfaces destroy their ports: DestroyWithPorts does.
    BoardSpec* load_file(const char* filename);

    /// The same for a NUL-terminated text, see parse_xml.
    BoardSpec* load_xml(const char* xml);

    /// The same for a parsed document. Takes ownership of `doc`. Returns null if `doc` is
    /// null, as after a failed parse.
    BoardSpec* load_board_spec(tinyxml2::XMLDocument* doc);

private:
    Echo m_echo;
    bool m_skip_overlap;
};

}  // namespace vemo::board
