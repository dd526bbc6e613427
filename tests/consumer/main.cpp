#include <iostream>
#include <memory>

#include "AnswerTable.h"
#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Version.h"

// Prints the name of the board whose file is named. (The includes reach every installed header.)
int main(int, char** argv) {
    vemo::board::BoardSpecXmlLoader loader(false, false);
    const std::unique_ptr<vemo::board::BoardSpec> spec(loader.load_file(argv[1]));
    vemo::AnswerSources sources;
    sources.spec = spec.get();
    std::cout << vemo::find_answer("name", sources).value();
}
