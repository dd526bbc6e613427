#include "BoardSpec/BoardSpec.h"

#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "BoardSpec/Dump.h"
#include "Testing.h"

using namespace vemo::board;

static GlobalMemConfig* add_memory(BoardSpec& spec, const std::string& name, bool is_default) {
    auto* gmc = new GlobalMemConfig;
    gmc->name = name;
    spec.add_global_mem_config(gmc, is_default);
    return gmc;
}

static void add_interface(GlobalMemConfig& gmc, unsigned address, unsigned size, unsigned width) {
    auto* intf = new Interface;
    gmc.add_interface(intf);
    intf->address = address;
    intf->set_size(size);
    intf->set_data_width(width);
}

TEST(BoardSpecDump, DependsOnNoLocaleOrPrecision) {
    struct Grouping : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::ostringstream os;
    os.imbue(std::locale(std::locale::classic(), new Grouping));
    os << std::setprecision(2) << std::showbase << std::uppercase;
    HostConfig host;
    host.kernel_config_start = 0xabcdef;
    host.set_kernel_config_size(1);
    BoardSpec spec;
    spec.version = 17.25f;
    os << spec.version << " " << spec << " " << host;
    EXPECT_EQ(split(os.str(), "Name:")[0], "17.25 Board specification (v17.25):\n  ");
    EXPECT_EQ(split(os.str(), "start: ")[1],
              "0x00abcdef\n  Kernel configuration size:  0x00000001");
    EXPECT_EQ(os.fill(), '0');
}

TEST(BoardSpec, StartsEmpty) {
    EXPECT_EQ(dump(BoardSpec()),
              "Board specification (v0):\n  Name: \nDevice configuration: <null>\n"
              "Global memory configuration: <null>\nHost configuration: <null>\n"
              "Interface configuration: <null>\nChannel configuration: <null>");
    EXPECT_FALSE(BoardSpec().is_valid_global_mem_interface(""));
}

TEST(BoardSpec, KeepsFlowsByNameAndInOrder) {
    BoardSpec spec;
    auto* second = new CompileConfig;
    spec.set_compile_config(new CompileConfig, "zeta");
    spec.set_compile_config(new CompileConfig, "alpha");
    spec.set_compile_config(second, "alpha");
    EXPECT_EQ(&spec.get_compile_config("alpha"), second);
    EXPECT_EQ(&std::as_const(spec).get_compile_config("alpha"), second);
    EXPECT_EQ(spec.get_compile_config_names(), split("zeta alpha alpha", " "));
    EXPECT_EQ(spec.get_string_of_board_compile_config_names(), "alpha, zeta");
}

TEST(BoardSpec, FindsGlobalMemories) {
    BoardSpec spec;
    add_memory(spec, "A", false);
    add_memory(spec, "B", true);
    add_memory(spec, "C", false);
    auto* later = add_memory(spec, "A", false);
    std::string names = ">";
    spec.get_string_of_board_global_interface_names(names);
    EXPECT_EQ(names, ">B, A, C, A");
    EXPECT_EQ(&spec.get_global_mem_config("A"), later);
    EXPECT_EQ(&std::as_const(spec).get_global_mem_config("A"), later);
    EXPECT_TRUE(spec.is_default_global_mem("B") && spec.is_valid_global_mem_interface("B"));
    EXPECT_FALSE(spec.is_default_global_mem("A") || spec.is_valid_global_mem_interface("c"));
    auto* first = add_memory(spec, "D", true);
    EXPECT_EQ(&spec.get_global_mem_config(), first);
    EXPECT_EQ(&std::as_const(spec).get_global_mem_config(), first);
}

