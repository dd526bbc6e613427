#include "BoardSpecXml/BoardSpecXmlLoader.h"

#include <random>

#include "BoardSpec/Dump.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpecXml/AttributeVisitor.h"
#include "BoardSpecXml/BoardVisitor.h"
#include "BoardSpecXml/ChannelsVisitor.h"
#include "BoardSpecXml/CompileVisitor.h"
#include "BoardSpecXml/DeviceVisitor.h"
#include "BoardSpecXml/HostVisitor.h"
#include "BoardSpecXml/InterfacesVisitor.h"
#include "BoardSpecXml/PortVisitor.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::board;

static std::unique_ptr<BoardSpec> load(const std::string& xml) {
    return std::unique_ptr<BoardSpec>(BoardSpecXmlLoader(false, false).load_xml(xml.c_str()));
}

struct BoardCases : ::testing::TestWithParam<std::string> {};

TEST_P(BoardCases, HaveTheirOutcomes) {
    expect_outcomes<BoardSpecXmlLoader>(read_cases("board.cases").at(GetParam()), false, false);
}

INSTANTIATE_TEST_SUITE_P(BoardSpecXml, BoardCases,
                         ::testing::ValuesIn(read_group_names("board.cases")),
                         [](const auto& group) { return group.param; });

TEST(BoardSpecXml, ReadsEveryField) {  // that is dumped: the tests of JSON have them all
    const auto spec = load(BOARD);
    EXPECT_EQ(dump(*spec) + "\n" + dump(spec->get_global_mem_config("QDR")),
              dumped_model("Board specification"));
}

TEST(BoardSpecXml, LaterOneOfANameWins) {
    const std::string flow =
        "<compile project=\"later\" revision=\"\" lomb_file=\"\" "
        "generic_kernel=\"1\"/>";
    const auto unnamed = load(edit(BOARD_14, "</board>", flow + "</board>"));
    EXPECT_EQ(unnamed->get_compile_config_names(), split("default default", " "));
    EXPECT_EQ(unnamed->get_compile_config("default").project, "later");
    const auto named = load(edit(BOARD, "\"zeta\"", "\"alpha\""));
    EXPECT_EQ(named->get_string_of_board_compile_config_names(), "alpha");
    EXPECT_EQ(named->get_compile_config("alpha").project, "top2");
    const auto fixes = load(edit(BOARD, "<include", "<include fixes=\"in0\"/><include"));
    EXPECT_EQ(fixes->get_compile_config("zeta").automigrate_include, "in1");
    const auto codes =
        load(edit(BOARD, "<attribute", "<attribute name=\"burst\" encoding=\"6\"/><attribute"));
    EXPECT_EQ(codes->get_global_mem_config().get_intf(0).get_port(1)->get_attribute("burst"), 7u);
    const std::pair<const char*, unsigned> logic[] = {
        {R"(<les num="11"/>)", 11},
        {R"(<alms num="11"/><les num="5"/>)", 5},
        {R"(<les num="5"/><alms num="2147483649"/>)", 2}};  // modulo 2^32
    for (const auto& [elements, les] : logic) {
        const auto spec = load(edit(BOARD, R"(<alms num="11"/>)", elements));
        EXPECT_EQ(spec->get_device_config().get_used_resources().LEs, les) << elements;
    }
}

TEST(BoardSpecXml, RefusesFlowsOfOldBoards) {
    BoardSpec other;
    other.set_compile_config(new CompileConfig, "made elsewhere");
    BoardSpecXmlLoader loader(false, false);
    const std::unique_ptr<tinyxml2::XMLDocument> doc(loader.parse_xml(BOARD_09.c_str()));
    xml::BoardVisitor visitor(&other, &loader, false, false);
    EXPECT_FALSE(doc->Accept(&visitor));
    EXPECT_EQ(
        loader.get_error(0),
        at(0, "Unexpected compile configuration (<compile>) found in 0.9 board specification."));
}

TEST(BoardSpecXml, IgnoresAttributesOfPortsWithoutWidth) {
    const auto spec = load(edit(BOARD, " attribute_width=\"3\"", ""));
    EXPECT_EQ(spec->get_global_mem_config().get_intf(0).get_port(1)->attributes.size(), 0u);
}

TEST(BoardSpecXml, SkipsOverlapCheckWhenTold) {
    const std::string overlapping = edit(BOARD, "0x2000", "0x1800");
    EXPECT_EQ(load_outcome<BoardSpecXmlLoader>(overlapping, false, true), "loaded");
}

