// What the XML library alone takes: loads a file and looks at every attribute.

#include <tinyxml2.h>

namespace {

class Reader : public tinyxml2::XMLVisitor {
public:
    bool VisitEnter(const tinyxml2::XMLElement& elem,
                    const tinyxml2::XMLAttribute* first) override {
        looked_at += *elem.Value();
        for (const tinyxml2::XMLAttribute* attr = first; attr != nullptr; attr = attr->Next()) {
            looked_at += *attr->Name() + *attr->Value();
        }
        return true;
    }

    volatile int looked_at = 0;
};

}  // namespace

int main(int, char** argv) {
    tinyxml2::XMLDocument doc;
    Reader reader;
    return doc.LoadFile(argv[1]) == tinyxml2::XML_SUCCESS && doc.Accept(&reader) ? 0 : 1;
}
