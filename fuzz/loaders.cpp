// Feeds the input, one document, to each of the loaders.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModel/Dump.h"
#include "TargetModelXmlLoader.h"
#include "loading.h"

using vemo::fuzz::load_in_every_way;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vemo;
    const std::string xml(data, data + size);
    using Board = std::unique_ptr<board::BoardSpec, board::DestroyWithPorts>;
    load_in_every_way<board::BoardSpecXmlLoader, Board>(&board::BoardSpecXmlLoader::load_board_spec,
                                                        xml, false);
    using Device = dmodel::DeviceModelXmlLoader;
    load_in_every_way<Device, std::unique_ptr<dmodel::DeviceModel>>(&Device::load_target_model,
                                                                    xml);
    using Target = tmodel::TargetModelXmlLoader;
    load_in_every_way<Target, std::unique_ptr<tmodel::TargetModel>>(&Target::load_target_model,
                                                                    xml);
    return 0;
}
