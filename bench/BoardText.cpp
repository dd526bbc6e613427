#include "BoardText.h"

#include <string_view>

namespace {

constexpr std::string_view HEAD = R"(<board version="17.1" name="large">
<device device_model="device.xml"><used_resources>
<alms num="1"/><ffs num="1"/><dsps num="1"/><rams num="1"/></used_resources></device>
<host><kernel_config start="0x0" size="0x1000"/></host>
<interfaces>
<interface name="shell" port="control" type="master" width="64"/>
<interface name="shell" port="done" type="irq" width="1"/>
<kernel_clk_reset clk="shell.clk" clk2x="shell.clk2x" reset="shell.reset"/></interfaces>
)";

constexpr std::string_view MEMORY = R"(<global_mem name="mem#" max_bandwidth="34128">
<interface name="shell" port="mem#" type="slave" width="512" maxburst="16" address="0x#000"
           size="0x1000"/>
</global_mem>
)";

constexpr std::string_view CHANNEL =
    R"(<interface name="net" port="lane#" type="streamsource" width="256" chan_id="lane#_in"/>
)";

constexpr std::string_view FLOW =
    R"(<compile name="flow#" project="top" revision="rev#" lomb_file="shell.lomb"
         generic_kernel="1">
<generate cmd="kitforge --component-file=shell.lomb"/>
<synthesize cmd="fendra_sh --flow compile top"/>
<auto_migrate platform_type="none"/></compile>
)";

/// Appends `part` `count` times, each '#' in it replaced by the number of the time, from 0.
void append_numbered(std::string& text, std::string_view part, int count) {
    for (int i = 0; i < count; ++i) {
        for (const char c : part) {
            if (c == '#') {
                text += std::to_string(i);
            } else {
                text += c;
            }
        }
    }
}

}  // namespace

std::string board_text(int count) {
    std::string text(HEAD);
    append_numbered(text, MEMORY, count);
    text += "<channels>\n";
    append_numbered(text, CHANNEL, count);
    text += "</channels>\n";
    append_numbered(text, FLOW, count);
    return text + "</board>\n";
}
