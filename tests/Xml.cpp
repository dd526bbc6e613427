#include "Xml.h"

#include <cstdlib>
#include <stdexcept>

const std::string BOARD = R"(<board version="17.1" name="acme">
<device device_model="dev.xml"><used_resources>
<alms num="11"/><ffs num="12"/><dsps num="13"/><rams num="14"/>
</used_resources></device>
<global_mem name="DDR" max_bandwidth="100.5" type="shared physical" interleaved_bytes="0x500000400" config_addr="0x700000018">
<interface name="d0" type="slave" width="512" address="0x0" size="0x1000">
<port name="d0_r" direction="r"/>
<port name="d0_w" direction="w" hazard_free_attributes="false" attribute_width="3"><attribute name="burst" encoding="7"/></port></interface>
<interface name="d1" port="d1_p" type="slave" width="512" address="0x1000" size="0x1000"/></global_mem>
<global_mem name="QDR" max_bandwidth="0">
<interface name="q" port="q_p" type="slave" width="64" maxburst="4" address="0x2000" size="0x800"/></global_mem>
<host><kernel_config start="0x100" size="0x20"/></host>
<channels>
<interface name="net" port="rx" type="streamsource" width="32" chan_id="eth_in"/>
<interface name="net" port="tx" type="streamsink" width="33" chan_id="eth_out"/></channels>
<interfaces>
<interface name="ctl" port="ctl_p" type="master" width="34" maxburst="8" address="0x90000ab00" size="0x100002000" chan_id="cid" enable="en" clock="ck" misc="7" latency="99" latency_type="fixed" waitrequest="5" waitrequest_allowance="6" bsp_vnmm_write_ack="2" addpipe="9" sampling_rate="2.5"/>
<interface name="done" port="irq_p" type="irq"/>
<kernel_clk_reset clk="k1" clk2x="k2" reset="k3"/></interfaces>
<compile name="zeta" project="top1" revision="rev1" lomb_file="sys1.lomb" generic_kernel="true">
<generate cmd="gen1" additional_args=""/><synthesize cmd="syn1 &amp;&amp;  echo &quot;x&quot;" additional_args="0"/>
<auto_migrate platform_type="auto"><include fixes="in1"/><exclude fixes="ex1"/></auto_migrate></compile>
<compile name="alpha" project="top2" revision="rev2" lomb_file="sys2.lomb" generic_kernel="false">
<generate cmd="gen2"/><synthesize cmd="syn2" additional_args="1"/><auto_migrate platform_type="pb_net"/></compile>
</board>)";
const std::string BOARD_14 =
    edit(edit(BOARD, "<compile name=\"alpha\"...</compile>", ""), "17.1", "14.1");
const std::string BOARD_09 = edit(edit(BOARD_14, "<compile...</compile>", ""), "14.1", "0.9");

const std::string DEVICE_MODEL = R"(<device_model version="0.9" target_model="tm.xml">
<fmax expected="240.5" min="150" high="180"/>
<resources>
<alms num="21"/><ffs num="22"/><dsps num="23"/><rams num="24"/></resources>
</device_model>)";

const std::string TARGET_MODEL = R"(<target_model version="0.9" family="peltrab">
<style_model file="style_a.xml"/><style_model file="style_b.xml"/>
<local_mem>
<single_port_mem_block_width value="41"/><single_port_mem_block_depth value="42"/><dual_port_mem_block_width value="43"/>
<dual_port_mem_block_depth value="44"/><bursting_lsu_cache_size_n value="45"/>
<single_port_mem_block_supports_rdw_mode_old_data value="0"/><dual_port_mem_block_supports_rdw_mode_old_data value="1"/>
<fmax_degradation><group_per_all_rams value="51"/><total_per_all_rams value="52.5"/><per_coalescing_width value="53"/>
<per_log2_num_banks value="54"/><per_port_fanin value="0"/></fmax_degradation></local_mem>
<global_interconnect><arb2_data_pipe_spacing value="61"/><arb2_data_pipe_min_depth value="62"/><arb2_stall_pipe_spacing value="63"/>
<arb2_stall_pipe_min_depth value="64"/><arb2_pipe_at_output value="0"/><arb2_test_add_latency value="66.5"/></global_interconnect>
<delay_model><alm_delay_ps value="71"/><routing_delay_ps value="0"/></delay_model>
<family_info><bits_per_alm value="81"/><lut_inputs value="82"/><mux_inputs value="83"/><preferred_dsp_dot_size value="84"/>
<block_ram_name value="BR"/><alm_rom_name value="AR"/></family_info></target_model>)";

std::string edit(std::string text, const std::string& from, const std::string& to) {
    const std::size_t gap = from.find("...");
    const std::string head = from.substr(0, gap);
    const std::string tail = gap == std::string::npos ? "" : from.substr(gap + 3);
    const std::size_t begin = text.find(head);
    const std::size_t end = text.find(tail, begin + head.size());
    if (begin == std::string::npos || end == std::string::npos) {
        throw std::logic_error("not in the document: " + from);
    }
    return text.replace(begin, end + tail.size() - begin, to);
}

std::string at(int line, const std::string& message) {
    const std::string place = line == 0 ? ":" : ", line " + std::to_string(line);
    return "Error in '[mem]'" + place + "\n" + message + "\n";
}

static std::string expand_outcome(const std::string& outcome) {
    if (outcome == "loaded" || outcome == "silent") {
        return outcome == "silent" ? "" : outcome;
    }
    std::string texts;
    for (const std::string& report : split(outcome, " + ")) {
        const int line = static_cast<int>(std::strtol(report.c_str(), nullptr, 10));
        texts += at(line, line == 0 ? report : report.substr(report.find(": ") + 2));
    }
    return texts;
}

std::vector<Case> parse_cases(const std::string& lines) {
    std::vector<Case> cases;
    for (const std::string& line : split(lines, "\n")) {
        if (line.empty()) {
            continue;
        }
        const std::vector<std::string> parts = split(line, " => ");
        for (const std::string& from : split(parts.at(0), " || ")) {
            for (const std::string& to : split(parts.at(1), " || ")) {
                cases.push_back({from, fill(to, {{"\\n", "\n"}}), expand_outcome(parts.at(2))});
            }
        }
    }
    return cases;
}
