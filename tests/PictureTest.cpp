#include <algorithm>
#include <regex>
#include <set>

#include <tinyxml2.h>
#include <nlohmann/json.hpp>

#include "Base/Characters.h"
#include "BoardDump/AddressScale.h"
#include "BoardDump/Figures.h"
#include "BoardDump/HtmlDump.h"
#include "BoardDump/JsonDump.h"
#include "BoardDump/SvgDump.h"
#include "BoardPackage/BoardPackage.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::dump;
using tinyxml2::XMLElement;

namespace {

/// A document of a board, parsed, with all its elements in order.
struct Document : tinyxml2::XMLVisitor {
    explicit Document(const std::string& text) {
        EXPECT_EQ(xml.Parse(text.c_str()), tinyxml2::XML_SUCCESS) << xml.ErrorStr() << text;
        xml.Accept(this);
    }

    bool VisitEnter(const XMLElement& elem, const tinyxml2::XMLAttribute* /*attributes*/) override {
        elements.push_back(&elem);
        return true;
    }

    /// The texts of the elements of these names, in order.
    std::vector<std::string> texts(const std::set<std::string>& names) const {
        std::vector<std::string> found;
        for (const XMLElement* elem : elements) {
            if (names.count(elem->Name()) != 0 && elem->GetText() != nullptr) {
                found.emplace_back(elem->GetText());
            }
        }
        return found;
    }

    tinyxml2::XMLDocument xml{true, tinyxml2::PRESERVE_WHITESPACE};
    std::vector<const XMLElement*> elements;
};

struct Label {
    std::string text;
    double left, right, top, bottom;
};

/// The labels of a picture, as large as in a font whose characters are 0.61 as wide as high.
std::vector<Label> labels_of(const Document& picture) {
    std::map<std::string, double> sizes;  // of each style
    const std::string style = picture.texts({"style"}).at(0);
    const std::regex rule(R"(\.(p-\w+)\{font-size:(\d+)px)");
    for (std::sregex_iterator match(style.begin(), style.end(), rule), end; match != end; ++match) {
        sizes[(*match)[1]] = std::stod((*match)[2]);
    }
    std::vector<Label> labels;
    for (const XMLElement* elem : picture.elements) {
        if (elem->Name() == std::string("text")) {
            const std::string text = elem->GetText();
            const double size = sizes.at(elem->Attribute("class"));
            const double width = 0.61 * size * static_cast<double>(vemo::display_width(text));
            const char* anchor = elem->Attribute("text-anchor");
            const double before = anchor == nullptr ? 0 : std::string(anchor) == "end" ? 1 : 0.5;
            const double left = elem->DoubleAttribute("x") - before * width;
            const double y = elem->DoubleAttribute("y");
            labels.push_back({text, left, left + width, y - 0.8 * size, y + 0.2 * size});
        }
    }
    return labels;
}

void expect_clear_labels(const std::string& svg) {
    const Document picture(svg);
    const std::vector<Label> labels = labels_of(picture);
    const double width = picture.xml.RootElement()->DoubleAttribute("width");
    const double height = picture.xml.RootElement()->DoubleAttribute("height");
    EXPECT_GT(labels.size(), 25u);
    for (auto a = labels.begin(); a != labels.end(); ++a) {
        EXPECT_TRUE(a->left >= 0 && a->right <= width && a->top >= 0 && a->bottom <= height)
            << a->text;
        for (auto b = a + 1; b != labels.end(); ++b) {
            EXPECT_TRUE(a->right <= b->left || b->right <= a->left || a->bottom <= b->top
                        || b->bottom <= a->top)
                << a->text << " | " << b->text;
        }
    }
}

std::string with_memories(const std::string& memories) {
    return edit(BOARD, "<global_mem name=\"DDR\"...</global_mem>\n<host", memories + "<host");
}

std::string interface(unsigned long address, unsigned long size, const std::string& port = "p") {
    return fill(R"(<interface name="m" port="P" type="slave" width="8" address="A" size="S"/>)",
                {{"A", std::to_string(address)}, {"S", std::to_string(size)}, {"P", port}});
}

std::string memory(const std::string& name, const std::string& interfaces) {
    return fill(R"(<global_mem name="N" max_bandwidth="1">I</global_mem>)",
                {{"I", interfaces}, {"N", name}});
}

/// As many memories; a gap is after every second one.
std::string memories(unsigned number) {
    std::string all;
    for (unsigned i = 0; i < number; ++i) {
        all += memory("M" + std::to_string(i), interface(i << 13, 4096U << (i % 2)));
    }
    return all;
}

const char* const OVERLAPPING[] = {"A", "B", "C", "D", "E", "F", "G", "H"};

std::string overlapping_memories() {
    std::string all = memory("W", interface(0xffffff00, 0x200))
                      + memory("Z", interface(0x8000, 256) + interface(0x8010, 4));
    for (const char* name : OVERLAPPING) {
        all += memory(name, interface(0x1000, 0x1000) + interface(0x1800, 0x1000));
    }
    return all;
}

const std::string HOSTILE =
    "<script>\"'&amp;]]>--></svg>\x01\x1b[m\x7f\xff\xc3(\xed\xa0\x80\xe2\x80\xaegnp\xef\xbf\xbe"
    "\xef\xbf\xbf\xef\xb7\x90\xf0\x9f\xbf\xbf";

std::string escaped(const std::string& text) {
    return fill(text, {{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}});
}

/// The board with that in place of most texts.
std::string hostile_board(const std::string& text) {
    std::string board = BOARD;
    for (const char* value :
         {"name=\"acme", "name=\"DDR", "name=\"d0", "port=\"d1_p", "name=\"d0_r",
          "chan_id=\"eth_in", "clk=\"k1", "cmd=\"gen1", "fixes=\"in1", "name=\"alpha", "name=\"ctl",
          "enable=\"en", "name=\"burst"}) {
        board = edit(board, value, split(value, "\"")[0].append("\"").append(text));
    }
    return board;
}

struct Picture : ShellTest {
    Picture() : ShellTest("dump", "VEMO_DUMP", VEMO_DUMP) {}

