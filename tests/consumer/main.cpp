#include <iostream>

#include "BoardPackage/BoardPackage.h"
#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModel/Dump.h"
#include "TargetModelXmlLoader.h"
#include "vemo-boardspec-version.h"

// Prints the name of the board whose file is named. (The includes reach every installed header.)
int main(int, char** argv) {
    const vemo::BoardPackage package(argv[1]);
    std::cout << vemo::find_answer("name", package.sources()).value();
}
