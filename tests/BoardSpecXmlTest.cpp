#include "BoardSpecXml/BoardSpecXmlLoader.h"

#include <random>

#include "BoardSpec/Dump.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpecXml/BoardVisitor.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::board;

static std::unique_ptr<BoardSpec> load(const std::string& xml) {
    return std::unique_ptr<BoardSpec>(BoardSpecXmlLoader(false, false).load_xml(xml.c_str()));
}

static std::string flow(const BoardSpec& spec, const char* name) {
    const CompileConfig& f = spec.get_compile_config(name);
    return fields(f.name, f.project, f.revision, f.lomb_file, f.generic_kernel, f.generate_cmd,
                  f.generate_additional_args, f.synthesize_cmd, f.synthesize_additional_args,
                  f.automigrate_type, f.automigrate_include, f.automigrate_exclude);
}

static void expect_loads(const std::string& document, const std::string& cases) {
    expect_outcomes<BoardSpecXmlLoader>(document, cases, false, false);
}

TEST(BoardSpecXml, ReadsEveryField) {
    const auto spec = load(BOARD);
    const std::string none = "address = 0x0000000000000000, size = 0x0000000000000000, ";
    EXPECT_EQ(dump(*spec),
              "Board specification (v17.1):\n  Name: acme\nDevice configuration:\n  Device model file: dev.xml\n"
              "  Used resources: LEs = 22  FFs = 12  RAMs = 14  DSPs = 13  MLABs = 0\n"
              "Global memory configuration:\n  name: DDR,  # interleaved bytes: 1024\n"
              "  Interface: type = slave, name = d0, port = d0_r, dataw = 512, maxburst = 1, address = 0x0000000000000000, size = 0x0000000000001000, misc = 0\n"
              "  Interface: type = slave, name = d1, port = d1_p, dataw = 512, maxburst = 1, address = 0x0000000000001000, size = 0x0000000000001000, misc = 0\n"
              "Host configuration:\n  Kernel configuration start: 0x00000100\n  Kernel configuration size:  0x00000020\n"
              "Interface configuration:\n  Kernel clock-reset: clk = k1 clk2x = k2 reset = k3\n"
              "  Interface: type = master, name = ctl, port = ctl_p, dataw = 34, maxburst = 8, address = 0x000000000000ab00, size = 0x0000000000002000, enable = en, clock = ck, chan_id = cid, misc = 7\n"
              "  Interface: type = irq, name = done, port = irq_p, dataw = 0, maxburst = 1, " + none + "misc = 0\nChannel configuration:\n"
              "  Interface: type = stream-source, name = net, port = rx, dataw = 32, maxburst = 1, " + none + "chan_id = eth_in, misc = 0\n"
              "  Interface: type = stream-sink, name = net, port = tx, dataw = 33, maxburst = 1, " + none + "chan_id = eth_out, misc = 0");
    const GlobalMemConfig& ddr = spec->get_global_mem_config("DDR");
    const GlobalMemConfig& qdr = spec->get_global_mem_config("QDR");
    const Port& r = *ddr.get_intf(0).get_port(0);
    const Port& w = *ddr.get_intf(0).get_port(1);
    const Interface& intf = spec->get_interface_config().get_intf(0);
    EXPECT_EQ(fields(ddr.get_max_bandwidth(), +ddr.get_type(), ddr.config_addr), "100.5|1|24|");
    EXPECT_EQ(fields(qdr.get_max_bandwidth(), +qdr.get_type(), qdr.config_addr), "0|2|0|");
    EXPECT_EQ(fields(+r.direction, r.hazard_free_attributes, r.attribute_width), "1|1|0|");
    EXPECT_EQ(fields(w.name, +w.direction, w.hazard_free_attributes, w.attribute_width),
              "d0_w|2|0|3|");
    EXPECT_EQ(w.get_attribute("burst"), 7u);
    EXPECT_EQ(fields(intf.latency, intf.latency_type, intf.waitrequest, intf.waitrequest_allowance),
              "99|1|5|6|");
    EXPECT_EQ(fields(intf.bsp_vnmm_write_ack, intf.addpipe, intf.get_sampling_rate()), "1|9|2.5|");
    EXPECT_EQ(ddr.get_intf(1).get_port_direction(0), Port::ReadWrite);
    EXPECT_EQ(flow(*spec, "zeta"),
              "zeta|top1|rev1|sys1.lomb|1|gen1|1|syn1 &&  echo \"x\"|0|auto|in1|ex1|");
    EXPECT_EQ(flow(*spec, "alpha"), "alpha|top2|rev2|sys2.lomb|0|gen2|0|syn2|1|pb_net|||");
}

