#include "BoardSpecXml/BoardSpecXmlLoader.h"

#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpecXml/BoardVisitor.h"

namespace vemo::board {

BoardSpec* BoardSpecXmlLoader::load_file(const char* filename) {
    return load_board_spec(parse_file(filename));
}

BoardSpec* BoardSpecXmlLoader::load_xml(const char* xml) { return load_board_spec(parse_xml(xml)); }

BoardSpec* BoardSpecXmlLoader::load_board_spec(tinyxml2::XMLDocument* doc) {
    return load_document<BoardSpec, xml::BoardVisitor, DestroyWithPorts>(doc, m_echo,
                                                                         m_skip_overlap);
}

}  // namespace vemo::board
