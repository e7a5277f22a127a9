// Measures decoding and encoding of whole bodies by the codec and by general JSON libraries, all
// with the same records.
//
//   case           body
//   screens        an array of 32 full screens
//   files          an array of 2,000 file details
//   switchEffects  an array of 8 switch effects: a small write
//
// Consecutive runs use different bodies, in a cycle. The contenders are measured in interleaved
// rounds, in random order, and the medians of the rounds are compared. Each library runs under its
// best conditions: events directly into the records if it has them, padded input, reused parsers
// and buffers. Before the measurement all must read the same record.
//
// --json prints one JSON object per line for each ratio that has a goal. The options of Google
// Benchmark work as well: --benchmark_repetitions sets the number of rounds, and
// --benchmark_filter selects cases and contenders by their names, such as "files decode/codec".

#include "bodies.h"
#include "nlohmannpeer.h"
#include "qjsonpeer.h"
#include "rapidjsonpeer.h"
#include "ratios.h"
#include "simdjsonpeer.h"

#include <tavorocontrol/proto/codec.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

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

/// Calls \a run with the index of the next body in each iteration.
template <class Run>
void addBenchmark(const std::string &name, std::size_t bodies, Run run)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) mutable {
        std::size_t body = 0;
        for (auto _ : state) {
            run(body);
            body = body + 1 == bodies ? 0 : body + 1;
        }
    });
}

/// Measures a function that decodes an input into the given record.
template <class Value, class Input, class Decode>
void addDecode(const std::string &name, const std::vector<Input> &inputs,
               const std::vector<std::string> &texts, Decode decode)
{
    for (std::size_t body = 0; body < inputs.size(); ++body) {
        Value value;
        decode(inputs[body], value);
        if (encoded(value) != texts[body]) {
            std::cerr << name << " decodes a different record\n";
            std::exit(EXIT_FAILURE);
        }
    }
    addBenchmark(name, inputs.size(), [=](std::size_t body) mutable {
        Value value;
        decode(inputs[body], value);
        benchmark::DoNotOptimize(value);
    });
}

/// Measures a function that encodes a record and returns the number of bytes.
template <class Value, class Encode>
void addEncode(const std::string &name, const std::vector<Value> &values, Encode encode)
{
    addBenchmark(name, values.size(),
                 [=](std::size_t body) mutable { benchmark::DoNotOptimize(encode(values[body])); });
}

template <class Value>
void addDecodes(const std::string &name, const std::vector<std::string> &texts)
{
    std::vector<std::shared_ptr<const simdjson::padded_string>> paddedTexts;
    std::vector<QByteArray> byteArrays;
    for (const std::string &text : texts) {
        paddedTexts.push_back(std::make_shared<simdjson::padded_string>(text));
        byteArrays.push_back(QByteArray::fromStdString(text));
    }
    const auto simdJson = std::make_shared<Peer::SimdJson>();
    const auto rapidJson = std::make_shared<Peer::RapidJson>();

    addDecode<Value>(name + "codec", texts, texts,
                     [](const std::string &text, Value &v) { decodeWithCodec(text, v); });
    addDecode<Value>(name + "simdjson", paddedTexts, texts,
                     [=](const auto &text, Value &v) { simdJson->decode(*text, v); });
    addDecode<Value>(name + "rapidjson", texts, texts,
                     [=](const std::string &text, Value &v) { rapidJson->decode(text, v); });
    addDecode<Value>(name + "nlohmann", texts, texts,
                     [](const std::string &text, Value &v) { Peer::Nlohmann().decode(text, v); });
    addDecode<Value>(name + "qjson", byteArrays, texts,
                     [](const QByteArray &text, Value &v) { Peer::QtJson::decode(text, v); });
}

template <class Value>
void addEncodes(const std::string &name, const std::vector<Value> &values)
{
    const auto rapidJson = std::make_shared<Peer::RapidJson>();
    addEncode(name + "codec", values, [out = std::string()](const Value &value) mutable {
        ajson::encodeRecord(value, out);
        return out.size();
    });
    addEncode(name + "rapidjson", values,
              [=](const Value &value) { return rapidJson->encode(value).size(); });
    addEncode(name + "nlohmann", values,
              [](const Value &value) { return Peer::Nlohmann().encode(value).size(); });
    addEncode(name + "qjson", values,
              [](const Value &value) { return Peer::QtJson::encode(value).size(); });
}

template <class Value>
void addCase(const std::string &name, const std::vector<Value> &values)
{
    std::vector<std::string> texts;
    for (const Value &value : values)
        texts.push_back(encoded(value));
    addDecodes<Value>(name + " decode/", texts);
    addEncodes<Value>(name + " encode/", values);
}

/// The arguments for Google Benchmark: the defaults, which the user's arguments override.
std::vector<char *> arguments(int argc, char **argv)
{
    static char defaults[][48] = {"--benchmark_repetitions=21", "--benchmark_min_time=0.01",
                                  "--benchmark_enable_random_interleaving=true"};
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, std::begin(defaults), std::end(defaults));
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<char *> args = arguments(argc, argv);
    const auto json = std::remove(args.begin(), args.end(), std::string_view("--json"));
    Ratios ratios(json == args.end() ? Ratios::Format::Table : Ratios::Format::JsonLines);
    args.erase(json, args.end());
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return EXIT_FAILURE;

    addCase("screens", Bodies::screens());
    addCase("files", Bodies::files());
    addCase("switchEffects", Bodies::switchEffects());
    benchmark::RunSpecifiedBenchmarks(&ratios);
}