TEST(BoardSpecXml, ChecksSections) {
    expect_loads(BOARD, R"(
<device...</board> => </board> => Missing device configuration (<device>) in board specification.
<global_mem...</board> => </board> => Missing global memory configuration (<global_mem>) in board specification.
"0x2000"...</board> => "0x1ffe" size="2"/></global_mem></board> => Global memory regions overlap.
<host>...</board> => </board> => Missing host configuration (<host>) in board specification.
<interfaces>...</board> => </board> => Missing interface configuration (<interfaces>) in board specification.
<compile...</board> => </board> => Missing compile configuration (<compile>) in board specification.
"0x2000" => "0x1fff" => loaded
 version="17.1" name="acme" =>  => 1: Expected attribute 'version' on element 'board'.
<board...</board> => <!-- --> => Missing device configuration (<device>) in board specification.
)");
    expect_outcomes<BoardSpecXmlLoader>(BOARD, "\"0x2000\" => \"0x1800\" => loaded", false, true);
    expect_loads(BOARD_14, R"(
14.1 => 14.1x ||  15 || 16.9 || 17.0 || 1e2 || nan => loaded
 version="14.1" => \nversion="1.0" || \nversion="14.0" || \nversion="14.09" || \nversion="0.91" || \nversion="x" => 2: Unsupported version string.
)");
}

TEST(BoardSpecXml, RefusesFlowsOfOldBoards) {
    BoardSpec spec;
    spec.set_compile_config(new CompileConfig, "made elsewhere");
    BoardSpecXmlLoader loader(false, false);
    const std::unique_ptr<tinyxml2::XMLDocument> doc(loader.parse_xml(BOARD_09.c_str()));
    xml::BoardVisitor visitor(&spec, &loader, false, false);
    EXPECT_FALSE(doc->Accept(&visitor));
    EXPECT_EQ(
        loader.get_error(0),
        at(0, "Unexpected compile configuration (<compile>) found in 0.9 board specification."));
}

TEST(BoardSpecXml, ChecksDeviceAndHost) {
    expect_loads(BOARD, R"(
<device  => <device\nx="" y="" => 3: Unexpected attribute 'x'. + 3: Unexpected attribute 'y'.
<used_resources>...</used_resources> =>  => 2: Used device resources (<used_resources>) must be defined.
<ffs => <mlabs num="1"/><ffs => 3: Unexpected element 'mlabs'.
<kernel_config...</host> => </host> => Missing kernel configuration (<kernel_config>) in host specification (<host>).
 size="0x20" => \nsize="0" => 13: Kernel configuration size expected to be > 0.
)");
    const std::pair<std::string, unsigned> logic[] = {
        {R"(<les num="11"/>)", 11},
        {R"(<alms num="11"/><les num="5"/>)", 5},
        {R"(<les num="5"/><alms num="2147483649"/>)", 2}};
    for (const auto& [elements, les] : logic) {
        const auto spec = load(edit(BOARD, R"(<alms num="11"/>)", elements));
        EXPECT_EQ(spec->get_device_config().get_used_resources().LEs, les) << elements;
    }
}

