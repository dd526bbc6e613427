#include "DeviceModel.h"

#include "Testing.h"

using namespace vemo::dmodel;

TEST(DeviceModel, RoundsEstimates) {
    const std::pair<float, std::uint32_t> cases[] = {
        {0.0f, 0},
        {1.5f, 2},
        {2.4999f, 2},
        {0.49999997f, 0},       // 1 if the sum were rounded to single precision
        {8388609.0f, 8388609},  // 8388610 in the same way
        {4294967040.0f, 4294967040},
        {4294967296.0f, 4294967295},
        {INFINITY, 4294967295},
        {-0.6f, 0},
        {-3.0f, 0},
        {NAN, 0},
    };
    for (const auto& [estimate, count] : cases) {
        const DeviceResources resources = DeviceResourcesFP{0, 0, estimate, 0, 0};
        EXPECT_EQ(resources.RAMs, count) << estimate;
    }
}

TEST(DeviceModel, DumpsItsFields) {
    const DeviceResourcesFP estimate{1.5f, 2, 3, 4, 5};
    EXPECT_EQ(dump(estimate), "LEs = 1.5  FFs = 2  RAMs = 3  DSPs = 4  MLABs = 5");
    DeviceModel dm;
    dm.target_model = "tm.xml";
    dm.set_resources(new DeviceResources(estimate));
    dm.set_expected_fmax(240.5f);
    dm.set_min_fmax(150);
    const std::string text = R"(Device model (v<unknown>(1)):
  Target Model: tm.xml
  Resources: LEs = 2  FFs = 2  RAMs = 3  DSPs = 4  MLABs = 5
  Expected fmax: 240.5 MHz
  Minimum fmax: 150 MHz  High fmax threshold: 175 MHz)";
    EXPECT_EQ(dump(dm), text);
    dm.version = DeviceModel::Version_0_9;
    EXPECT_EQ(dump(dm.version), "0.9");
}

TEST(DeviceModel, StartsEmptyAndReplacesResources) {
    DeviceModel dm;
    EXPECT_FALSE(dm.has_resources());
    EXPECT_EQ(dm.get_expected_fmax(), 0.0f);
    EXPECT_EQ(dm.get_min_fmax(), 0.0f);
    dm.set_resources(new DeviceResources);
    dm.set_resources(new DeviceResources(DeviceResourcesFP{5, 0, 0, 0, 0}));
    dm.set_resources(&dm.get_resources());
    EXPECT_EQ(dm.get_resources().LEs, 5u);
}

TEST(DeviceModelDeathTest, InvariantsAreGuarded) {
    DeviceModel dm;
    expect_aborts({
        {"expected_fmax > 0.0f", [&] { dm.set_expected_fmax(0.0f); }},
        {"expected_fmax > 0.0f", [&] { dm.set_expected_fmax(NAN); }},
        {"min_fmax > 0.0f", [&] { dm.set_min_fmax(0.0f); }},
        {"high_fmax > 0.0f", [&] { dm.set_high_fmax(0.0f); }},
        {"resources != __null", [&] { dm.set_resources(nullptr); }},
        {"m_resources != __null", [&] { dm.get_resources(); }},
        {"m_resources != __null", [&] { dump(dm); }},
    });
}