TEST(BoardSpecXml, ReadsAttributesInOrder) {
    // An element, what is put in its place, its line, and its attributes with good values. Each
    // stands in a line of its own, and is bad from the i-th on: the first bad one is reported.
    const struct {
        const char* from;
        const char* to;
        std::size_t line;
        const char* attributes;
    } cases[] = {
        {"<kernel_config.../>", "<kernel_config", 12, "start=0x0 size=1"},
        {"<global_mem name=\"QDR\"...\"0\">", "<global_mem name=\"QDR\"", 10,
         "max_bandwidth=1 type=device_private interleaved_bytes=1 config_addr=1"},
        {"<port name=\"d0_r\".../>", "<port name=\"p\"", 7,
         "direction=w hazard_free_attributes=0 attribute_width=0"},
        {"<interface name=\"ctl\".../>", "<interface name=\"ctl\" port=\"p\"", 17,
         "type=irq width=1 maxburst=1 address=1 size=1 misc=1 latency=1 latency_type=fixed "
         "waitrequest=1 waitrequest_allowance=1 bsp_vnmm_write_ack=1 addpipe=1 sampling_rate=1"}};
    for (const auto& [from, to, line, attributes] : cases) {
        const auto words = split(attributes, " ");
        for (std::size_t first_bad = 0; first_bad < words.size(); ++first_bad) {
            std::string elem = to;
            for (std::size_t i = 0; i < words.size(); ++i) {
                const auto word = split(words[i], "=");
                elem += "\n" + word[0] + "=\"";
                elem += (i < first_bad ? fill(word[1], {{"_", " "}}) : "") + "\"";
            }
            const bool is_empty = std::string(from).back() != '>' || from[1] != 'g';
            const auto xml = edit(BOARD, from, elem + (is_empty ? "/>" : ">"));
            EXPECT_EQ(split(load_outcome<BoardSpecXmlLoader>(xml, false, false), "\n")[0],
                      "Error in '[mem]', line " + std::to_string(line + 1 + first_bad))
                << elem;
        }
    }
}

TEST(BoardSpecXml, TracesEveryWalk) {
    // An interface is walked for its own sake, for its ports, and for what surrounds it; a port as
    // well for its attributes.
    struct : BoardSpecXmlLoader {
        using BoardSpecXmlLoader::BoardSpecXmlLoader;
        void debug(const std::string& text) override { log += text; }
        std::string log;
    } loader(true, false);
    const auto trace_of_memory = [&loader](const std::string& board) {
        loader.log.clear();
        delete loader.load_xml(board.c_str());
        const std::string log =
            fill(loader.log, {{"[xml] entering ", "+"}, {"[xml] exiting ", "-"}, {"\n", " "}});
        return split(split(log, "+board/global_mem ").at(1), "-board/global_mem ")[0];
    };
    EXPECT_EQ(trace_of_memory(BOARD_09),
              "+global_mem +global_mem/interface +interface +interface +interface/port "
              "+port +port/attribute -port/attribute -port +interface/port/attribute "
              "-interface/port/attribute -interface/port -interface +interface/port "
              "-interface/port -interface +global_mem/interface/port -global_mem/interface/port "
              "-global_mem/interface -global_mem ");
    EXPECT_EQ(trace_of_memory(BOARD_14),  // without elements for ports
              "+global_mem +global_mem/interface +interface +interface -interface -interface "
              "-global_mem/interface -global_mem ");
}

TEST(BoardSpecXmlDeathTest, VisitorsNeedWhatTheyFill) {
    BoardSpec spec;
    xml::BoardVisitor parent(&spec, nullptr, false, false);
    expect_aborts({
        {"spec != __null", [] { xml::BoardVisitor(nullptr, nullptr, false, false); }},
        {"spec != __null", [&] { xml::ChannelsVisitor(&parent, nullptr); }},
        {"spec != __null", [&] { xml::CompileVisitor(&parent, nullptr); }},
        {"spec != __null", [&] { xml::DeviceVisitor(&parent, nullptr); }},
        {"spec != __null", [&] { xml::HostVisitor(&parent, nullptr); }},
        {"spec != __null", [&] { xml::InterfacesVisitor(&parent, nullptr); }},
        {"intf != __null", [&] { xml::PortVisitor(&parent, nullptr); }},
        {"port != __null", [&] { xml::AttributeVisitor(&parent, nullptr); }},
    });
}

static bool overlap_by_definition(const std::vector<GlobalMemConfig*>& memories) {
    bool overlap = false;
    for (const GlobalMemConfig* i : memories) {
        for (const GlobalMemConfig* j : memories) {
            overlap |= i != j && i->get_min_byte_address() < j->get_max_byte_address()
                       && i->get_max_byte_address() > j->get_min_byte_address();
        }
    }
    return overlap;
}

TEST(MemoryOverlap, AgreesWithDefinition) {
    std::mt19937 random(20240611);
    const auto below = [&random](unsigned end) { return static_cast<unsigned>(random() % end); };
    int num_overlapping = 0;
    for (int round = 0; round < 10000; ++round) {
        BoardSpec spec;
        for (unsigned n = below(6); n > 0; --n) {
            auto* memory = new GlobalMemConfig;
            spec.add_global_mem_config(memory, false);
            for (unsigned i = below(3); i > 0; --i) {
                auto* intf = new Interface;
                intf->address = below(24) - 2;  // some wrap
                intf->set_size(1 + below(4));
                memory->add_interface(intf);
            }
        }
        const auto& memories = spec.get_global_mem_configs();
        const bool overlap = overlap_by_definition(memories);
        EXPECT_EQ(has_overlapping_memories(memories), overlap) << "round " << round;
        num_overlapping += overlap ? 1 : 0;
    }
    EXPECT_TRUE(num_overlapping > 1000 && num_overlapping < 9000) << num_overlapping;
}