TEST(GlobalMemConfig, DerivesFiguresFromInterfaces) {
    GlobalMemConfig gmc;
    EXPECT_EQ(gmc.get_min_byte_address() + gmc.get_max_byte_address(), 0u);
    EXPECT_EQ(gmc.interleaved_bytes, 0u);
    gmc.interleaved_bytes = 4096;
    add_interface(gmc, 0x1000, 1u << 30, 64);
    EXPECT_EQ(gmc.get_num_interleaved_bytes(), 1u << 30);
    add_interface(gmc, 0, 0x1000, 64);
    EXPECT_EQ(gmc.get_num_interleaved_bytes(), 4096u);
    EXPECT_EQ(gmc.get_min_byte_address(), 0x1000u);  // the first interface's, not the least
    EXPECT_EQ(gmc.get_max_byte_address(), 0x40000fffu);
    EXPECT_EQ(gmc.get_data_width_bits(), 64u);
    EXPECT_EQ(gmc.get_data_width_bytes(), 8u);
    EXPECT_EQ(gmc.get_max_burst_count(), 1u);
    gmc.interleaved_bytes = 0;
    EXPECT_EQ(gmc.get_num_interleaved_bytes(), 1u << 30);
    GlobalMemConfig wrapping;
    add_interface(wrapping, 0xfffffff0, 0x20, 8);
    EXPECT_EQ(wrapping.get_max_byte_address(), 0xfu);
}

TEST(Interface, TakesPorts) {
    Interface intf;
    EXPECT_EQ(intf.get_type(), Interface::TypeCount);
    EXPECT_EQ(intf.get_max_burst_count(), 1u);
    EXPECT_EQ(intf.get_size(), 0u);
    EXPECT_EQ(intf.latency, 240u);
    EXPECT_EQ(intf.get_num_ports(), 0u);
    intf.add_port("both", Port::ReadWrite);
    intf.add_port("in", Port::Read);
    EXPECT_FALSE(intf.has_separate_rw_ports());
    Port out;
    out.direction = Port::Write;
    intf.add_port(&out);
    EXPECT_TRUE(intf.has_separate_rw_ports());
    EXPECT_EQ(intf.get_port(2), &out);
    intf.add_port("odd", static_cast<Port::Direction>(3));
    EXPECT_EQ(intf.get_port_name(1), "in");
    EXPECT_EQ(intf.get_port_direction(1), Port::Read);
    EXPECT_EQ(intf.get_port_direction(3), Port::ReadWrite);
    Interface sink;
    sink.add_port("out", Port::Write);
    EXPECT_FALSE(sink.has_separate_rw_ports());
}

TEST(Port, KeepsAttributesThatFit) {
    Port port;
    EXPECT_TRUE(port.set_attribute("z", 0) && !port.set_attribute("z", 1));
    port.attribute_width = 4;
    EXPECT_TRUE(port.set_attribute("a", 3) && port.set_attribute("a", 15));
    EXPECT_FALSE(port.set_attribute("a", 16));
    EXPECT_EQ(port.get_attribute("a"), 15u);
    port.attribute_width = 31;
    EXPECT_TRUE(port.set_attribute("b", 0x7fffffff));
    port.attribute_width = 32;
    EXPECT_FALSE(port.set_attribute("b", 0));
    EXPECT_THROW(port.get_attribute("c"), std::out_of_range);
}

