// Repairs of missing, unexpected and repeated elements.

#include "BoardLint/FileCheck.h"

#include <algorithm>
#include <iterator>

#include "BoardLint/Elements.h"
#include "BoardLint/NearName.h"

namespace vemo::lint {

using tinyxml2::XMLDocument;

bool FileCheck::repair_unexpected_element() {
    XMLElement* elem = editable(m_mistake.elem);
    if (elem == m_doc->RootElement()) {
        add_finding();
        const std::string name = root_name(m_format);
        const std::string former = elem->Name();
        if (name != former && attempt({elem, false}, [&] { m_draft.rename(elem, name); })) {
            if (is_near(former, name)) {
                suggest(name);
            }
            return true;
        }
        return false;
    }
    add_finding();
    const std::string name = elem->Name();
    const auto is_accepted = [&](const Mistake& next) {
        return !(next.elem == elem && next.is_unexpected_element());
    };
    for (auto twin = m_inventions.rbegin(); twin != m_inventions.rend(); ++twin) {
        // It was missed elsewhere.
        XMLElement* stand_in = *twin;
        if (name == stand_in->Name() && stand_in->Parent()->ToElement() != nullptr
            && m_draft.is_invented(*stand_in)
            && attempt(
                moment_before(*stand_in),
                [&] {
                    m_draft.move(elem, stand_in->Parent()->ToElement());
                    m_draft.set_aside(stand_in);
                },
                is_accepted)) {
            m_inventions.erase(std::next(twin).base());
            return true;
        }
    }
    const tinyxml2::XMLNode* parent = elem->Parent();  // the document beside the root
    XMLElement* root = m_doc->RootElement();
    const Moment start =
        parent->ToElement() == nullptr ? Moment{root, false} : moment_before(*elem);
    if (parent != root && is_section(name)
        && attempt(
            start, [&] { m_draft.move(elem, root); }, is_accepted)) {
        return true;
    }
    const std::vector<std::string> near = near_names(name, m_mistake.accepted);
    // A name that leaves another child missing is not it, if there is a better one. Nor is one
    // that the parent has a child of, unless it is very near.
    for (const bool is_strict : {true, false}) {
        for (const std::string& candidate : near) {
            const bool is_there = parent->FirstChildElement(candidate.c_str()) != nullptr;
            if ((!is_there || is_very_near(name, candidate))
                && attempt([&] { m_draft.rename(elem, candidate); },
                           [&](const Mistake& next) {
                               return is_accepted(next)
                                      && !(next.rule == "repeated-element"
                                           && next.elem->Parent() == parent
                                           && candidate == next.elem->Name())
                                      && !(is_strict && next.rule == "missing-element"
                                           && (next.elem == parent || is_there));
                           })) {
                suggest(candidate);
                return true;
            }
        }
    }
    if (elem->FirstChildElement() != nullptr) {
        std::vector<const XMLElement*> children;
        for (const XMLElement* child = elem->FirstChildElement(); child != nullptr;
             child = child->NextSiblingElement()) {
            children.push_back(child);
        }
        if (attempt([&] { m_draft.unwrap(elem); },
                    [&](const Mistake& next) {
                        return !next.is_unexpected_element()
                               || std::find(children.begin(), children.end(), next.elem)
                                      == children.end();
                    })) {
            return true;
        }
    }
    m_misplaced.push_back(elem);
    return remove_element();
}

bool FileCheck::is_section(const std::string& name) const {
    XMLDocument doc;
    XMLElement* root = doc.NewElement(m_doc->RootElement()->Name());
    doc.InsertEndChild(root);
    for (const auto* attribute = m_doc->RootElement()->FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        root->SetAttribute(attribute->Name(), attribute->Value());
    }
    XMLElement* section = doc.NewElement(name.c_str());
    root->InsertEndChild(section);
    const Outcome outcome = read_document(doc, m_format, m_overlap);
    return outcome.loads || outcome.mistakes.front().elem != section
           || !outcome.mistakes.front().is_unexpected_element();
}

bool FileCheck::repair_repeated_element() {
    XMLElement* elem = editable(m_mistake.elem);
    for (XMLElement* twin = elem->Parent()->FirstChildElement(elem->Name()); twin != nullptr;
         twin = twin->NextSiblingElement(elem->Name())) {
        if (twin != elem && m_draft.is_invented(*twin)
            && attempt(moment_before(*twin), [&] { m_draft.set_aside(twin); })) {
            return true;
        }
    }
    add_finding();
    if (m_has_finding) {
        const XMLElement* first = elem->Parent()->FirstChildElement(elem->Name());
        if (first != elem) {
            add_note(m_text->locate(*first), "the first one is here");
        }
    }
    return remove_element();
}

bool FileCheck::remove_element() {
    XMLElement* elem = editable(m_mistake.elem);
    if (!m_has_finding) {
        add_finding();
    }
    if (elem == m_doc->RootElement()) {
        return false;
    }
    return attempt([&] { m_draft.set_aside(elem); });
}

bool FileCheck::repair_missing_element() {
    XMLElement* parent = editable(m_mistake.elem);
    if (!m_mistake.parent.empty()
        && parent->FirstChildElement(m_mistake.parent.c_str()) != nullptr) {
        parent = parent->FirstChildElement(m_mistake.parent.c_str());
    }
    const std::string name = m_mistake.child;
    // It may have been found in another place, or under another name.
    const std::vector<Draft::Aside> asides = m_draft.asides();
    for (auto aside = asides.rbegin(); aside != asides.rend(); ++aside) {
        XMLElement* elem = aside->elem;
        const bool has_name = name == elem->Name();
        if (std::find(m_misplaced.begin(), m_misplaced.end(), elem) == m_misplaced.end()
            || (!has_name && aside->parent != parent)) {
            continue;
        }
        if (attempt(
                {parent, false},
                [&] {
                    if (!has_name) {
                        m_draft.rename(elem, name);
                    }
                    m_draft.move(elem, parent);
                },
                [&](const Mistake& next) {
                    return next.elem != elem || (has_name && !next.is_unexpected_element());
                })) {
            return true;
        }
    }
    add_finding();
    if (m_has_finding) {
        add_note(m_text->locate(*parent), "<" + name + "> is missing here");
    }
    const XMLElement* model = nullptr;
    for_each_element(m_doc->RootElement(), [&](const XMLElement& elem) {
        if (name == elem.Name() && parent_name(elem) == parent->Name()) {
            model = &elem;
        }
        return model == nullptr;
    });
    XMLElement* invention = nullptr;
    const auto keep = [&] {
        m_inventions.push_back(invention);
        return true;
    };
    const auto is_accepted = [&](const Mistake& next) {
        return !(next.elem == invention && next.is_unexpected_element());
    };
    if (model != nullptr
        && attempt(
            {parent, false}, [&] { invention = m_draft.invent(parent, *model); }, is_accepted)) {
        return keep();
    }
    return attempt(
               {parent, false}, [&] { invention = m_draft.invent(parent, name); }, is_accepted)
           && keep();
}

bool FileCheck::repair_flows_before_14_1() {
    add_finding();
    // The mistake may be the version: one finding will do.
    return attempt([this] {
        XMLElement* root = m_doc->RootElement();
        while (XMLElement* flow = root->FirstChildElement("compile")) {
            m_draft.set_aside(flow);
        }
    });
}

}  // namespace vemo::lint
