// Arguments of calls: numbers and records as JSON.

#include <support/common/texts.h>

#include <tavorooperations/argumentreader_p.h>
#include <tavorooperations/recordargument_p.h>

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::Operations;
using namespace Tavoro::Operations::Internal;

class tst_OperationArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void validRecordsHaveNoFault_data();
    void validRecordsHaveNoFault();
    void faultOfARecordNamesItsPlace_data();
    void faultOfARecordNamesItsPlace();
    void faultOfAListNamesItsPlace_data();
    void faultOfAListNamesItsPlace();
    void missingKeysAreListed_data();
    void missingKeysAreListed();
    void codecFaultsCountFromOne();

    void argumentsAreReadInOrder();
    void faultNamesTheArgument_data();
    void faultNamesTheArgument();
};

namespace {

template <class Record>
QString faultOf(const QString &text, Record &record, MissingKeys missing)
{
    bool lacksKeys = false;
    return readRecord(text.toStdString(), record, missing, lacksKeys);
}

} // namespace

void tst_OperationArguments::validRecordsHaveNoFault_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << "{}";
    QTest::newRow("one key") << R"({"swap":1})";
    QTest::newRow("blanks") << "\n { \"swap\" :\t1 }\n";
    QTest::newRow("another notation of the number") << R"({"swap":1.0})";
}

void tst_OperationArguments::validRecordsHaveNoFault()
{
    QFETCH(QString, text);
    ProtoModel::Device::s_swap record;
    QCOMPARE(faultOf(text, record, MissingKeys::SentAsDefaults), QString());
}

void tst_OperationArguments::faultOfARecordNamesItsPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    // clang-format off
    QTest::newRow("empty")           << ""                                   << "line 1, column 1: illegal value";
    QTest::newRow("cut off")         << R"({"general":)"                     << "line 1, column 12: unterminated object";
    QTest::newRow("list")            << R"( [{"general":{}}])"               << "line 1, column 2: expected an object {...}, found a list";
    QTest::newRow("unknown key")     << R"({"genral":{}})"
        << R"(line 1, column 2: unknown key "genral"; did you mean "general"; the keys here are: general)";
    QTest::newRow("key further in")  << "{\"general\":\n  {\"nme\":1}}"
        << R"(line 2, column 4: unknown key "nme"; did you mean "name"; the keys here are: name, status)";
    QTest::newRow("word for number") << R"({"general":{"status":"on"}})"     << R"(line 1, column 22: "on" would be sent as 0)";
    QTest::newRow("too large")       << R"({"general":{"status":4294967297}})"
        << "line 1, column 22: 4294967297 would be sent as 1; the range is -2147483648 to 2147483647";
    QTest::newRow("fraction")        << R"({"general":{"status":1.5}})"
        << "line 1, column 22: 1.5 would be sent as 1; the range is -2147483648 to 2147483647";
    QTest::newRow("null")            << R"({"general":{"status":null}})"     << "line 1, column 22: null would be sent as 0";
    QTest::newRow("number for text") << R"({"general":{"name":5}})"          << "line 1, column 20: not a valid string.";
    QTest::newRow("object for list") << R"({"general":[]})"                  << "line 1, column 12: read object must start with {!";
    QTest::newRow("after the empty") << R"({"general":{},"x":1})"            << R"(line 1, column 15: unknown key "x"; the keys here are: general)";
    QTest::newRow("text with accent")<< R"({"general":{"name":"é","status":7.5}})"
        << "line 1, column 33: 7.5 would be sent as 7; the range is -2147483648 to 2147483647";
    // clang-format on
}

void tst_OperationArguments::faultOfARecordNamesItsPlace()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    ProtoModel::Device::s_General record;
    QCOMPARE(faultOf(text, record, MissingKeys::SentAsDefaults), fault);
}

void tst_OperationArguments::faultOfAListNamesItsPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    // clang-format off
    QTest::newRow("object")          << R"({"screenId":1})"                  << "line 1, column 1: expected a list [...], found an object";
    QTest::newRow("wide id")         << R"([{"screenId":1},{"screenId":256}])" << "line 1, column 29: 256 would be sent as 0; the range is 0 to 255";
    QTest::newRow("negative id")     << R"([{"screenId":-1}])"
        << "line 1, column 14: -1 is out of range; the range is 0 to 255";
    QTest::newRow("negative ids")    << "[{\"screenId\":3},\n{\"screenId\": -300},{\"screenId\":-1}]"
        << "line 2, column 14: -300 is out of range; the range is 0 to 255";
    QTest::newRow("negative zero")   << R"([{"screenId":-0}])"
        << "line 1, column 15: assign a negative signed integral to unsigned integral number.";
    QTest::newRow("negative and cut") << R"([{"screenId":-1},{"screenId":{}}])"
        << "line 1, column 15: assign a negative signed integral to unsigned integral number.";
    QTest::newRow("cut by an empty object") << R"([{"layout":{},"screenId":3}])" << "line 1, column 24: read object must start with {!";
    // clang-format on
}

void tst_OperationArguments::faultOfAListNamesItsPlace()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    std::vector<ProtoModel::Screen::s_Layout> list;
    QCOMPARE(faultOf(text, list, MissingKeys::SentAsDefaults), fault);
}