    template <typename Dump>
    std::string dump(Dump format, const std::string& board = BOARD) const {
        dir.write("board_spec.xml", board);
        const vemo::BoardPackage package(dir / "board_spec.xml", vemo::board::Overlap::Allow);
        return format(package.sources());
    }
};

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += text + "|";
    }
    return all;
}

}  // namespace

TEST_F(Picture, HasClearLabelsAndMarksWhatItLeavesOut) {
    std::string channels;
    std::string ports;
    for (int i = 0; i < 99; ++i) {
        channels +=
            fill(R"(<interface name="n" port="p" type="streamsink" width="1" chan_id="I"/>)",
                 {{"I", std::to_string(i)}});
        ports += R"(<port name="p" direction="r"/>)";
    }
    const std::string outer = R"(<global_mem name="O" max_bandwidth="1">)" + memories(1);
    // The board, and the texts that show, besides the others, how it is drawn.
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {BOARD, {}},
        {BOARD_09, {"nine", "(unnamed)", "mem.mem_r"}},
        {edit(BOARD, "\"acme\"", "\"\""), {"(unnamed board)"}},
        {edit(BOARD, "<alms num=\"11\"", "<alms num=\"100\""), {"200 of 42", "476 %"}},
        {edit(BOARD, "clk2x=\"k2\"", ""), {}},
        {with_memories(memories(40)), {"M39", "M39 m.p"}},
        {with_memories(memories(65)),
         {"17 more global memories, not drawn", "Summarized: 65 ranges in 22 groups of neighbours.",
          "3 ranges M0 … M2, 1 gap"}},
        {with_memories(overlapping_memories()),
         {"Not a valid board: global memories overlap from their first to their last address.",
          "overlap of 16 ranges", "no overlap", "gap", "W m.p (wraps)", "W m.p (wrapped)"}},
        {with_memories(outer + "</global_mem>"), {"O", "M0"}},
        {edit(BOARD, "</channels>", channels + "</channels>"), {"69 more, not drawn"}},
        {edit(BOARD, "<port name=\"d0_r\"", ports + "<port name=\"d0_r\""), {"54 more, not drawn"}},
        {hostile_board(escaped(HOSTILE)), {}},
        {hostile_board(fill("日本語é", {{"é", std::string(99, 'W')}})), {}},
    };
    for (const auto& [board, marks] : cases) {
        SCOPED_TRACE(board.substr(0, 2000));
        const std::string svg = dump(svg_dump, board);
        expect_clear_labels(svg);
        const auto texts = Document(svg).texts({"text"});
        for (const std::string& mark : marks) {
            EXPECT_NE(std::find(texts.begin(), texts.end(), mark), texts.end())
                << mark << joined(texts);
        }
    }
}

