#include "TargetModel/Dump.h"
#include "TargetModelXml/DelayModelVisitor.h"
#include "TargetModelXml/FamilyModelVisitor.h"
#include "TargetModelXml/GlobalInterconnectVisitor.h"
#include "TargetModelXml/LocalMemFmaxDegradationVisitor.h"
#include "TargetModelXml/LocalMemVisitor.h"
#include "TargetModelXml/TargetModelVisitor.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::tmodel;

static std::string outcome(const std::string& xml) {
    return load_outcome<TargetModelXmlLoader>(xml, false);
}

static std::unique_ptr<TargetModel> load_target_model() {
    return std::unique_ptr<TargetModel>(TargetModelXmlLoader(false).load_xml(TARGET_MODEL.c_str()));
}

TEST(TargetModelXml, ReadsEveryField) {
    const auto tm = load_target_model();
    EXPECT_EQ(dump(*tm) + dump(tm->get_global_interconnect_model()) + "\n"
                  + dump(tm->get_delay_model()) + "\n" + dump(tm->get_family_model()) + "\n",
              dumped_model("Target model"));
    const LocalMemModel& mem = tm->get_local_mem_model();  // whose dump leaves one figure out
    EXPECT_EQ(mem.get_dual_port_mem_block_supports_rdw_mode_old_data(), 1u);
}

TEST(TargetModelXml, ReportsErrors) {
    expect_outcomes<TargetModelXmlLoader>(TARGET_MODEL, R"(
 version="0.9" => \nversion="1.0" => 2: Unsupported version string.
"peltrab" => "PELTRAB" => 1: Unrecognized family option (PELTRAB).
"peltrab" => "Peltra B" => 1: Unrecognized family option (Peltra B).
 file="style_a.xml" => \nfile="" => 3: Target Style Model file is empty.
<style...b.xml"/> =>  => At least one Target Style Model file (<style_model>) must be given.
<local_mem>...</delay_model> =>  => Missing local memory model (<local_mem>) in target model.
<delay_model>...</family_info> =>  => Missing delay model (<delay_model>) in target model.
<family_info>...</family_info> =>  => Missing family model (<family_info>) in target model.
<fmax...tion></ => </ => 3: Missing fmax degradation <fmax_degradation> model for local memory.
<burst...tion></ => </ => 3: Expected element <local_mem> to appear exactly once.
<delay_model> => <delay_model x=""> => 11: Unexpected attribute 'x'.
<lut_inputs => <lut_count/><lut_inputs => 12: Unexpected element 'lut_count'.
<global...</global_interconnect> =>  => loaded
"BR" => "" => loaded
)",
                                          false);
    EXPECT_EQ(outcome(edit(TARGET_MODEL, "</local_mem>", "<fmax_degradation/></local_mem>")),
              at(8, "Expected element <fmax_degradation> to appear exactly once."));
    EXPECT_EQ(outcome("<!-- no element -->"),
              at(0, "At least one Target Style Model file (<style_model>) must be given."));
}

/// A constant of TARGET_MODEL, and the element that holds it.
struct Constant {
    std::string name;
    int line;
    std::string parent;
};

static std::vector<Constant> find_constants() {
    tinyxml2::XMLDocument doc;
    doc.Parse(TARGET_MODEL.c_str());
    std::vector<Constant> constants;
    const std::function<void(const tinyxml2::XMLElement&)> search = [&](const auto& elem) {
        if (elem.Attribute("value") != nullptr) {
            constants.push_back({elem.Name(), elem.GetLineNum(), elem.Parent()->Value()});
        }
        for (auto* child = elem.FirstChildElement(); child; child = child->NextSiblingElement()) {
            search(*child);
        }
    };
    search(*doc.RootElement());
    return constants;
}

/// TARGET_MODEL with other text in place of the constant.
static std::string with(const Constant& constant, const std::string& text) {
    return edit(TARGET_MODEL, "<" + constant.name + " .../>", text);
}

TEST(TargetModelXml, ChecksRanges) {
    EXPECT_GE(find_constants().size(), 26u);
    for (const Constant& c : find_constants()) {
        SCOPED_TRACE(c.name);
        const auto expect_refused = [&c](const std::string& value, const std::string& range) {
            EXPECT_EQ(outcome(with(c, "<" + c.name + "\nvalue=\"" + value + "\"/>")),
                      at(c.line + 1, "<" + c.name + "> must be " + range + "."));
        };
        if (c.parent == "fmax_degradation" || c.parent == "global_interconnect") {
            expect_refused("-0.1", "non-negative");
        } else if (c.name.find("_supports_") != std::string::npos) {
            expect_refused("2", "0 or 1");
        } else if (c.parent == "local_mem") {
            expect_refused("0", "positive");
        } else {
            EXPECT_EQ(outcome(with(c, "<" + c.name + " value=\"0\"/>")), "loaded");
        }
    }
}

TEST(TargetModelXmlDeathTest, NaNReachesTheModel) {
    for (const Constant& c : find_constants()) {
        const bool is_in_interconnect = c.parent == "global_interconnect";
        if (is_in_interconnect || c.parent == "fmax_degradation") {
            expect_aborts({{(is_in_interconnect ? "a" : c.name) + " >= 0.0f",
                            [&] { outcome(with(c, "<" + c.name + " value=\"nan\"/>")); }}});
        }
    }
}

/// The first report of a sub-model reader on `xml`, or "".
template <typename Visitor, typename Model>
static std::string read(const char* xml, Model* model) {
    TargetModelXmlLoader loader(false);
    const std::unique_ptr<tinyxml2::XMLDocument> doc(loader.parse_xml(xml));
    TargetModel tm;
    xml::TargetModelVisitor root(&tm, &loader, false);
    Visitor visitor(&root, model);
    doc->RootElement()->Accept(&visitor);
    return loader.get_num_errors() == 0 ? "" : loader.get_error(0);
}

/// A reader needs a model, one without the part that it creates; a constant needs its element.
template <typename Visitor, typename Model>
static void expect_guarded(const char* element, Model* full, const std::string& full_condition,
                           const std::string& null_condition = "tm != __null") {
    Model* none = nullptr;
    expect_aborts({{null_condition, [&] { read<Visitor>(element, none); }},
                   {full_condition, [&] { read<Visitor>(element, full); }}});
    Model empty;
    EXPECT_EQ(read<Visitor>("<c value=\"1\"/>", &empty), at(1, "Unexpected element 'c'."));
}

TEST(TargetModelXmlDeathTest, ReadersAreGuarded) {
    const auto tm = load_target_model();
    expect_aborts({{"tm != __null", [] { xml::TargetModelVisitor(nullptr, nullptr, false); }}});
    expect_guarded<xml::LocalMemVisitor>("<local_mem/>", tm.get(), "!m_tm->has_local_mem_model()");
    expect_guarded<xml::LocalMemFmaxDegradationVisitor>(
        "<fmax_degradation/>", &tm->get_local_mem_model(),
        "!m_local_mem_model->has_fmax_degradation_model()", "local_mem_model != __null");
    expect_guarded<xml::GlobalInterconnectVisitor>("<global_interconnect/>", tm.get(),
                                                   "!m_tm->has_global_interconnect_model()");
    expect_guarded<xml::DelayModelVisitor>("<delay_model/>", tm.get(), "!m_tm->has_delay_model()");
    expect_guarded<xml::FamilyModelVisitor>("<family_info/>", tm.get(),
                                            "!m_tm->has_family_model()");
}
