#include <iostream>
#include <map>
#include <string>

#include "BoardPackage/BoardPackage.h"
#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModel/Dump.h"
#include "TargetModelXmlLoader.h"
#include "vemo-boardspec-version.h"

using namespace vemo::board;

// What programs do with the models: fields are strings, maps and numbers of the standard library.
static bool has_named_flow(const BoardSpec& spec) {
    const CompileConfig& flow = spec.get_compile_config(spec.get_compile_config_names().front());
    const Interface& intf = spec.get_interface_config().get_intf(0);
    std::string n = flow.project;
    n = "x" + intf.chan_id + intf.enable + intf.clock;
    const std::map<std::string, unsigned> m = intf.get_port(0)->attributes;
    const float version = spec.version;
    BoardSpec other;
    other.version = 0.9f;
    return other.version == BoardSpec::Version_0_9 && version > other.version && m.empty()
           && intf.latency + intf.misc > 0 && n.substr(0, 1) == "x" && !flow.name.empty();
}

// Prints the name of the board whose file is named. (The includes reach every installed header.)
int main(int, char** argv) {
    const vemo::BoardPackage package(argv[1]);
    if (has_named_flow(*package.sources().spec)) {
        std::cout << vemo::find_answer("name", package.sources()).value();
    }
}
