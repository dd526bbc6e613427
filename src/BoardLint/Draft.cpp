#include "BoardLint/Draft.h"

#include <algorithm>

namespace vemo::lint {

using tinyxml2::XMLAttribute;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

Draft::Draft(tinyxml2::XMLDocument* doc)
    : m_doc(doc), m_shelf(doc->NewElement("shelf")), m_parking(doc->NewElement("parking")) {}

template <typename Value>
void Draft::note(std::map<Key, Value>* notes, const Key& key, const Value& value) {
    Value& entry = (*notes)[key];
    m_undo.emplace_back([notes, key, former = entry] { (*notes)[key] = former; });
    entry = value;
}

void Draft::set_attribute(XMLElement* elem, const std::string& name, const std::string& value) {
    if (const char* former = elem->Attribute(name.c_str())) {
        m_undo.emplace_back([elem, name, text = std::string(former)] {
            elem->SetAttribute(name.c_str(), text.c_str());
        });
    } else {
        m_undo.emplace_back([elem, name] { elem->DeleteAttribute(name.c_str()); });
    }
    elem->SetAttribute(name.c_str(), value.c_str());
}

void Draft::write(XMLElement* elem, const std::string& name, const std::string& value) {
    set_attribute(elem, name, value);
    note(&m_is_written, {elem, name}, true);
}

void Draft::rename_attribute(XMLElement* elem, const std::string& from, const std::string& to) {
    const std::string value = elem->Attribute(from.c_str());
    remove_attribute(elem, from);
    set_attribute(elem, to, value);
    note(&m_is_written, {elem, to}, is_written(*elem, from));
    note(&m_original_names, {elem, to}, original_name(*elem, from));
}

void Draft::remove_attribute(XMLElement* elem, const std::string& name) {
    m_undo.emplace_back([elem, name, text = std::string(elem->Attribute(name.c_str()))] {
        elem->SetAttribute(name.c_str(), text.c_str());
    });
    elem->DeleteAttribute(name.c_str());
}

void Draft::rename(XMLElement* elem, const std::string& name) {
    m_undo.emplace_back([elem, text = std::string(elem->Name())] { elem->SetName(text.c_str()); });
    elem->SetName(name.c_str());
}

void Draft::place(XMLElement* elem, XMLNode* parent, XMLNode* previous) {
    if (previous == nullptr) {
        parent->InsertFirstChild(elem);
    } else {
        parent->InsertAfterChild(previous, elem);
    }
}

void Draft::move(XMLElement* elem, XMLElement* parent) {
    m_undo.emplace_back([this, elem, former = elem->Parent(), previous = elem->PreviousSibling(),
                         asides = m_asides] {
        place(elem, former, previous);
        m_asides = asides;
    });
    m_asides.erase(std::remove_if(m_asides.begin(), m_asides.end(),
                                  [elem](const Aside& aside) { return aside.elem == elem; }),
                   m_asides.end());
    parent->InsertEndChild(elem);
}

void Draft::set_aside(XMLElement* elem) {
    XMLElement* parent = elem->Parent()->ToElement();
    move(elem, m_shelf);
    m_asides.push_back({elem, parent});  // undoing the move forgets it
}

void Draft::unwrap(XMLElement* elem) {
    XMLNode* previous = elem;
    while (XMLElement* child = elem->FirstChildElement()) {
        m_undo.emplace_back([elem, child] {
            // The last child is put back first.
            place(child, elem, nullptr);
        });
        place(child, elem->Parent(), previous);
        previous = child;
    }
    set_aside(elem);
}

XMLElement* Draft::invent(XMLElement* parent, const std::string& name) {
    XMLElement* elem = m_doc->NewElement(name.c_str());
    parent->InsertEndChild(elem);
    m_invented.insert(elem);
    // What it holds by then goes with it. Its address may come back as another element's.
    m_undo.emplace_back([this, elem] {
        m_invented.erase(elem);
        m_shelf->InsertEndChild(elem);
    });
    return elem;
}

XMLElement* Draft::invent(XMLElement* parent, const XMLElement& model) {
    XMLElement* elem = invent(parent, std::string(model.Name()));
    for (const XMLAttribute* attribute = model.FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        elem->SetAttribute(attribute->Name(), attribute->Value());
    }
    for (const XMLElement* child = model.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        invent(elem, *child);
    }
    return elem;
}

void Draft::roll_back(std::size_t size) {
    while (m_undo.size() > size) {
        m_undo.back()();
        m_undo.pop_back();
    }
}

void Draft::park_before(const XMLElement& elem) {
    keep_edits();
    for (const XMLNode* around = &elem; around->Parent() != nullptr; around = around->Parent()) {
        const XMLNode* parent = around->Parent();
        std::string name;  // of the last one that has stayed
        XMLNode* node = const_cast<XMLNode*>(parent->FirstChild());
        while (node != around) {
            XMLNode* next = node->NextSibling();
            if (node->ToElement() != nullptr && name == node->Value()) {
                m_parked.push_back({node->ToElement(), node->Parent(), node->PreviousSibling()});
                m_parking->InsertEndChild(node);
            } else if (node->ToElement() != nullptr) {
                name = node->Value();
            }
            node = next;
        }
    }
}

bool Draft::has_parked_in(const XMLElement& elem) const {
    const XMLNode* last_parent = nullptr;  // those of one parent often follow each other
    for (const Parked& parked : m_parked) {
        if (parked.parent != last_parent) {
            last_parent = parked.parent;
            for (const XMLNode* node = last_parent; node != nullptr; node = node->Parent()) {
                if (node == &elem) {
                    return true;
                }
            }
        }
    }
    return false;
}

void Draft::unpark() {
    keep_edits();
    for (; !m_parked.empty(); m_parked.pop_back()) {
        const Parked& parked = m_parked.back();
        const bool has_stayed =
            parked.previous != nullptr && parked.previous->Parent() == parked.parent;
        place(parked.elem, parked.parent, has_stayed ? parked.previous : nullptr);
    }
}

bool Draft::is_invented(const XMLElement& elem) const {
    for (const XMLNode* node = &elem; node != nullptr; node = node->Parent()) {
        if (m_invented.count(node->ToElement()) != 0) {
            return true;
        }
    }
    return false;
}

bool Draft::is_written(const XMLElement& elem, const std::string& name) const {
    const auto found = m_is_written.find({&elem, name});
    return (found != m_is_written.end() && found->second) || is_invented(elem);
}

std::string Draft::original_name(const XMLElement& elem, const std::string& name) const {
    const auto found = m_original_names.find({&elem, name});
    return found == m_original_names.end() || found->second.empty() ? name : found->second;
}

}  // namespace vemo::lint
