#include <iostream>
#include <memory>

#include "BoardSpec/BoardSpec.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"

// Prints the name of the board whose file is named.
int main(int, char** argv) {
    vemo::board::BoardSpecXmlLoader loader(false, false);
    const std::unique_ptr<vemo::board::BoardSpec> spec(loader.load_file(argv[1]));
    std::cout << spec->name;
}