TEST(BoardSpecXml, ChecksFlows) {
    expect_loads(BOARD, R"(
 project="top1"...generic_kernel="true" =>  => 20: Expected attribute 'project' on element 'compile'.
 revision="rev1"...generic_kernel="true" =>  => 20: Expected attribute 'revision' on element 'compile'.
 lomb_file="sys1.lomb"...generic_kernel="true" =>  => 20: Expected attribute 'lomb_file' on element 'compile'.
"true" => "yes" => 20: Incorrect type for attribute 'generic_kernel' on element 'compile'.
<generate => <include/><generate => 21: Unexpected element 'include'.
 cmd="gen1" additional_args="" =>  additional_args="x" => 21: Expected attribute 'cmd' on element 'generate'.
 additional_args="" => \nadditional_args="yes" => 22: additional_args must be a boolean (true or false) or unspecified.
"auto" => "AUTO" => 22: Board auto migration platform_type is invalid
 platform_type="auto" =>  => 22: Expected attribute 'platform_type' on element 'auto_migrate'. + 22: Board auto migration platform_type is invalid
 platform_type="auto" =>  platform_type="auto" x="" => 22: Unexpected attribute 'x'. + 22: Board auto migration platform_type is invalid
<include => <x fixes=""/><include => 22: Unexpected element 'x'.
)");
    expect_loads(BOARD_14, R"(
<generate => <generate cmd="gen0"/><generate => loaded
<include => <synthesize/><include => 22: Unexpected element 'synthesize'.
<include fixes="in1"/> || <exclude fixes="ex1"/> =>  => 22: Expected element <auto_migrate> to appear exactly once.
<include => <include fixes=""/><include => 22: Expected element <auto_migrate> to appear exactly once.
"14.1" => "0.9" => 20: Compile not supported in this version.
)");
    const auto words =
        load(fill(BOARD, {{"args=\"\"", "args=\"true\""}, {"args=\"0\"", "args=\"false\""}}));
    EXPECT_EQ(flow(*words, "zeta"), flow(*load(BOARD), "zeta"));
    const auto unnamed =
        load(edit(edit(BOARD, "17.1", "14.1"), "<auto_migrate platform_type=\"pb_net\"/>", ""));
    EXPECT_EQ(unnamed->get_compile_config_names(), split("default default", " "));
    EXPECT_EQ(flow(*unnamed, "default"), "default|top2|rev2|sys2.lomb|0|gen2|0|syn2|1||||");
    const auto named = load(edit(BOARD, "17.1", "17.0"));
    EXPECT_EQ(named->get_compile_config_names(), split("zeta alpha", " "));
    const auto old = load(edit(BOARD_09, "0.9", "0.90"));
    EXPECT_EQ(old->get_string_of_board_compile_config_names(), "default");
    EXPECT_EQ(flow(*old, "default"),
              "default|top|top|system.lomb|0|kitforge --component-file=system.lomb "
              "--file-set=FENDRA_SYNTH --output-directory=system/synthesis "
              "--report-file=zrk:system/synthesis/system.zrk --jvm-max-heap-size=3G|0|fendra_sh "
              "--flow compile top|0|auto|||");
}

