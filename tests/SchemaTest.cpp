// What holds for every element and attribute of the three file formats.

#include <cctype>

#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using tinyxml2::XMLElement;

namespace {

/// Changes an element in the n-th way and returns what the loader must report first, which is
/// nothing when the document must still load. False when there is no n-th way.
using Change = std::function<bool(XMLElement& elem, unsigned n, std::string* report)>;

void collect(XMLElement* elem, std::vector<XMLElement*>* elems) {
    for (; elem != nullptr; elem = elem->NextSiblingElement()) {
        elems->push_back(elem);
        collect(elem->FirstChildElement(), elems);
    }
}

template <typename Loader, typename Load>
void apply_to_each(Loader loader, Load load, const std::string& xml, const Change& change) {
    unsigned n = 0;
    for (std::size_t i = 0;;) {
        auto* doc = loader.parse_xml(xml.c_str());
        std::vector<XMLElement*> elems;
        collect(doc->RootElement(), &elems);
        if (i == elems.size()) {
            delete doc;
            return;
        }
        std::string report;
        const std::string where = elems[i]->Name() + fields(":", elems[i]->GetLineNum(), n);
        if (!change(*elems[i], n++, &report)) {
            delete doc;
            ++i;
            n = 0;
            continue;
        }
        const std::string outcome = outcome_of(loader, (loader.*load)(doc));
        EXPECT_EQ(report.empty() ? outcome : outcome.substr(0, report.size()),
                  report.empty() ? "loaded" : report)
            << where;
    }
}

void apply_to_all(const Change& change) {
    using namespace vemo;
    using Board = board::BoardSpecXmlLoader;
    using Device = dmodel::DeviceModelXmlLoader;
    using Target = tmodel::TargetModelXmlLoader;
    apply_to_each(Board(false, false), &Board::load_board_spec, BOARD, change);
    apply_to_each(Device(false), &Device::load_target_model, DEVICE_MODEL, change);
    apply_to_each(Target(false), &Target::load_target_model, TARGET_MODEL, change);
}

bool is_one_of(const std::string& name, const std::string& names) {
    return (" " + names + " ").find(" " + name + " ") != std::string::npos;
}

// Nodes that are put into a document have no line.
std::string unexpected(const XMLElement& elem) {
    return std::string("Error in '[mem]'\nUnexpected element '") + elem.Name() + "'.\n";
}

}  // namespace

TEST(Schema, RefusesUnknownNames) {
    apply_to_all([](XMLElement& elem, unsigned n, std::string* report) {
        const std::string name = elem.Name();
        if (n == 0) {
            elem.SetAttribute("zz", "");
            *report = "Error in '[mem]'\nUnexpected attribute 'zz'.\n";
        } else {
            const XMLElement& child = *elem.InsertNewChildElement("zz");
            *report = is_one_of(name, "resources used_resources auto_migrate")
                          ? "Error in '[mem]'\nExpected attribute '"
                          : unexpected(child);
        }
        return n < 2;
    });
}

TEST(Schema, RefusesElementsOutOfPlace) {
    apply_to_all([](XMLElement& elem, unsigned n, std::string* report) {
        auto* doc = elem.GetDocument();
        auto* copy = elem.ShallowClone(doc)->ToElement();
        *report = unexpected(*copy);
        if (n == 0) {  // inside itself
            elem.InsertFirstChild(copy);
            return elem.Name() != std::string("global_mem");
        }
        if (n == 1) {  // behind the root
            doc->InsertEndChild(copy);
            return &elem != doc->RootElement();
        }
        doc->RootElement()->InsertFirstChild(copy);
        return n == 2 && elem.Parent() != doc->RootElement();
    });
}

TEST(Schema, RefusesSecondElements) {
    apply_to_all([](XMLElement& elem, unsigned n, std::string* report) {
        elem.Parent()->InsertAfterChild(&elem, elem.ShallowClone(elem.GetDocument()));
        *report = std::string("Error in '[mem]'\nExpected element <") + elem.Name()
                  + "> to appear exactly once.\n";
        return n == 0
               && !is_one_of(elem.Name(),
                             "style_model global_mem interface port attribute compile generate "
                             "synthesize auto_migrate include exclude");
    });
}

TEST(Schema, NeedsEachFigure) {
    apply_to_all([](XMLElement& elem, unsigned n, std::string* report) {
        if (n > 0 || (elem.Attribute("value") == nullptr && elem.Attribute("num") == nullptr)) {
            return false;
        }
        const XMLElement* parent = elem.Parent()->ToElement();
        const XMLElement* named =
            parent->Name() == std::string("resources") ? parent->Parent()->ToElement() : parent;
        *report = at(named->GetLineNum(), std::string("Expected element <") + named->Name()
                                              + "> to appear exactly once.");
        elem.Parent()->DeleteChild(&elem);
        return true;
    });
}

TEST(Schema, NeedsAttributesUnlessOptional) {
    const std::string optional =
        "type:5 interleaved_bytes:5 config_addr:5 maxburst:11 attribute_width:8 clk2x:19 "
        "additional_args:21 additional_args:24 high:2";
    apply_to_all([&optional](XMLElement& elem, unsigned n, std::string* report) {
        const auto* attribute = elem.FirstAttribute();
        for (; attribute != nullptr && n > 0; --n) {
            attribute = attribute->Next();
        }
        if (attribute == nullptr) {
            return false;
        }
        const std::string name = attribute->Name();
        const int line = elem.GetLineNum();
        const bool is_interface = elem.Name() == std::string("interface");
        if (name == "hazard_free_attributes") {
            *report = at(line,
                         "Cannot specify additional attributes without specifying "
                         "hazard_free_attributes=false");
        } else if (elem.Name() == std::string("global_mem") && name == "name") {
            *report = at(
                10,
                "All global memories must have a name when there are more than 1 global memories.");
        } else if (is_interface && name == "port" && (line < 14 || line > 15)) {
            *report = at(line, "At least one port is required in interface ");
        } else if (!is_one_of(name + ":" + std::to_string(line), optional)
                   && !(is_interface && line == 17 && !is_one_of(name, "name type"))) {
            *report =
                at(line, "Expected attribute '" + name + "' on element '" + elem.Name() + "'.");
        }
        elem.DeleteAttribute(name.c_str());
        return true;
    });
}

TEST(Schema, ReadsNumbersOnly) {
    apply_to_all([](XMLElement& elem, unsigned n, std::string* report) {
        const auto* attribute = elem.FirstAttribute();
        for (; attribute != nullptr; attribute = attribute->Next()) {
            if (std::isdigit(static_cast<unsigned char>(*attribute->Value())) != 0
                && !is_one_of(attribute->Name(), "version additional_args") && n-- == 0) {
                *report = at(elem.GetLineNum(), std::string("Incorrect type for attribute '")
                                                    + attribute->Name() + "' on element '"
                                                    + elem.Name() + "'.");
                elem.SetAttribute(attribute->Name(), "zz");
                return true;
            }
        }
        return false;
    });
}
