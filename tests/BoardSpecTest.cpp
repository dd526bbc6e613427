#include "BoardSpec/BoardSpec.h"

#include <stdexcept>

#include "BoardSpec/Dump.h"
#include "Testing.h"

using namespace vemo::board;

static Interface* new_interface(unsigned address, unsigned size, unsigned width = 64) {
    auto* intf = new Interface;
    intf->address = address;
    intf->set_size(size);
    intf->set_data_width(width);
    return intf;
}

static GlobalMemConfig* new_memory(const std::string& name) {
    auto* gmc = new GlobalMemConfig;
    gmc->name = name;
    return gmc;
}

TEST(BoardSpec, StartsEmpty) {
    const BoardSpec spec;
    EXPECT_EQ(spec.num_compile_configs() + spec.get_num_global_mem_definitions(), 0u);
    EXPECT_EQ(spec.get_string_of_board_compile_config_names(), "");
    EXPECT_FALSE(spec.is_valid_global_mem_interface(""));
    EXPECT_EQ(dump(spec),
              "Board specification (v0):\n  Name: \nDevice configuration: <null>\n"
              "Global memory configuration: <null>\nHost configuration: <null>\n"
              "Interface configuration: <null>\nChannel configuration: <null>");
}

TEST(BoardSpec, KeepsFlowsByNameAndInOrder) {
    BoardSpec spec;
    auto* second = new CompileConfig;
    spec.set_compile_config(new CompileConfig, "zeta");
    spec.set_compile_config(new CompileConfig, "alpha");
    spec.set_compile_config(second, "alpha");
    EXPECT_EQ(&spec.get_compile_config("alpha"), second);
    EXPECT_EQ(&std::as_const(spec).get_compile_config("alpha"), second);
    EXPECT_EQ(spec.num_compile_configs(), 2u);
    EXPECT_EQ(spec.get_compile_config_names(),
              (std::vector<std::string>{"zeta", "alpha", "alpha"}));
    EXPECT_EQ(spec.get_string_of_board_compile_config_names(), "alpha, zeta");
}

TEST(BoardSpec, FindsGlobalMemories) {
    BoardSpec spec;
    auto* later = new_memory("A");
    spec.add_global_mem_config(new_memory("A"), false);
    spec.add_global_mem_config(new_memory("B"), true);
    spec.add_global_mem_config(new_memory("C"), false);
    spec.add_global_mem_config(later, false);
    std::string names = ">";
    spec.get_string_of_board_global_interface_names(names);
    EXPECT_EQ(names, ">B, A, C, A");
    EXPECT_EQ(spec.get_num_global_mem_definitions(), 4u);
    EXPECT_EQ(spec.get_global_mem_config().name, "B");
    EXPECT_EQ(&spec.get_global_mem_config("A"), later);
    EXPECT_EQ(&std::as_const(spec).get_global_mem_config("A"), later);
    EXPECT_TRUE(spec.is_default_global_mem("B"));
    EXPECT_FALSE(spec.is_default_global_mem("A"));
    EXPECT_TRUE(spec.is_valid_global_mem_interface("B"));
    EXPECT_FALSE(spec.is_valid_global_mem_interface("c"));
    spec.add_global_mem_config(new_memory("D"), true);
    EXPECT_EQ(std::as_const(spec).get_global_mem_config().name, "D");
}

TEST(BoardSpec, ReplacesParts) {
    BoardSpec spec;
    for (int i = 0; i < 2; ++i) {  // the leak checker watches the first ones
        auto* device = new DeviceConfig;
        device->set_used_resources(new vemo::dmodel::DeviceResources);
        device->set_used_resources(new vemo::dmodel::DeviceResources);
        spec.set_device_config(device);
        spec.set_host_config(new HostConfig);
        spec.set_channel_config(new ChannelConfig);
        auto* interfaces = new InterfaceConfig;
        interfaces->set_kernel_clk_reset(new KernelClkReset);
        interfaces->set_kernel_clk_reset(new KernelClkReset);
        spec.set_interface_config(interfaces);
        EXPECT_EQ(&spec.get_device_config(), device);
    }
}

