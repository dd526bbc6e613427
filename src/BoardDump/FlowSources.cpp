#include "BoardDump/FlowSources.h"

#include <set>
#include <string>

namespace vemo::dump {

std::vector<AnswerSources> sources_of_flows(const AnswerSources& sources) {
    std::vector<AnswerSources> flows;
    std::set<std::string> names;
    for (const std::string& name : sources.spec->get_compile_config_names()) {
        if (names.insert(name).second) {
            flows.push_back(sources);
            flows.back().flow = &sources.spec->get_compile_config(name);
        }
    }
    return flows;
}

}  // namespace vemo::dump