TEST_F(Picture, MarksWhatIsWrongAndPointsTheRightWay) {
    const auto count = [](const std::string& svg, const std::string& part) {
        return split(svg, part).size() - 1;
    };
    const std::string svg = dump(svg_dump);
    EXPECT_EQ(count(svg, "class=\"p-alarm\"") + count(svg, "class=\"p-over\""), 0u);
    // Heads of arrows point to the left (where they end left of where they begin), or to the right.
    std::string heads;
    const std::regex head(R"(d="M(\d+) \d+L(\d+) )");
    for (std::sregex_iterator match(svg.begin(), svg.end(), head), end; match != end; ++match) {
        heads += std::stoi((*match)[1]) < std::stoi((*match)[2]) ? "<" : ">";
    }
    // Window, master, irq, streamsource, streamsink; of the memories r, w, rw and rw.
    EXPECT_EQ(heads, ">><><<><><>");
    const std::string over = dump(svg_dump, edit(BOARD, "<alms num=\"11\"", "<alms num=\"100\""));
    EXPECT_EQ(count(over, "class=\"p-alarm\""), 2u);
    EXPECT_EQ(count(over, "class=\"p-over\""), 1u);
    const std::string clash = dump(svg_dump, with_memories(overlapping_memories()));
    EXPECT_EQ(count(clash, "class=\"p-over\""), count(clash, ">overlap of "));
    EXPECT_EQ(count(clash, "class=\"p-gap\""), count(clash, ">gap<"));
}

TEST_F(Picture, LetsNothingInAFileBecomeMarkup) {
    const std::string hostile = hostile_board(escaped(HOSTILE));
    for (const auto format : {svg_dump, html_dump}) {
        std::set<std::string> names[2];  // of elements and attributes: of the board, of the hostile
        for (const bool is_hostile : {false, true}) {
            std::set<std::string> ids;
            const Document document(dump(format, is_hostile ? hostile : BOARD));
            for (const XMLElement* elem : document.elements) {
                names[is_hostile ? 1 : 0].insert(elem->Name());
                for (const auto* attr = elem->FirstAttribute(); attr != nullptr;
                     attr = attr->Next()) {
                    names[is_hostile ? 1 : 0].insert(std::string(elem->Name()) + " "
                                                     + attr->Name());
                    EXPECT_TRUE(attr->Name() != std::string("id")
                                || ids.insert(attr->Value()).second)
                        << attr->Value();
                }
            }
        }
        EXPECT_EQ(names[0], names[1]);
    }
}