TEST(GlobalMemConfig, DerivesFiguresFromInterfaces) {
    GlobalMemConfig gmc;
    EXPECT_EQ(gmc.get_min_byte_address() + gmc.get_max_byte_address(), 0u);
    gmc.interleaved_bytes = 4096;
    gmc.add_interface(new_interface(0x1000, 1u << 30));
    EXPECT_EQ(gmc.get_num_interleaved_bytes(), 1u << 30);
    gmc.add_interface(new_interface(0, 0x1000));
    EXPECT_EQ(fields(gmc.get_num_interleaved_bytes(), gmc.get_min_byte_address(),
                     gmc.get_max_byte_address(), gmc.get_data_width_bits(),
                     gmc.get_data_width_bytes(), gmc.get_max_burst_count()),
              "4096|4096|1073745919|64|8|1|");
    gmc.interleaved_bytes = 0;
    EXPECT_EQ(gmc.get_num_interleaved_bytes(), 1u << 30);
    GlobalMemConfig wrapping;
    wrapping.add_interface(new_interface(0xfffffff0, 0x20));
    EXPECT_EQ(wrapping.get_max_byte_address(), 0xfu);
}

TEST(Interface, StartsWithDefaultsAndTakesPorts) {
    Interface intf;
    EXPECT_EQ(
        fields(intf.get_type(), intf.get_data_width(), intf.get_max_burst_count(), intf.get_size(),
               intf.latency, intf.latency_type, intf.get_num_ports(), intf.has_separate_rw_ports()),
        "<unknown>(5)|0|1|0|240|0|0|0|");
    intf.add_port("both", Port::ReadWrite);
    intf.add_port("in", Port::Read);
    EXPECT_FALSE(intf.has_separate_rw_ports());
    Port out;
    out.direction = Port::Write;
    intf.add_port(&out);
    EXPECT_TRUE(intf.has_separate_rw_ports());
    EXPECT_EQ(intf.get_port(2), &out);
    intf.add_port("odd", static_cast<Port::Direction>(3));
    EXPECT_EQ(fields(intf.get_port_name(1), intf.get_port_direction(1), intf.get_port_direction(3)),
              "in|1|0|");
    Interface sink;
    sink.add_port("out", Port::Write);
    EXPECT_FALSE(sink.has_separate_rw_ports());
}

TEST(Port, KeepsAttributesThatFit) {
    Port port;
    EXPECT_TRUE(port.set_attribute("z", 0));
    EXPECT_FALSE(port.set_attribute("z", 1));
    port.attribute_width = 4;
    EXPECT_TRUE(port.set_attribute("a", 3));
    EXPECT_TRUE(port.set_attribute("a", 15));
    EXPECT_FALSE(port.set_attribute("a", 16));
    EXPECT_EQ(port.get_attribute("a"), 15u);
    port.attribute_width = 31;
    EXPECT_TRUE(port.set_attribute("b", 0x7fffffff));
    port.attribute_width = 32;
    EXPECT_FALSE(port.set_attribute("b", 0));
    EXPECT_THROW(port.get_attribute("c"), std::out_of_range);
}

TEST(BoardSpecDump, WritesWhatTheReadersCannotGive) {
    EXPECT_EQ(fields(BoardSpec::Version{0.0f}, BoardSpec::Version{0.9f}, Interface::StreamSink,
                     static_cast<Interface::Type>(-1), InterfaceConfig(), DeviceConfig()),
              "<unknown>(0)|0.9|stream-sink|<unknown>(-1)|"
              "Interface configuration:\n  Kernel clock-reset: <null>|"
              "Device configuration:\n  Device model file: \n  Used resources: <null>|");
    std::ostringstream text;
    text << HostConfig() << " " << 26;
    EXPECT_EQ(text.str(),
              "Host configuration:\n  Kernel configuration start: 0x00000000\n"
              "  Kernel configuration size:  0x00000000 26");
    EXPECT_EQ(text.fill(), '0');
}

