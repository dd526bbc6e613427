#include "TargetModel/Dump.h"
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
 version="0.9" => \nversion="1.0" => 2: Unsupported version string.
 family="peltrab" => \nfamily="PELTRAB" => 2: Unrecognized family option (PELTRAB).
 file="style_a.xml" => \nfile="" => 3: Target Style Model file is empty.
<style_model...style_b.xml"/> =>  => At least one Target Style Model file (<style_model>) must be given.
<local_mem>...</delay_model> =>  => Missing local memory model (<local_mem>) in target model.
<delay_model>...</family_info> =>  => Missing delay model (<delay_model>) in target model.
<family_info>...</family_info> =>  => Missing family model (<family_info>) in target model.
<fmax_degradation>...</fmax_degradation> =>  => 3: Missing fmax degradation <fmax_degradation> model for local memory.
<target_model...</target_model> => <!-- --> => At least one Target Style Model file (<style_model>) must be given.
)",
                                          false);
}

/// TARGET_MODEL with another value of a constant.
static std::string with(const std::string& constant, const std::string& value) {
    return edit(TARGET_MODEL, "<" + constant + " ...\"/>",
                "<" + constant + "\nvalue=\"" + value + "\"/>");
}

static const auto FLOATS = split(
    "group_per_all_rams total_per_all_rams per_coalescing_width per_log2_num_banks per_port_fanin "
    "arb2_data_pipe_spacing arb2_data_pipe_min_depth arb2_stall_pipe_spacing "
    "arb2_stall_pipe_min_depth arb2_pipe_at_output arb2_test_add_latency",
    " ");

TEST(TargetModelXml, ChecksRanges) {
    const auto expect_refused = [](const std::string& name, const char* value, const char* range) {
        const auto above = split(TARGET_MODEL.substr(0, TARGET_MODEL.find("<" + name + " ")), "\n");
        EXPECT_EQ(load_outcome<TargetModelXmlLoader>(with(name, value), false),
                  at(static_cast<int>(above.size()) + 1, "<" + name + "> must be " + range + "."));
    };
    for (const std::string& name : FLOATS) {
        expect_refused(name, "-0.1", "non-negative");
    }
    for (const std::string port : {"single", "dual"}) {
        expect_refused(port + "_port_mem_block_width", "0", "positive");
        expect_refused(port + "_port_mem_block_depth", "0", "positive");
        expect_refused(port + "_port_mem_block_supports_rdw_mode_old_data", "2", "0 or 1");
    }
    expect_refused("bursting_lsu_cache_size_n", "0", "positive");
}

TEST(TargetModelXmlDeathTest, NaNReachesTheModel) {
    for (const std::string& name : FLOATS) {
        const std::string condition = (name[0] == 'a' ? "a" : name) + " >= 0.0f";
        expect_aborts(
            {{condition, [&] { load_outcome<TargetModelXmlLoader>(with(name, "nan"), false); }}});
    }
    expect_aborts({{"tm != __null", [] { xml::TargetModelVisitor(nullptr, nullptr, false); }}});
}