TEST_F(Picture, HasThePlaceOfEverythingOnItsPage) {
    const std::string page = dump(html_dump);
    const auto parts = Document(page).texts({"td", "th", "h1", "h3", "p"});
    const std::string cells = "|" + joined(parts);
    const std::string separators = "[](),;|=";
    std::set<std::string> words(parts.begin(), parts.end());
    for (const std::string& part : parts) {
        std::string word;
        for (const char c : part + " ") {
            if (c == ' ' || separators.find(c) != std::string::npos) {
                words.insert(std::exchange(word, ""));
            } else {
                word += c;
            }
        }
    }
    // Every value of the models is there, but those that are shown otherwise.
    const std::string otherwise =
        " interleaved_bytes config_addr min_address max_address address size "
        "start mlabs les family hazard_free_attributes ";
    std::size_t num_values = 0;
    const auto values = nlohmann::json::parse(dump(json_dump)).flatten();
    for (const auto& [path, value] : values.items()) {
        const std::string name = path.substr(path.rfind('/') + 1);
        const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
        const bool says_something = !(value.is_boolean() || value.is_null() || text.empty());
        if (path.find("/answers") == 0 || path.find("version") != std::string::npos
            || otherwise.find(" " + name + " ") != std::string::npos || !says_something
            || text == "0" || text == "0.0") {
            continue;
        }
        ++num_values;
        const std::string shown = split(text, ".0").at(0);
        EXPECT_TRUE(words.count(text) != 0 || words.count(shown) != 0) << path << " " << text;
    }
    EXPECT_GT(num_values, 100u);
    for (const std::string row :
         {"|0x00001000-0x00001fff|4 KiB|range|DDR|d1.d1_p|",
          "|DDR|shared physical|100.5 MB/s|1 KiB x 2|0x00000018|0x00000000|0x00001fff|",
          "|DDR|d0_r (r); d0_w (w, 3 attribute bits: burst = 7, attributes not free of hazards)|",
          "hazards)|d0|slave|512|1|0x00000000|4 KiB|", "|LEs|22|42|52 %|",
          "|Host's kernel window|0x00000100-0x0000011f, 32 B|",
          "|Generate takes more arguments|yes|"}) {
        EXPECT_NE(cells.find(row), std::string::npos) << row << cells;
    }
    EXPECT_NE(cells.find("|Board|" + dir.path + "/board_spec.xml|"), std::string::npos) << cells;
    EXPECT_NE(cells.find("|Device model|dev.xml|" + dir.path + "/dev.xml|"), std::string::npos);

    dir.write("tm.xml", edit(TARGET_MODEL, "<global_interconnect>...</global_interconnect>", ""));
    const auto least = joined(Document(dump(html_dump, BOARD_14)).texts({"td", "th", "p"}));
    EXPECT_EQ(least.find("pipeline"), std::string::npos);
    EXPECT_EQ(least.find("|enable|"), std::string::npos);  // an empty column
    EXPECT_NE(least.find("to the kernel: none.|"), std::string::npos) << least;
    const auto clash = joined(
        Document(dump(html_dump, with_memories(overlapping_memories()))).texts({"td", "th", "p"}));
    for (const std::string row :
         {"Not a valid board: ", "|0x00001000-0x00001fff|4 KiB|overlap|overlap with A m.p|",
          "|0xffffff00-0xffffffff|256 B|range|W|m.p (wraps)|", "|~4 GiB|gap|gap|"}) {
        EXPECT_NE(clash.find(row), std::string::npos) << row << clash;
    }
}

TEST_F(Picture, GrowsWithTheBoardAlone) {
    const std::size_t size = dump(html_dump, with_memories(memories(200))).size();
    EXPECT_LT(dump(html_dump, with_memories(memories(400))).size(), 2 * size);
    EXPECT_LT(dump(svg_dump, with_memories(memories(400))).size(),
              dump(svg_dump, with_memories(memories(200))).size() + 5000);
    // A long name is there a few times, however many rows it has.
    const std::string name(100000, 'n');
    std::string interfaces;
    for (unsigned i = 0; i < 60; ++i) {
        interfaces += interface(i << 13, 4096);
    }
    EXPECT_LT(dump(html_dump, with_memories(memory(name, interfaces))).size(), 6 * name.size());
}

TEST(Markup, KeepsTextsWhole) {
    Markup markup;
    markup.element("a", {{"b", HOSTILE}, {"c", ""}}, HOSTILE);
    const Document document(markup.text());
    const XMLElement* element = document.xml.RootElement();
    EXPECT_EQ(element->GetText(), vemo::printable(HOSTILE));
    EXPECT_EQ(element->Attribute("b"), vemo::printable(HOSTILE));
    EXPECT_EQ(element->Attribute("c"), nullptr);
}