void tst_OperationArguments::missingKeysAreListed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("fault");
    const QByteArray whole = QByteArray(R"("layerIdenti":{"screenId":1,"screenType":1,)"
                                        R"("layerId":1,"layerType":1,"sceneType":2})");
    const QByteArray window = QByteArray(R"("window":{"x":0,"y":0,"width":9,"height":9})");
    // clang-format off
    QTest::newRow("empty list")     << QByteArray("[]")                                               << QByteArray();
    QTest::newRow("complete")        << "[{" + whole + "," + window + "}]"                  << QByteArray();
    QTest::newRow("missing object")  << "[{" + whole + "}]"                                 << QByteArray("missing keys: [0].window");
    QTest::newRow("in an object")   << "[{" + whole + R"(,"window":{"x":100}}])"
        << QByteArray("missing keys: [0].window.height, [0].window.width, [0].window.y");
    QTest::newRow("second element") << "[{" + whole + "," + window + "},{" + window + "}]" << QByteArray("missing keys: [1].layerIdenti");
    QTest::newRow("typing error")   << QByteArray(R"([{"windo":{}}])")
        << QByteArray(R"(line 1, column 3: unknown key "windo"; did you mean "window"; the keys here are: layerIdenti, window)");
    // clang-format on
}

void tst_OperationArguments::missingKeysAreListed()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, fault);
    std::vector<ProtoModel::Layer::s_LayerWindow> list;
    bool lacksKeys = false;
    QCOMPARE(readRecord(text.toStdString(), list, MissingKeys::Refused, lacksKeys),
             QString::fromUtf8(fault));
    QCOMPARE(lacksKeys, fault.startsWith("missing keys"));
}

void tst_OperationArguments::codecFaultsCountFromOne()
{
    QCOMPARE(faultOfCodec("error at line :0 col :0 msg:no valid array!"),
             QStringLiteral("line 1, column 1: no valid array!"));
    QCOMPARE(faultOfCodec("error at line :4 col :17 msg:no valid array!"),
             QStringLiteral("line 5, column 17: no valid array!"));
    QCOMPARE(faultOfCodec("out of memory"), QStringLiteral("out of memory"));
}

void tst_OperationArguments::argumentsAreReadInOrder()
{
    const QStringList arguments =
        toTexts({"-1", "255", "wall", "1", R"([{"cutFill":{"enable":true}}])"});
    ArgumentReader reader(arguments, MissingKeys::SentAsDefaults);
    int filter = 0;
    quint8 number = 0;
    QString text;
    BizModel::Enum::Device::LoadToPGMStatus status{};
    std::vector<ProtoModel::Layer::s_CutFill> list;
    reader.read(filter);
    reader.read(number);
    reader.read(text);
    reader.read(status);
    reader.read(list);
    QCOMPARE(reader.fault(), QString());
    QCOMPARE(filter, -1);
    QCOMPARE(int(number), 255);
    QCOMPARE(text, QStringLiteral("wall"));
    QCOMPARE(int(status), 1);
    QCOMPARE(list.at(0).cutFill.enable, true);
}

void tst_OperationArguments::faultNamesTheArgument_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("fault");
    // clang-format off
    QTest::newRow("missing")    << QByteArrayList{"1"}                 << "argument 2: a number is missing";
    QTest::newRow("all missing")<< QByteArrayList{}                    << "argument 1: a number is missing";
    QTest::newRow("too many")   << QByteArrayList{"1", "2", "3"}       << R"(argument 3: unexpected "3")";
    QTest::newRow("no number")  << QByteArrayList{"1", "two"}          << R"(argument 2: "two" is not a number)";
    QTest::newRow("fraction")   << QByteArrayList{"1.5", "2"}          << R"(argument 1: "1.5" is not a number)";
    QTest::newRow("below")      << QByteArrayList{"-2", "2"}           << "argument 1: -2 is not between -1 and 255";
    QTest::newRow("above")      << QByteArrayList{"1", "256"}          << "argument 2: 256 is not between 0 and 255";
    QTest::newRow("far below")  << QByteArrayList{"-99999999999999999999", "2"}
        << "argument 1: -99999999999999999999 is not between -1 and 255";
    QTest::newRow("far above")  << QByteArrayList{"1", "99999999999999999999"}
        << "argument 2: 99999999999999999999 is not between 0 and 255";
    QTest::newRow("no digits")  << QByteArrayList{"1", "-"}            << R"(argument 2: "-" is not a number)";
    QTest::newRow("first wins") << QByteArrayList{"x", "y", "z"}       << R"(argument 1: "x" is not a number)";
    // clang-format on
}

void tst_OperationArguments::faultNamesTheArgument()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, fault);
    const QStringList words = toTexts(arguments);
    ArgumentReader reader(words, MissingKeys::Refused);
    int filter = 0;
    quint8 number = 0;
    reader.read(filter);
    reader.read(number);
    QCOMPARE(reader.fault(), fault);
}

QTEST_GUILESS_MAIN(tst_OperationArguments)
#include "tst_operationarguments.moc"
