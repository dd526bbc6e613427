#include "TargetModelXml/DelayModelVisitor.h"
#include "TargetModelXml/FamilyModelVisitor.h"
#include "TargetModelXml/GlobalInterconnectVisitor.h"
#include "TargetModelXml/LocalMemVisitor.h"
#include "TargetModelXml/TargetModelVisitor.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::tmodel;

TEST(TargetModelXml, ReadsEveryField) {
    const std::unique_ptr<TargetModel> tm(
        TargetModelXmlLoader(false).load_xml(TARGET_MODEL.c_str()));
    const LocalMemModel& mem = tm->get_local_mem_model();
    std::ostringstream text;
    text << *tm << mem.get_dual_port_mem_block_supports_rdw_mode_old_data() << "\n"
         << tm->get_global_interconnect_model() << "\n"
         << tm->get_delay_model() << "\n"
         << tm->get_family_model() << "\n";
    EXPECT_EQ(
        text.str(),
        "Target model (v0.9):\n  Family: peltrab\n  Target Style Models:\n    style_a.xml\n    "
        "style_b.xml\n"
        "Local memory model:\n  Single port memory block width: 41\n  Single port memory block "
        "depth: 42\n"
        "  Dual port memory block width: 43\n  Dual port memory block depth: 44\n  Bursting LSU "
        "cache size N: 45\n"
        "  Single port memory block supports RDW_MODE OLD_DATA: 0\n  Dual port memory block "
        "supports RDW_MODE OLD_DATA: 0\n"
        "Local memory fmax degradation model:\n  group per all rams: 51\n  total per all rams: "
        "52.5\n  per coalescing width: 53\n  per log2 num banks: 54\n  per port fanin: 0\n1\n"
        "Global Interconnect model:\n  arb2_data_pipe_spacing: 61\n  arb2_data_pipe_min_depth: "
        "62\n  arb2_stall_pipe_spacing: 63\n  arb2_stall_pipe_min_depth: 64\n  "
        "arb2_pipe_at_output: 0  arb2_test_add_latency: 66.5\n"
        "Target delay model:\n  ALM delay (ps): 71\n  routing delay (ps): 0\n"
        "Target family model:\n  bits per ALM: 81\n  number of LUT inputs: 82\n  number of MUX "
        "inputs: 83\n  preferred DSP dot size: 84\n  block RAM name: BR\n  ALM ROM name: AR\n");
}

TEST(TargetModelXml, ReportsErrors) {
    expect_outcomes<TargetModelXmlLoader>(TARGET_MODEL, R"(
"0.9" => "1.0" => 1: Unsupported version string.
peltrab => PELTRAB => 1: Unrecognized family option (PELTRAB).
"style_a.xml" => \n"" => 2: Target Style Model file is empty.
<style_model...style_b.xml"/> =>  => At least one Target Style Model file (<style_model>) must be given.
<local_mem>...</delay_model> =>  => Missing local memory model (<local_mem>) in target model.
<global_interconnect>...</global_interconnect> =>  => loaded
<delay_model>...</family_info> =>  => Missing delay model (<delay_model>) in target model.
<family_info>...</family_info> =>  => Missing family model (<family_info>) in target model.
<fmax_degradation>...</fmax_degradation> =>  => 3: Missing fmax degradation <fmax_degradation> model for local memory.
"71" => "0" => loaded
"BR" => "" => loaded
<target_model...</target_model> => <!-- --> => At least one Target Style Model file (<style_model>) must be given.
)",
                                          false);
}

TEST(TargetModelXml, ChecksRanges) {
    // Constants, with a value each that they refuse.
    const std::string names[] = {
        "single_port_mem_block_width single_port_mem_block_depth dual_port_mem_block_width "
        "dual_port_mem_block_depth bursting_lsu_cache_size_n = 0 = positive",
        "single_port_mem_block_supports_rdw_mode_old_data "
        "dual_port_mem_block_supports_rdw_mode_old_data = 2 = 0 or 1",
        "group_per_all_rams total_per_all_rams per_coalescing_width per_log2_num_banks "
        "per_port_fanin arb2_data_pipe_spacing arb2_data_pipe_min_depth arb2_stall_pipe_spacing "
        "arb2_stall_pipe_min_depth arb2_pipe_at_output arb2_test_add_latency = -0.1 = "
        "non-negative"};
    for (const std::string& line : names) {
        const std::vector<std::string> parts = split(line, " = ");
        for (const std::string& name : split(parts[0], " ")) {
            const std::string xml = edit(TARGET_MODEL, "<" + name + " ...\"/>",
                                         "<" + name + " value=\"" + parts[1] + "\"/>");
            const std::string outcome = load_outcome<TargetModelXmlLoader>(xml, false);
            EXPECT_EQ(outcome.substr(outcome.find('\n')),
                      "\n<" + name + "> must be " + parts[2] + ".\n");
        }
    }
}

TEST(TargetModelXmlDeathTest, InvariantsAreGuarded) {
    vemo::xml::BaseVisitor parent(nullptr, false);
    const auto load_nan = [](const char* constant) {
        load_outcome<TargetModelXmlLoader>(edit(TARGET_MODEL, std::string(constant), "\"nan\""),
                                           false);
    };
    expect_aborts({
        {"tm != __null", [] { xml::TargetModelVisitor(nullptr, nullptr, false); }},
        {"tm != __null", [&] { xml::LocalMemVisitor(&parent, nullptr); }},
        {"tm != __null", [&] { xml::GlobalInterconnectVisitor(&parent, nullptr); }},
        {"tm != __null", [&] { xml::DelayModelVisitor(&parent, nullptr); }},
        {"tm != __null", [&] { xml::FamilyModelVisitor(&parent, nullptr); }},
        {"total_per_all_rams >= 0.0f", [&] { load_nan("\"52.5\""); }},
        {"a >= 0.0f", [&] { load_nan("\"66.5\""); }},
    });
}
