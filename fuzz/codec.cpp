// Any text may come from a device: reading it ends in a record or in a sentence, and a record that
// was read can be written.

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

template <class Record>
void readAndWrite(const std::string &json)
{
    Record record;
    std::string error;
    if (ajson::decodeRecord(json, record, error)) {
        std::string text;
        ajson::encodeRecord(record, text);
    } else if (error.compare(0, 15, "error at line :") != 0) {
        std::abort(); // a failure tells its place
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace Tavoro::ProtoModel;
    const std::string json(reinterpret_cast<const char *>(data), size);
    readAndWrite<Device::s_DeviceDetail>(json);
    readAndWrite<std::vector<Screen::s_ScreenFullDetail>>(json);
    readAndWrite<std::vector<Layer::s_LayerFullDetail>>(json);
    readAndWrite<std::vector<File::s_FileDetail>>(json);
    return 0;
}
