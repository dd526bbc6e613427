#include "DeviceModelXml.h"

#include "DeviceModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::dmodel;

static std::string loaded_dump(const std::string& xml) {
    return dump(*std::unique_ptr<DeviceModel>(DeviceModelXmlLoader(false).load_xml(xml.c_str())));
}

TEST(DeviceModelXml, ReadsEveryField) {
    const std::string text =
        "Device model (v0.9):\n  Target Model: tm.xml\n"
        "  Resources: LEs = 42  FFs = 22  RAMs = 24  DSPs = 23  MLABs = 0\n"
        "  Expected fmax: 240.5 MHz\n  Minimum fmax: 150 MHz  High fmax threshold: 180 MHz";
    EXPECT_EQ(loaded_dump(DEVICE_MODEL), text);
    EXPECT_EQ(loaded_dump(edit(DEVICE_MODEL, " high=\"180\"", "")), edit(text, "180", "175"));
    EXPECT_EQ(loaded_dump(edit(DEVICE_MODEL, "\"21\"", "\"2147483649\"")), edit(text, "42", "2"));
}

TEST(DeviceModelXml, ReportsErrors) {
    expect_outcomes<DeviceModelXmlLoader>(DEVICE_MODEL, R"(
 version="0.9" => \nversion="0.90" => 2: Unsupported version string.
 target_model="tm.xml" => \ntarget_model="" => 2: A target model file must be specified.
<fmax...</device_model> => </device_model> => 1: Expected element <device_model> to appear exactly once.
 high="180" => \nzz="" => 3: Unexpected attribute 'zz'.
<alms => <fmax x="" y=""/><alms => 4: Unexpected element 'fmax'. + 4: Unexpected attribute 'x'. + 4: Unexpected attribute 'y'.
 expected="240.5" min="150" => \nexpected="-5" min="-5" => 3: Expected fmax must be positive.
"240.5" => "nan" => 2: Expected fmax must be positive.
 min="150" high="180" => \nmin="0" high="0" => 3: Minimum fmax must be positive.
 high="180" => \nhigh="0" => 3: High fmax threshold must be positive.
<resources>...</resources> =>  => Missing resources (<resources>) in device model.
<alms => <mlabs num="1"/><alms => 4: Unexpected element 'mlabs'.
<device_model...</device_model> => <!-- nothing to check --> => loaded
)",
                                          false);
}

TEST(DeviceModelXmlDeathTest, NeedsModel) {
    expect_aborts({{"dm != __null", [] { xml::DeviceModelVisitor(nullptr, nullptr, false); }}});
}
