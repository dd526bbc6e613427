#include "DeviceModelXml.h"

#include "DeviceModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::dmodel;

static std::unique_ptr<DeviceModel> load(const std::string& xml) {
    return std::unique_ptr<DeviceModel>(DeviceModelXmlLoader(false).load_xml(xml.c_str()));
}

TEST(DeviceModelXml, ReadsEveryField) {
    const auto dm = load(DEVICE_MODEL);
    EXPECT_EQ(dm->version, DeviceModel::Version_0_9);
    EXPECT_EQ(dump(*dm), dumped_model("Device model"));
}

TEST(DeviceModelXml, DefaultsAndWrapsAround) {
    EXPECT_EQ(load(edit(DEVICE_MODEL, " high=\"180\"", ""))->get_high_fmax(), 175.0f);
    EXPECT_EQ(load(edit(DEVICE_MODEL, "\"21\"", "\"2147483649\""))->get_resources().LEs, 2u);
}

TEST(DeviceModelXml, ReportsErrors) {
    expect_outcomes<DeviceModelXmlLoader>(DEVICE_MODEL, R"(
 version="0.9" => \nversion="0.90" => 2: Unsupported version string.
 target_model="tm.xml" => \ntarget_model="" => 2: A target model file must be specified.
<fmax.../> =>  => 1: Expected element <device_model> to appear exactly once.
 high="180" => \nzz="" => 3: Unexpected attribute 'zz'.
<alms => <fmax expected="-1"/><alms => 4: Unexpected element 'fmax'.
<alms => <fmax x=""/><alms => 4: Unexpected element 'fmax'. + 4: Unexpected attribute 'x'.
 expected="240.5" min="150" => \nexpected="-5" min="-5" => 3: Expected fmax must be positive.
"240.5" => "nan" => 2: Expected fmax must be positive.
 min="150" high="180" => \nmin="0" high="0" => 3: Minimum fmax must be positive.
 high="180" => \nhigh="0" => 3: High fmax threshold must be positive.
 min="150" =>  => 2: Expected attribute 'min' on element 'fmax'.
<resources>...</resources> =>  => Missing resources (<resources>) in device model.
<rams.../> =>  => 1: Expected element <device_model> to appear exactly once.
<alms => <mlabs num="1"/><alms => 4: Unexpected element 'mlabs'.
<alms => <les num="1"/><alms => 4: Unexpected element 'les'.
<alms => <mlabs/><alms => 4: Expected attribute 'num' on element 'mlabs'.
<alms => <alms num="1"/><alms x="" => 4: Expected element <alms> to appear exactly once.
<device_model...</device_model> => <!-- nothing to check --> => loaded
)",
                                          false);
}

TEST(DeviceModelXmlDeathTest, NeedsANewModel) {
    DeviceModelXmlLoader loader(false);
    DeviceModel dm;
    dm.set_resources(new DeviceResources);
    expect_aborts({
        {"dm != __null", [] { xml::DeviceModelVisitor(nullptr, nullptr, false); }},
        {"!m_dm->has_resources()",
         [&] {
             xml::DeviceModelVisitor visitor(&dm, &loader, false);
             loader.parse_xml(DEVICE_MODEL.c_str())->Accept(&visitor);
         }},
    });
}
