"""Writes board packages that are large in one respect."""

import pathlib

BOARD = """<?xml version="1.0"?>
<board version="17.1" name="large">
  <device device_model="device.xml">
    <used_resources>
      <alms num="1"/>
      <ffs num="1"/>
      <dsps num="1"/>
      <rams num="1"/>
    </used_resources>
  </device>
{flows}{memories}  <host>
    <kernel_config start="0x0" size="0x1000"/>
  </host>
{channels}  <interfaces>
    <interface name="shell" port="control" type="master" width="64"/>
    <interface name="shell" port="done" type="irq" width="1"/>
    <kernel_clk_reset clk="shell.clk" clk2x="shell.clk2x" reset="shell.reset"/>
  </interfaces>
</board>
"""

DEVICE = """<?xml version="1.0"?>
<device_model version="0.9" target_model="target.xml">
  <fmax expected="260" min="140" high="200"/>
  <resources>
    <alms num="318000"/>
    <ffs num="1272000"/>
    <dsps num="1536"/>
    <rams num="2440"/>
  </resources>
</device_model>
"""

TARGET = """<?xml version="1.0"?>
<target_model version="0.9" family="peltrab">
{styles}  <local_mem>
    <single_port_mem_block_width value="40"/>
    <single_port_mem_block_depth value="512"/>
    <dual_port_mem_block_width value="40"/>
    <dual_port_mem_block_depth value="512"/>
    <bursting_lsu_cache_size_n value="9"/>
    <single_port_mem_block_supports_rdw_mode_old_data value="1"/>
    <dual_port_mem_block_supports_rdw_mode_old_data value="0"/>
    <fmax_degradation>
      <group_per_all_rams value="62.5"/>
      <total_per_all_rams value="18.25"/>
      <per_coalescing_width value="0.75"/>
      <per_log2_num_banks value="3.5"/>
      <per_port_fanin value="1.5"/>
    </fmax_degradation>
  </local_mem>
  <global_interconnect>
    <arb2_data_pipe_spacing value="4"/>
    <arb2_data_pipe_min_depth value="2"/>
    <arb2_stall_pipe_spacing value="8"/>
    <arb2_stall_pipe_min_depth value="3"/>
    <arb2_pipe_at_output value="1"/>
    <arb2_test_add_latency value="0"/>
  </global_interconnect>
  <delay_model>
    <alm_delay_ps value="310"/>
    <routing_delay_ps value="640"/>
  </delay_model>
  <family_info>
    <bits_per_alm value="640"/>
    <lut_inputs value="6"/>
    <mux_inputs value="4"/>
    <preferred_dsp_dot_size value="2"/>
    <block_ram_name value="RB20"/>
    <alm_rom_name value="mlab20"/>
  </family_info>
</target_model>
"""


def flow(number):
    return f"""  <compile name="flow{number}" project="top" revision="rev{number}"
           lomb_file="shell.lomb" generic_kernel="1">
    <generate cmd="kitforge --component-file=shell.lomb"/>
    <synthesize cmd="fendra_sh --flow compile top"/>
    <auto_migrate platform_type="none"/>
  </compile>
"""


def slave(number):
    return (f'    <interface name="shell" port="mem{number}" type="slave" width="512" maxburst="16"'
            f' address="0x{number * 4096:x}" size="0x1000" latency="240"/>\n')


def memory(number):
    return f"""  <global_mem name="mem{number}" max_bandwidth="34128" interleaved_bytes="1024">
{slave(number)}  </global_mem>
"""


def memory_of(interfaces):
    return f'  <global_mem name="mem" max_bandwidth="34128">\n{interfaces}  </global_mem>\n'


def ported(ports):
    return memory_of('    <interface name="shell" type="slave" width="512" maxburst="16"'
                     f' address="0x0" size="0x1000" latency="240">\n{ports}    </interface>\n')


def port(number):
    return f'      <port name="port{number}" direction="{"rw"[number % 2]}"/>\n'


def channel(number):
    return (f'    <interface name="net" port="lane{number}" type="streamsource" width="256"'
            f' chan_id="lane{number}_in"/>\n')


def style(number):
    return f'  <style_model file="style{number}.xml"/>\n'


def many(part, count):
    return "".join(map(part, range(count)))


# What there is many of: which text of the package holds it, and the question asked.
FAMILIES = {
    "channels": (lambda n: {"channels": f"  <channels>\n{many(channel, n)}  </channels>\n"},
                 "channelnames"),
    "memories": (lambda n: {"memories": many(memory, n)}, "globalmemnames"),
    "interfaces": (lambda n: {"memories": memory_of(many(slave, n))}, "name"),
    "ports": (lambda n: {"memories": ported(many(port, n))}, "name"),
    "flows": (lambda n: {"flows": many(flow, n)}, "revision:flow{last}"),
    "styles": (lambda n: {"styles": many(style, n)}, "name"),
}


def write(folder, family, count):
    """Writes a package with `count` of a family into a new folder.

    Returns its files in the order of loading, and the question to ask.
    """
    parts, command = FAMILIES[family]
    texts = {"flows": flow(0), "memories": memory(0), "channels": "", "styles": style(0)}
    texts |= parts(count)
    folder = pathlib.Path(folder, f"{family}-{count}")
    folder.mkdir(parents=True)
    files = []
    for name, text in ("board_spec", BOARD), ("device", DEVICE), ("target", TARGET):
        files.append(str(folder / f"{name}.xml"))
        pathlib.Path(files[-1]).write_text(text.format(**texts), encoding="ascii")
    return files, command.format(last=count - 1)
