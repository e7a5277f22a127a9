// Compares the codec with a second, simple one on texts made from a fixed seed: same outcome, same
// error text, same contents of the record, also after a failure, same text written from it.
// TAVORO_CODEC_INPUTS sets the number of texts.

#include "documentmaker.h"
#include "plainwriter.h"
#include "samplerecords.h"

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/json/jsonwriter.h>
#include <tavorocontrol/proto/screen.h>

#include <QtTest>

namespace {

constexpr int defaultInputs = 1000000;

bool isSame(const std::string &a, const std::string &b)
{
    return a == b;
}

template <class Value>
bool isSame(const std::vector<Value> &a, const std::vector<Value> &b);

template <class Value>
bool isSame(const Value &a, const Value &b)
{
    if constexpr (std::is_arithmetic_v<Value>) {
        return a == b;
    } else {
        return a.visitFields([&b](const auto &...left) {
            return b.visitFields(
                [&](const auto &...right) { return (... && isSame(left, right)); });
        });
    }
}

template <class Value>
bool isSame(const std::vector<Value> &a, const std::vector<Value> &b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const Value left = a[i];
        const Value right = b[i];
        if (!isSame(left, right))
            return false;
    }
    return true;
}

/// The difference between the two codecs; empty if there is none.
template <class Value>
QByteArray difference(const std::string &text)
{
    Value read;
    Value plainlyRead;
    std::string error = "untouched";
    const bool ok = ajson::decodeRecord(text, read, error);
    const std::string plainError = PlainReader::decode(text, plainlyRead);
    if (ok != plainError.empty() || error != (ok ? "untouched" : plainError))
        return QByteArray::fromStdString("error \"" + error + "\", not \"" + plainError + "\"");
    if (!isSame(read, plainlyRead))
        return "other contents: " + QByteArray::fromStdString(PlainWriter::text(read)) + ", not "
            + QByteArray::fromStdString(PlainWriter::text(plainlyRead));
    std::string written;
    ajson::encodeRecord(read, written);
    if (written != PlainWriter::text(read))
        return "other text: " + QByteArray::fromStdString(written);
    return {};
}

template <class Value>
void compareMany(std::uint64_t seed, int share)
{
    const int inputs = qEnvironmentVariableIsSet("TAVORO_CODEC_INPUTS")
        ? qEnvironmentVariableIntValue("TAVORO_CODEC_INPUTS")
        : defaultInputs;
    DocumentMaker maker(seed);
    for (int i = 0; i <= inputs / 100 * share; ++i) {
        const std::string text = maker.make<Value>();
        const QByteArray found = difference<Value>(text);
        QVERIFY2(found.isEmpty(),
                 found + "\nfor "
                     + QByteArray::fromStdString(text).toPercentEncoding(
                         " {}[]:,\"\\/*+#'()<>=&;!?@^`|$"));
    }
}

/// Lists of records that exceed the writer's buffer, with strings of all lengths.
void compareLongTexts(std::uint64_t seed)
{
    DocumentMaker maker(seed);
    for (int i = 0; i < 20; ++i) {
        std::vector<Sample::Everything> list(200);
        std::string error;
        for (Sample::Everything &record : list) {
            ajson::decodeRecord(maker.make<Sample::Everything>(), record, error);
            record.nameLong = maker.bytes(100);
        }
        list[0].name = maker.bytes(20000);
        std::string written;
        ajson::encodeRecord(list, written);
        QVERIFY(written.size() > 3 * ajson::JsonWriter::bufferSize);
        QCOMPARE(QByteArray::fromStdString(written),
                 QByteArray::fromStdString(PlainWriter::text(list)));
    }
}

} // namespace

class tst_CodecEquivalence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void smallRecordIsReadAndWrittenAlike() { compareMany<Sample::Point>(1, 10); }
    void numbersAreReadAndWrittenAlike() { compareMany<Sample::Numbers>(2, 20); }
    void listsAreReadAndWrittenAlike() { compareMany<Sample::Lists>(3, 20); }
    void nestedRecordsAreReadAndWrittenAlike() { compareMany<Sample::Everything>(4, 20); }
    void arrayOfRecordsIsReadAndWrittenAlike() { compareMany<std::vector<Sample::Numbers>>(5, 15); }
    void longTextsAreWrittenAlike() { compareLongTexts(7); }
    void deviceDetailIsReadAndWrittenAlike()
    {
        compareMany<Tavoro::ProtoModel::Device::s_DeviceDetail>(6, 15);
    }
};

QTEST_APPLESS_MAIN(tst_CodecEquivalence)
#include "tst_codecequivalence.moc"
