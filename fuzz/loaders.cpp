// Feeds the input, one document, to each of the loaders, and dumps what loads.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModel/Dump.h"
#include "TargetModelXmlLoader.h"
#include "expected_invariants.h"

namespace {

/// A loader whose debug texts go nowhere.
template <typename Loader>
class QuietLoader : public Loader {
public:
    using Loader::Loader;
    void debug(const std::string&) override {}
};

template <typename Loader, typename... Flags>
void load(const std::string& xml, Flags... flags) {
    vemo::fuzz::until_invariant([&] {
        QuietLoader<Loader> loader(flags...);
        if (auto* model = loader.load_xml(xml.c_str())) {
            const std::unique_ptr<std::remove_pointer_t<decltype(model)>> owner(model);
            std::ostringstream() << *model;
        }
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string xml(data, data + size);
    for (const bool debug : {false, true}) {
        load<vemo::board::BoardSpecXmlLoader>(xml, debug, false);
        load<vemo::dmodel::DeviceModelXmlLoader>(xml, debug);
        load<vemo::tmodel::TargetModelXmlLoader>(xml, debug);
    }
    return 0;
}