TEST(AddressScale, CutsRangesIntoStretches) {
    const auto range = [](std::uint64_t first, std::uint64_t last) {
        return AddressRange{first, last, 0, "m", "i", ""};
    };
    // Ranges, and of each stretch its first address, how many cover it and begin there, its height;
    // then the lanes of the ranges.
    const std::pair<std::vector<AddressRange>, std::string> cases[] = {
        {{}, "; "},
        {{range(0, 0)}, "0 1/1 10 ; 0 "},
        {{range(0, 1), range(4, 0xfff), range(0x1000, 0xffffffff)},
         "0 1/1 10 2 0/0 10 4 1/1 12 4096 1/1 92 ; 0 0 0 "},
        {{range(0, 9), range(0, 4), range(5, 9)}, "0 2/2 30 5 2/1 20 ; 0 1 1 "},
        {{range(0, 9), range(2, 3), range(20, 29)},
         "0 1/1 10 2 2/1 20 4 1/0 10 10 0/0 10 20 1/1 10 ; 0 1 0 "},
        {std::vector<AddressRange>(8, range(0, 0)), "0 8/8 90 ; 0 1 2 3 4 5 5 5 "},
    };
    for (const auto& [ranges, expected] : cases) {
        const AddressScale scale(ranges, 10);
        std::ostringstream found;
        int top = 0;
        for (const AddressStretch& stretch : scale.stretches) {
            found << stretch.first << " " << stretch.num_covers << "/" << stretch.begins.size()
                  << " " << stretch.height << " ";
            EXPECT_EQ(stretch.top, top);
            top += stretch.height;
        }
        EXPECT_EQ(scale.height, top);
        found << "; ";
        for (const RangePlace& place : scale.places) {
            found << place.lane << " ";
        }
        EXPECT_EQ(found.str(), expected);
    }
}

TEST(AddressScale, GroupsNeighbours) {
    std::string found;
    for (const AddressRange& group : grouped({{0, 9, 0, "a", "i", ""},
                                              {9, 9, 1, "b", "i", ""},
                                              {20, 29, 2, "c", "i", ""},
                                              {31, 39, 3, "d", "i", " (wraps)"},
                                              {50, 59, 4, "e", "i", ""},
                                              {52, 53, 5, "f", "i", ""},
                                              {70, 79, 6, "g", "i", ""}},
                                             4)) {
        found += range_text(group.first, group.last) + " " + group.memory + ": "
                 + group.interface + group.note + "\n";
    }
    EXPECT_EQ(found,
              "0x00000000-0x00000009 2 ranges: a … b, 1 overlap\n"
              "0x00000014-0x00000027 2 ranges: c … d, 1 gap\n"
              "0x00000032-0x0000003b 2 ranges: e … f, 1 overlap\n"
              "0x00000046-0x0000004f g: i\n");
}

TEST(Figures, AreShort) {
    const std::tuple<std::uint64_t, std::uint64_t, std::string> shares[] = {
        {0, 5, "0 %"},       {1, 1000, "<1 %"},   {1, 3, "33 %"}, {5, 5, "100 %"}, {9, 3, "300 %"},
        {999, 100, "999 %"}, {4000, 1, ">999 %"}, {0, 0, ""},     {3, 0, ""}};
    for (const auto& [used, available, expected] : shares) {
        EXPECT_EQ(share_text(used, available), expected);
    }
    EXPECT_EQ(count_text(0) + " " + count_text(999) + " " + count_text(4294967295),
              "0 999 4,294,967,295");
    EXPECT_EQ(figure_text(8532.5f) + " " + figure_text(34128.0f), "8532.5 34128");
    EXPECT_EQ(device_name("a/b.c/pb3180.xml") + " " + device_name(".xml") + " " + device_name("x"),
              "pb3180 .xml x");
    const std::tuple<std::string, std::size_t, std::string> texts[] = {
        {"abc", 3, "abc"},
        {"abcd", 3, "ab…"},
        {"日本語", 5, "日本…"},
        {"日本語", 6, "日本語"},
        {"a\x1b[m", 4, "a…"},
        {"e\xcc\x81\xcc\x81", 2, "e…"},
        {"", 1, ""},
        {std::string(9999, 'x'), 2, "x…"}};
    for (const auto& [text, columns, expected] : texts) {
        EXPECT_EQ(fitted(text, columns), expected);
    }
}
