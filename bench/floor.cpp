// The floor of a run: loads the documents given, each as simply as the XML library offers, and
// prints one attribute of the first. The tool, which does that and more, is measured against it.

#include <cstdio>

#include <tinyxml2.h>

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        tinyxml2::XMLDocument doc;
        if (doc.LoadFile(argv[i]) != tinyxml2::XML_SUCCESS) {
            std::fprintf(stderr, "floor: cannot load %s\n", argv[i]);
            return 1;
        }
        if (i == 1) {
            std::printf("%s", doc.RootElement()->Attribute("name"));
        }
    }
    return 0;
}
