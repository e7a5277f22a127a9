// A device may send any text: reading it gives a record or an error text, and a record that was
// read is written as a text that reads as the same record.
//
// Input: the number of a record in two bytes, then the text.

#include "demand.h"
#include "input.h"

#include <tavorocontrol/proto/auxiliary.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/preset.h>
#include <tavorocontrol/proto/screen.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <iterator>
#include <string>

namespace {

template <class Record>
void readAndWrite(const std::string &json)
{
    Record record;
    std::string error;
    if (!ajson::decodeRecord(json, record, error))
        return demand(error.compare(0, 15, "error at line :") == 0,
                      "an error text begins with its place");
    std::string text;
    ajson::encodeRecord(record, text);
    Record again;
    demand(ajson::decodeRecord(text, again, error), "a written record can be read");
    std::string textAgain;
    ajson::encodeRecord(again, textAgain);
    demand(text == textAgain, "a written record reads as the same record");
}

template <class Record>
void readOneAndMany(const std::string &json)
{
    readAndWrite<Record>(json);
    readAndWrite<std::vector<Record>>(json);
}

using Check = void (*)(const std::string &json);
constexpr Check checks[] = {
#define TAVORO_RECORD(Record) readOneAndMany<Record>,
#include "records.inc" // one line per record that has a codec, made by CMake
#undef TAVORO_RECORD
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const Check check = checks[input.number() % std::size(checks)];
    check(std::string(input.rest()));
    return 0;
}