TEST(BoardSpecXml, ChecksGlobalMemories) {
    expect_loads(BOARD, R"(
 name="DDR" => \ndefault="1" name="DDR" => 6: Unexpected attribute 'default'.
 max_bandwidth="0" =>  => 10: Expected attribute 'max_bandwidth' on element 'global_mem'. + 10: All global memories must have a name when there are more than 1 global memories.
 max_bandwidth="100.5" => \nmax_bandwidth="-1" => 6: Max global memory bandwidth must be non-negative.
 type="shared physical" => \ntype="Shared Physical" => 6: Unrecognized type 'Shared Physical'.
 name="QDR" =>  => 10: All global memories must have a name when there are more than 1 global memories.
<interface name="q"...size="0x800"/> => <interface/> => 11: Expected attribute 'name' on element 'interface'.
<interface name="q"...size="0x800"/> => <interface name=""/> => 11: Expected attribute 'type' on element 'interface'.
<interface name="q"...size="0x800"/> => <interface name="" type=""/> => 11: Expected attribute 'width' on element 'interface'.
<interface name="q"...size="0x800"/> => <interface name="" type="" width=""/> => 11: Expected attribute 'address' on element 'interface'.
<interface name="q"...size="0x800"/> => <interface size="1" address="0x3000" width="8" port="" type="slave" name=""/> => loaded
<interface name="q"...size="0x800"/> =>  => 10: At least one global memory interface must be defined.
"slave" width="64" => "master" width="64" => 11: Global memory interface must be a slave.
"512" address="0x1000" => "256" maxburst="8" address="0x1000" || "1024" address="0x1000" => 5: All global memory interfaces must have the same data width.
"512" address="0x1000" => "512" maxburst="8" address="0x1000" => 5: All global memory interfaces must have the same max burst count.
</global_mem> => <port><x/></port></global_mem> => loaded
<interface name="q" => <global_mem name="N" max_bandwidth="1"/><interface name="q" => 11: At least one global memory interface must be defined.
)");
    const auto single = load(
        edit(edit(BOARD, "<global_mem name=\"QDR\"...</global_mem>", ""), " name=\"DDR\"", ""));
    EXPECT_EQ(split(dump(single->get_global_mem_config()), "\n")[1], "  # interleaved bytes: 1024");
}

TEST(BoardSpecXml, ChecksInterfacesAndChannels) {
    expect_loads(BOARD, R"(
<kernel_clk_reset...</interfaces> => </interfaces> => Missing kernel clock-reset interface (<kernel_clk_reset>).
 clk="k1"...reset="k3" =>  => 19: Expected attribute 'clk' on element 'kernel_clk_reset'.
 port="irq_p" type="irq"/> =>  type="irq"><port name="p" direction="rw"/></interface> => 18: Unexpected element 'port'.
<interface name="net"...chan_id="eth_in"/> => <interface/> => 14: Expected attribute 'name' on element 'interface'.
<interface name="net"...chan_id="eth_in"/> => <interface name=""/> => 14: Expected attribute 'port' on element 'interface'.
<interface name="net"...chan_id="eth_in"/> => <interface name="" port=""/> => 14: Expected attribute 'type' on element 'interface'.
<interface name="net"...chan_id="eth_in"/> => <interface name="" port="" type=""/> => 14: Expected attribute 'width' on element 'interface'.
"streamsource" => "slave" => 14: Channel interface must be a stream.
"eth_in" => "" => 13: Empty channel ID name.
<channels> => <channels><interface name="" port="" type="streamsink" width="1" chan_id="eth_in"/><interface name="" port="" type="streamsink" width="1" chan_id=""/> => 13: Empty channel ID name.
"eth_in" => "eth_out" => 13: Two or more channels share the same channel ID.
"eth_in"/> => "eth_in"><port name="p" direction="r"/></interface> => 14: Unexpected element 'port'.
)");
    expect_loads(BOARD, fill(R"(
 type="master" => \ntype="Slave" => 18: Unrecognized Varnel interface type 'Slave'.
 width="34" => \nwidth="0" => 18: Data width must be > 0.
 maxburst="8" => \nmaxburst="0" => 18: Max burst count must be > 0.
 size="0x100002000" => \nsize="0" => 18: Interface size must be > 0.
 latency_type="fixed" => \nlatency_type="Fixed" => 18: Unrecognized latency type in Varnel interface 'Fixed'.
 sampling_rate="2.5" => \nsampling_rate="0" || \nsampling_rate="-1" => 18: Interface sampling rate must be > 0.
 name="done" port => \nport => 18: Expected attribute 'name' on element 'interface'. + 19: NO_PORT
 name="done" port="irq_p" =>  => 18: Expected attribute 'name' on element 'interface'. + 18: NO_PORT
"irq"/> => "irq"><attribute/></interface> => 18: Unexpected element 'attribute'.
"irq"/> => "irq"><interface><port/></interface></interface> => 18: Unexpected element 'port'.
 name="d0_r" =>  => 7: Expected attribute 'name' on element 'port'. + 6: NO_PORT
 direction="w" => \ndirection="write" => 9: Unrecognized direction in interface port 'write'.
"false" attribute_width => "0" attribute_width => loaded
 hazard_free_attributes="false" => \nhazard_free_attributes="no" => 9: hazard_free_attributes should be a boolean (true or false).
"false" attribute_width => "1"\nattribute_width || "true"\nattribute_width => 9: Cannot specify additional attributes without specifying hazard_free_attributes=false
"7" => "8" => silent
"3"> => "32"> => silent
"r"/> => "r"><attribute/></port> => loaded
 port="q_p"...size="0x800"/> =>  type="slave" width="64" address="0" size="1"><port name="q_p" direction="r" hazard_free_attributes="0" attribute_width="0"><attribute name="z" encoding="1"/></port></interface> => 11: NO_PORT
)",
                             {{"NO_PORT", "At least one port is required in interface "}}));
    // Each attribute in a line of its own, and bad from the i-th on: the first bad one is reported.
    const auto names = split(
        "type width maxburst address size misc latency latency_type waitrequest "
        "waitrequest_allowance bsp_vnmm_write_ack addpipe sampling_rate",
        " ");
    const auto values = split("irq 1 1 1 1 1 1 fixed 1 1 1 1 1", " ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string elem = "<interface name=\"ctl\" port=\"p\"";
        for (std::size_t j = 0; j < names.size(); ++j) {
            elem += "\n" + names[j] + "=\"" + (j < i ? values[j] : "") + "\"";
        }
        const std::string xml = edit(BOARD, "<interface name=\"ctl\".../>", elem + "/>");
        EXPECT_EQ(split(load_outcome<BoardSpecXmlLoader>(xml, false, false), "\n")[0],
                  "Error in '[mem]', line " + std::to_string(18 + i));
    }
    const auto spec = load(edit(BOARD, " attribute_width=\"3\"", ""));
    EXPECT_EQ(spec->get_global_mem_config().get_intf(0).get_port(1)->attributes.size(), 0u);
}