TEST(BoardSpecDump, WritesWhatNoFileGives) {
    EXPECT_EQ(dump(BoardSpec::Version{0.0f}), "<unknown>(0)");
    EXPECT_EQ(dump(BoardSpec::Version{17.0625f}), "17.0625");
    EXPECT_EQ(dump(static_cast<Interface::Type>(-1)), "<unknown>(-1)");
    EXPECT_EQ(dump(Interface::TypeCount), "<unknown>(5)");
    EXPECT_EQ(dump(InterfaceConfig()), "Interface configuration:\n  Kernel clock-reset: <null>");
    EXPECT_EQ(dump(DeviceConfig()),
              "Device configuration:\n  Device model file: \n  Used resources: <null>");
    std::ostringstream text;
    text << HostConfig() << " " << 26;
    EXPECT_EQ(text.str(),
              "Host configuration:\n  Kernel configuration start: 0x00000000\n  Kernel "
              "configuration size:  0x00000000 26");
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
    expect_missing(spec, device, interfaces);
    expect_missing(std::as_const(spec), std::as_const(device), std::as_const(interfaces));
    expect_aborts({
        {"i < m_interfaces.size()", [&] { interfaces.get_intf(0); }},
        {"i < m_interfaces.size()", [&] { ChannelConfig().get_intf(0); }},
        {"i < m_interfaces.size()", [&] { GlobalMemConfig().get_intf(0); }},
        {"get_num_intfs() > 0", [&] { GlobalMemConfig().get_max_burst_count(); }},
        {"get_num_intfs() > 0", [&] { GlobalMemConfig().get_data_width_bits(); }},
        {"get_num_intfs() > 0", [&] { GlobalMemConfig().get_num_interleaved_bytes(); }},
        {"port < m_port.size()", [&] { Interface().get_port_name(0); }},
        {"port < m_port.size()", [&] { Interface().get_port_direction(0); }},
        {"port < m_port.size()", [&] { Interface().get_port(0); }},
    });
}

TEST(BoardSpecDeathTest, PartsAreNotNull) {
    BoardSpec spec;
    expect_aborts({
        {"device_config != __null", [&] { spec.set_device_config(nullptr); }},
        {"compile_config != __null", [&] { spec.set_compile_config(nullptr, ""); }},
        {"gmc != __null", [&] { spec.add_global_mem_config(nullptr, false); }},
        {"host_config != __null", [&] { spec.set_host_config(nullptr); }},
        {"channel_config != __null", [&] { spec.set_channel_config(nullptr); }},
        {"interface_config != __null", [&] { spec.set_interface_config(nullptr); }},
        {"used_resources != __null", [] { DeviceConfig().set_used_resources(nullptr); }},
        {"intf != __null", [] { GlobalMemConfig().add_interface(nullptr); }},
        {"intf != __null", [] { ChannelConfig().add_interface(nullptr); }},
        {"intf != __null", [] { InterfaceConfig().add_interface(nullptr); }},
        {"kernel_clk_reset != __null", [] { InterfaceConfig().set_kernel_clk_reset(nullptr); }},
        {"port != __null", [] { Interface().add_port(nullptr); }},
    });
}

TEST(BoardSpecDeathTest, FiguresAreInRange) {
    GlobalMemConfig gmc;
    add_interface(gmc, 0, 1, 36);
    expect_aborts({{"(data_width_bits % 8) == 0", [&] { gmc.get_data_width_bytes(); }}});
    add_interface(gmc, 0, 1, 64);
    gmc.get_interfaces()[1]->set_max_burst_count(2);
    expect_aborts({
        {"intf->get_max_burst_count() == max_burst_count", [&] { gmc.get_max_burst_count(); }},
        {"intf->get_data_width() == data_width", [&] { gmc.get_data_width_bits(); }},
        {"max_bandwidth >= 0.0f", [&] { gmc.set_max_bandwidth(-1); }},
        {"max_bandwidth >= 0.0f", [&] { gmc.set_max_bandwidth(NAN); }},
        {"type >= 0 && type < TypeCount", [&] { gmc.set_type(GlobalMemConfig::TypeCount); }},
        {"type >= 0 && type < TypeCount", [] { Interface().set_type(Interface::TypeCount); }},
        {"data_width > 0", [] { Interface().set_data_width(0); }},
        {"max_burst_count > 0", [] { Interface().set_max_burst_count(0); }},
        {"size > 0", [] { Interface().set_size(0); }},
        {"sampling_rate > 0", [] { Interface().set_sampling_rate(0); }},
        {"size > 0", [] { HostConfig().set_kernel_config_size(0); }},
    });
}
