// What holds for every element and attribute of the three file formats.

#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Xml.h"

using tinyxml2::XMLElement;

/// Changes an element in the n-th way, and returns the outcome of loading the document then; NONE
/// when there is no n-th way.
using Change = std::function<std::string(XMLElement& elem, unsigned n)>;
static const std::string NONE = "none";

static bool is_one_of(const std::string& name, const std::string& names) {
    return (" " + names + " ").find(" " + name + " ") != std::string::npos;
}

/// The i-th element, in document order, of the subtrees from `elem` on.
static XMLElement* find_elem(XMLElement* elem, unsigned* i) {
    for (; elem != nullptr && *i > 0; elem = elem->NextSiblingElement()) {
        --*i;
        if (XMLElement* found = find_elem(elem->FirstChildElement(), i)) {
            return found;
        }
    }
    return elem;
}

template <typename Loader, typename Load>
static void change_each(Loader loader, Load load, const std::string& xml, const Change& change) {
    for (unsigned index = 0, n = 0;; ++n) {
        std::unique_ptr<tinyxml2::XMLDocument> doc(loader.parse_xml(xml.c_str()));
        unsigned i = index;
        XMLElement* elem = find_elem(doc->RootElement(), &i);
        if (elem == nullptr) {
            return;
        }
        const std::string where = fields(elem->Name(), elem->GetLineNum(), n);
        const bool tells_more = is_one_of(elem->Name(), "auto_migrate interface port global_mem");
        const std::string report = change(*elem, n);
        if (report == NONE) {
            ++index;
            n = static_cast<unsigned>(-1);
            continue;
        }
        const std::string outcome = outcome_of(loader, (loader.*load)(doc.release()));
        EXPECT_EQ(tells_more ? outcome.substr(0, report.size()) : outcome, report) << where;
    }
}

static void change_all(const Change& change) {
    using namespace vemo;
    using Board = board::BoardSpecXmlLoader;
    using Device = dmodel::DeviceModelXmlLoader;
    using Target = tmodel::TargetModelXmlLoader;
    change_each(Board(false, false), &Board::load_board_spec, BOARD, change);
    change_each(Device(false), &Device::load_target_model, DEVICE_MODEL, change);
    change_each(Target(false), &Target::load_target_model, TARGET_MODEL, change);
}

/// A report at what a test has put into the document, which stands in no line.
static std::string at_new(const std::string& message) {
    return "Error in '[mem]'\n" + message + "\n";
}

TEST(Schema, RefusesUnknownNames) {
    change_all([](XMLElement& elem, unsigned n) -> std::string {
        if (n == 0) {
            elem.SetAttribute("zz", "");
            elem.InsertNewChildElement("zz");  // not entered any more
            return at_new("Unexpected attribute 'zz'.");
        }
        elem.InsertNewChildElement("zz");
        const char* attr = is_one_of(elem.Name(), "resources used_resources") ? "num"
                           : is_one_of(elem.Name(), "auto_migrate")           ? "fixes"
                                                                              : nullptr;
        return n > 1 ? NONE
                     : at_new(attr == nullptr ? "Unexpected element 'zz'."
                                              : fill("Expected attribute 'ATTR' on element 'zz'.",
                                                     {{"ATTR", attr}}));
    });
}

TEST(Schema, RefusesElementsOutOfPlace) {
    change_all([](XMLElement& elem, unsigned n) -> std::string {
        auto* doc = elem.GetDocument();
        tinyxml2::XMLNode* const places[] = {&elem, doc, doc->RootElement()};
        if (n > 2 || &elem == doc->RootElement() || is_one_of(elem.Name(), "global_mem")) {
            return NONE;
        }
        if (elem.Parent() != places[n]) {
            places[n]->InsertFirstChild(elem.ShallowClone(doc));
            return at_new(fill("Unexpected element 'NAME'.", {{"NAME", elem.Name()}}));
        }
        return "loaded";
    });
}

TEST(Schema, CountsElements) {
    const char* many =
        "style_model global_mem interface port attribute compile generate synthesize auto_migrate "
        "include exclude";
    const auto once = [](const XMLElement& elem) {
        return fill("Expected element <NAME> to appear exactly once.", {{"NAME", elem.Name()}});
    };
    change_all([&](XMLElement& elem, unsigned n) -> std::string {
        const bool is_figure =
            elem.Attribute("value") != nullptr || elem.Attribute("num") != nullptr;
        if (is_one_of(elem.Name(), many) || n > (is_figure ? 1 : 0)) {
            return NONE;
        }
        if (n == 0) {
            elem.Parent()->InsertAfterChild(&elem, elem.ShallowClone(elem.GetDocument()));
            return at_new(once(elem));
        }
        auto* named = elem.Parent()->ToElement();
        named->DeleteChild(&elem);
        named = is_one_of(named->Name(), "resources") ? named->Parent()->ToElement() : named;
        return at(named->GetLineNum(), once(*named));
    });
}

TEST(Schema, ChecksAttributes) {
    const char* optional =
        "type:5 interleaved_bytes:5 config_addr:5 maxburst:11 attribute_width:8 clk2x:19 "
        "additional_args:21 additional_args:24 high:2 width:17 maxburst:17 address:17 size:17 "
        "chan_id:17 enable:17 clock:17 misc:17 latency:17 latency_type:17 waitrequest:17 "
        "waitrequest_allowance:17 bsp_vnmm_write_ack:17 addpipe:17 sampling_rate:17";
    const char* tested_elsewhere =
        "name:5 name:10 hazard_free_attributes:8 port:9 port:11 port:17 port:18";
    change_all([&](XMLElement& elem, unsigned n) -> std::string {
        const auto* attribute = elem.FirstAttribute();
        for (unsigned i = 0; attribute != nullptr && i < n / 2; ++i) {
            attribute = attribute->Next();
        }
        if (attribute == nullptr) {
            return NONE;
        }
        const std::string name = attribute->Name();
        const std::string key = name + ":" + std::to_string(elem.GetLineNum());
        const std::string attr = "attribute '" + name + "' on element '" + elem.Name() + "'.";
        const bool is_number = *attribute->Value() >= '0' && *attribute->Value() <= '9'
                               && !is_one_of(name, "version additional_args");
        if (n % 2 == 0 && !is_one_of(key, tested_elsewhere)) {
            elem.DeleteAttribute(name.c_str());
            return is_one_of(key, optional) ? "loaded" : at(elem.GetLineNum(), "Expected " + attr);
        }
        if (n % 2 == 1 && is_number) {
            elem.SetAttribute(name.c_str(), "zz");
            return at(elem.GetLineNum(), "Incorrect type for " + attr);
        }
        return "loaded";
    });
}