TEST(BoardSpecXmlDeathTest, FilesReachInvariants) {
    const auto loading = [](const char* from, const char* to) {
        return [from, to] { load(edit(BOARD, from, to)); };
    };
    expect_aborts({
        {"size > 0", loading("\"0x100002000\"", "\"0x100000000\"")},
        {"max_bandwidth >= 0.0f", loading("\"100.5\"", "\"nan\"")},
        {"sampling_rate > 0", loading("\"2.5\"", "\"nan\"")},
        {"!m_config->has_generate()", loading("<include", "<generate/><include")},
        {"!m_config->has_synthesis()", loading("<auto_migrate", "<synthesize/><auto_migrate")},
        {"!m_config->has_automigrate()", loading("</compile>", "<auto_migrate/></compile>")},
        {"spec != __null", [] { xml::BoardVisitor(nullptr, nullptr, false, false); }},
    });
    const std::string complete =
        "compile_config->has_automigrate() && compile_config->has_generate() && "
        "compile_config->has_synthesis()";
    expect_aborts({{complete, loading("<generate.../>", "")},
                   {complete, loading("<synthesize.../>", "")},
                   {complete, loading("<auto_migrate...</auto_migrate>", "")}});
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
        std::string ranges;
        for (unsigned n = below(6); n > 0; --n) {
            auto* memory = new GlobalMemConfig;
            spec.add_global_mem_config(memory, false);
            for (unsigned i = below(3); i > 0; --i) {
                auto* intf = new Interface;
                intf->address = below(24) - 2;  // some wrap
                intf->set_size(1 + below(4));
                memory->add_interface(intf);
            }
            ranges += fields(memory->get_min_byte_address(), memory->get_max_byte_address());
        }
        const bool overlap = overlap_by_definition(spec.get_global_mem_configs());
        EXPECT_EQ(has_overlapping_memories(spec.get_global_mem_configs()), overlap) << ranges;
        num_overlapping += overlap ? 1 : 0;
    }
    EXPECT_TRUE(num_overlapping > 1000 && num_overlapping < 9000) << num_overlapping;
}
