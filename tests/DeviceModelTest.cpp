#include "DeviceModel.h"

#include "Testing.h"

using namespace vemo::dmodel;

TEST(DeviceModel, RoundsEstimates) {
    const DeviceResourcesFP ordinary{1.5f, 2.4999f, 0.0f, -3.0f, 7.0f};
    const DeviceResourcesFP extreme{NAN, 4294967296.0f, 4294967040.0f, -0.6f, INFINITY};
    EXPECT_EQ(dump(DeviceResources(ordinary)), "LEs = 2  FFs = 2  RAMs = 0  DSPs = 0  MLABs = 7");
    EXPECT_EQ(dump(DeviceResources(extreme)),
              "LEs = 0  FFs = 4294967295  RAMs = 4294967040  DSPs = 0  MLABs = 4294967295");
    EXPECT_EQ(dump(ordinary), "LEs = 1.5  FFs = 2.4999  RAMs = 0  DSPs = -3  MLABs = 7");
}

TEST(DeviceModel, StartsEmptyAndReplacesResources) {
    DeviceModel dm;
    EXPECT_FALSE(dm.has_resources());
    dm.set_resources(new DeviceResources);
    dm.set_resources(new DeviceResources(DeviceResourcesFP{5, 0, 0, 0, 0}));
    dm.set_resources(&dm.get_resources());
    EXPECT_EQ(dump(dm),
              "Device model (v<unknown>(1)):\n  Target Model: \n"
              "  Resources: LEs = 5  FFs = 0  RAMs = 0  DSPs = 0  MLABs = 0\n"
              "  Expected fmax: 0 MHz\n  Minimum fmax: 0 MHz  High fmax threshold: 175 MHz");
}

TEST(DeviceModelDeathTest, InvariantsAreGuarded) {
    DeviceModel dm;
    expect_aborts({
        {"expected_fmax > 0.0f", [&] { dm.set_expected_fmax(0.0f); }},
        {"expected_fmax > 0.0f", [&] { dm.set_expected_fmax(NAN); }},
        {"min_fmax > 0.0f", [&] { dm.set_min_fmax(0.0f); }},
        {"high_fmax > 0.0f", [&] { dm.set_high_fmax(0.0f); }},
        {"m_resources != __null", [&] { dm.get_resources(); }},
        {"m_resources != __null", [&] { dump(dm); }},
    });
}
