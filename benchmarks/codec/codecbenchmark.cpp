// Measures decoding and encoding of whole bodies by the codec and by general JSON libraries, all
// with the same records. Bytes per second refer to the text of the body.
//
//   workload       body
//   device         full details of a device with 16 cards
//   screens        an array of 32 full screens
//   files          an array of 2,000 file details
//   switchEffects  an array of 8 switch effects: a small write
//
// Each library runs under its best conditions: events directly into the records if it has them,
// padded input, reused parsers and buffers. Before the measurement all must read the same record.

#include "bodies.h"
#include "nlohmannpeer.h"
#include "qjsonpeer.h"
#include "rapidjsonpeer.h"
#include "simdjsonpeer.h"

#include <tavorocontrol/proto/codec.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>

namespace {

template <class Value>
std::string encoded(const Value &value)
{
    std::string text;
    ajson::encodeRecord(value, text);
    return text;
}

template <class Value>
void decodeWithCodec(const std::string &text, Value &value)
{
    std::string error;
    if (!ajson::decodeRecord(text, value, error))
        std::abort();
}

/// Measures a function that decodes into the given record.
template <class Value, class Decode>
void addDecode(const std::string &name, const std::string &text, Decode decode)
{
    Value value;
    decode(value);
    if (encoded(value) != text) {
        std::cerr << name << " decodes a different record\n";
        std::exit(EXIT_FAILURE);
    }
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) mutable {
        for (auto _ : state) {
            Value read;
            decode(read);
            benchmark::DoNotOptimize(read);
        }
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    });
}

/// Measures a function that encodes and returns the number of bytes.
template <class Encode>
void addEncode(const std::string &name, std::size_t size, Encode encode)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) mutable {
        for (auto _ : state)
            benchmark::DoNotOptimize(encode());
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
    });
}

template <class Value>
void addBody(const std::string &body, const Value &value)
{
    const std::string text = encoded(value);
    const QByteArray bytes = QByteArray::fromStdString(text);
    const auto rapidJson = std::make_shared<Peer::RapidJson>();
    const auto simdJson = std::make_shared<Peer::SimdJson>(text);

    const std::string decode = "decode/" + body + '/';
    addDecode<Value>(decode + "codec", text, [=](Value &v) { decodeWithCodec(text, v); });
    addDecode<Value>(decode + "simdjson", text, [=](Value &v) { simdJson->decode(v); });
    addDecode<Value>(decode + "rapidjson", text, [=](Value &v) { rapidJson->decode(text, v); });
    addDecode<Value>(decode + "nlohmann", text,
                     [=](Value &v) { Peer::Nlohmann().decode(text, v); });
    addDecode<Value>(decode + "qjson", text, [=](Value &v) { Peer::QtJson::decode(bytes, v); });

    const std::string encode = "encode/" + body + '/';
    addEncode(encode + "codec", text.size(), [value, out = std::string()]() mutable {
        ajson::encodeRecord(value, out);
        return out.size();
    });
    addEncode(encode + "rapidjson", text.size(), [=] { return rapidJson->encode(value).size(); });
    addEncode(encode + "nlohmann", text.size(),
              [=] { return Peer::Nlohmann().encode(value).size(); });
    addEncode(encode + "qjson", text.size(), [=] { return Peer::QtJson::encode(value).size(); });
}

} // namespace

int main(int argc, char **argv)
{
    addBody("device", Bodies::deviceDetail());
    addBody("screens", Bodies::screens());
    addBody("files", Bodies::files());
    addBody("switchEffects", Bodies::switchEffects());
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
}