TEST(BoardSpecDeathTest, PartsMustBeThere) {
    const auto expect_missing = [](auto& spec, auto& device, auto& interfaces) {
        expect_aborts({
            {"m_device_config != __null", [&] { spec.get_device_config(); }},
            {"m_host_config != __null", [&] { spec.get_host_config(); }},
            {"m_channel_config != __null", [&] { spec.get_channel_config(); }},
            {"m_interface_config != __null", [&] { spec.get_interface_config(); }},
            {"iter != m_compile_configs.end()", [&] { spec.get_compile_config(""); }},
            {"!m_global_mem_configs.empty()", [&] { spec.get_global_mem_config(); }},
            {"index < m_global_mem_configs.size()", [&] { spec.get_global_mem_config(""); }},
            {"m_used_resources != __null", [&] { device.get_used_resources(); }},
            {"m_kernel_clk_reset != __null", [&] { interfaces.get_kernel_clk_reset(); }},
        });
    };
    BoardSpec spec;
    DeviceConfig device;
    InterfaceConfig interfaces;
    GlobalMemConfig gmc;
    Interface intf;
    expect_missing(spec, device, interfaces);
    expect_missing(std::as_const(spec), std::as_const(device), std::as_const(interfaces));
    expect_aborts({
        {"!m_global_mem_configs.empty()", [&] { spec.is_default_global_mem(""); }},
        {"device_config != __null", [&] { spec.set_device_config(nullptr); }},
        {"host_config != __null", [&] { spec.set_host_config(nullptr); }},
        {"channel_config != __null", [&] { spec.set_channel_config(nullptr); }},
        {"interface_config != __null", [&] { spec.set_interface_config(nullptr); }},
        {"compile_config != __null", [&] { spec.set_compile_config(nullptr, ""); }},
        {"gmc != __null", [&] { spec.add_global_mem_config(nullptr, false); }},
        {"used_resources != __null", [&] { device.set_used_resources(nullptr); }},
        {"kernel_clk_reset != __null", [&] { interfaces.set_kernel_clk_reset(nullptr); }},
        {"intf != __null", [&] { gmc.add_interface(nullptr); }},
        {"i < m_interfaces.size()", [&] { gmc.get_intf(0); }},
        {"get_num_intfs() > 0", [&] { gmc.get_max_burst_count(); }},
        {"get_num_intfs() > 0", [&] { gmc.get_data_width_bits(); }},
        {"get_num_intfs() > 0", [&] { gmc.get_num_interleaved_bytes(); }},
        {"port != __null", [&] { intf.add_port(nullptr); }},
        {"port < m_port.size()", [&] { intf.get_port_name(0); }},
    });
}

TEST(BoardSpecDeathTest, FiguresAreInRange) {
    GlobalMemConfig gmc;
    gmc.add_interface(new_interface(0, 1, 36));
    Interface intf;
    expect_aborts({{"(data_width_bits % 8) == 0", [&] { gmc.get_data_width_bytes(); }}});
    gmc.add_interface(new_interface(0, 1, 64));
    gmc.get_interfaces()[1]->set_max_burst_count(2);
    expect_aborts({
        {"intf->get_max_burst_count() == max_burst_count", [&] { gmc.get_max_burst_count(); }},
        {"intf->get_data_width() == data_width", [&] { gmc.get_data_width_bits(); }},
        {"max_bandwidth >= 0.0f", [&] { gmc.set_max_bandwidth(-1); }},
        {"type >= 0 && type < TypeCount", [&] { gmc.set_type(GlobalMemConfig::TypeCount); }},
        {"type >= 0 && type < TypeCount", [&] { intf.set_type(Interface::TypeCount); }},
        {"data_width > 0", [&] { intf.set_data_width(0); }},
        {"max_burst_count > 0", [&] { intf.set_max_burst_count(0); }},
        {"size > 0", [&] { intf.set_size(0); }},
        {"sampling_rate > 0", [&] { intf.set_sampling_rate(0); }},
        {"size > 0", [] { HostConfig().set_kernel_config_size(0); }},
    });
}
