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

using vemo::board::BoardSpec;
using vemo::dmodel::DeviceModel;
using vemo::fuzz::load_in_every_way;
using vemo::tmodel::TargetModel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string xml(data, data + size);
    using Board = vemo::board::BoardSpecXmlLoader;
    using Device = vemo::dmodel::DeviceModelXmlLoader;
    using Target = vemo::tmodel::TargetModelXmlLoader;
    using Spec = std::unique_ptr<BoardSpec, vemo::board::DestroyWithPorts>;
    load_in_every_way<Board, Spec>(&Board::load_board_spec, xml, false);
    load_in_every_way<Device, std::unique_ptr<DeviceModel>>(&Device::load_target_model, xml);
    load_in_every_way<Target, std::unique_ptr<TargetModel>>(&Target::load_target_model, xml);
    return 0;
}
