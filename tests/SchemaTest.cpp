// What holds for every element and attribute of the three file formats.

#include <cctype>

#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Xml.h"

using tinyxml2::XMLElement;

/// Changes an element in the n-th way, and tells what the loader must report first; nothing when
/// the document must still load. False when there is no n-th way.
using Change = std::function<bool(XMLElement& elem, unsigned n, std::string* report)>;

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
    unsigned n = 0;
    for (unsigned index = 0;;) {
        std::unique_ptr<tinyxml2::XMLDocument> doc(loader.parse_xml(xml.c_str()));
        unsigned i = index;
        XMLElement* elem = find_elem(doc->RootElement(), &i);
        if (elem == nullptr) {
            return;
        }
        std::string report;
        const std::string where = fields(elem->Name(), elem->GetLineNum(), n);
        if (!change(*elem, n++, &report)) {
            ++index;
            n = 0;
            continue;
        }
        const std::string outcome = outcome_of(loader, (loader.*load)(doc.release()));
        EXPECT_EQ(outcome.substr(0, report.empty() ? outcome.size() : report.size()),
                  report.empty() ? "loaded" : report)
            << where;
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

static bool is_one_of(const std::string& name, const std::string& names) {
    return (" " + names + " ").find(" " + name + " ") != std::string::npos;
}

/// A report at what a test has put into the document, which stands in no line.
static std::string at_new(const std::string& message) {
    return "Error in '[mem]'\n" + message + "\n";
}

TEST(Schema, RefusesUnknownNames) {
    change_all([](XMLElement& elem, unsigned n, std::string* report) {
        const bool reads_attr_first =
            is_one_of(elem.Name(), "resources used_resources auto_migrate");
        if (n == 0) {
            elem.SetAttribute("zz", "");
            *report = at_new("Unexpected attribute 'zz'.");
        } else {
            elem.InsertNewChildElement("zz");
            *report = reads_attr_first ? "Error in '[mem]'\nExpected attribute '"
                                       : at_new("Unexpected element 'zz'.");
        }
        return n < 2;
    });
}

TEST(Schema, RefusesElementsOutOfPlace) {
    change_all([](XMLElement& elem, unsigned n, std::string* report) {
        auto* doc = elem.GetDocument();
        auto* root = doc->RootElement();
        auto* copy = elem.ShallowClone(doc);
        const std::string name = elem.Name();
        *report = at_new("Unexpected element '" + name + "'.");
        if (n == 0) {
            elem.InsertFirstChild(copy);
            return name != "global_mem";
        }
        if (n == 1 && &elem != root) {
            doc->InsertEndChild(copy);
        } else if (n == 2 && elem.Parent() != root) {
            root->InsertFirstChild(copy);
        }
        return n < 3 && &elem != root && (n < 2 || elem.Parent() != root);
    });
}

TEST(Schema, CountsElements) {
    const std::string any_number =
        "style_model global_mem interface port attribute compile generate synthesize auto_migrate "
        "include exclude";
    change_all([&any_number](XMLElement& elem, unsigned n, std::string* report) {
        auto* parent = elem.Parent()->ToElement();
        const bool is_figure =
            elem.Attribute("value") != nullptr || elem.Attribute("num") != nullptr;
        if (n == 0) {
            elem.Parent()->InsertAfterChild(&elem, elem.ShallowClone(elem.GetDocument()));
            *report = at_new(std::string("Expected element <") + elem.Name()
                             + "> to appear exactly once.");
            return !is_one_of(elem.Name(), any_number);
        }
        if (n == 1 && is_figure) {
            auto* named =
                parent->Name() == std::string("resources") ? parent->Parent()->ToElement() : parent;
            *report = at(named->GetLineNum(), std::string("Expected element <") + named->Name()
                                                  + "> to appear exactly once.");
            parent->DeleteChild(&elem);
        }
        return n == 1 && is_figure;
    });
}

TEST(Schema, ChecksAttributes) {
    const std::string optional =
        "type:5 interleaved_bytes:5 config_addr:5 maxburst:11 attribute_width:8 clk2x:19 "
        "additional_args:21 additional_args:24 high:2 width:17 maxburst:17 address:17 size:17 "
        "chan_id:17 enable:17 clock:17 misc:17 latency:17 latency_type:17 waitrequest:17 "
        "waitrequest_allowance:17 bsp_vnmm_write_ack:17 addpipe:17 sampling_rate:17";
    const std::string tested_elsewhere =
        "name:5 name:10 hazard_free_attributes:8 port:9 port:11 port:17 port:18";
    change_all([&](XMLElement& elem, unsigned n, std::string* report) {
        const auto* attribute = elem.FirstAttribute();
        for (unsigned i = 0; attribute != nullptr && i < n / 2; ++i) {
            attribute = attribute->Next();
        }
        if (attribute == nullptr) {
            return false;
        }
        const std::string name = attribute->Name();
        const std::string key = name + ":" + std::to_string(elem.GetLineNum());
        const std::string attr = "attribute '" + name + "' on element '" + elem.Name() + "'.";
        if (n % 2 == 0 && !is_one_of(key, tested_elsewhere)) {
            elem.DeleteAttribute(name.c_str());
            *report = is_one_of(key, optional) ? "" : at(elem.GetLineNum(), "Expected " + attr);
        } else if (n % 2 == 1 && !is_one_of(name, "version additional_args")
                   && std::isdigit(static_cast<unsigned char>(*attribute->Value())) != 0) {
            elem.SetAttribute(name.c_str(), "zz");
            *report = at(elem.GetLineNum(), "Incorrect type for " + attr);
        }
        return true;
    });
}
