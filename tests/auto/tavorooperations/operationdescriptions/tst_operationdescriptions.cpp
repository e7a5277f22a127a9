// Descriptions of operations for programs in other languages.

#include <tavorooperations/jsontext.h>
#include <tavorooperations/schema.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Tavoro::Operations;

class tst_OperationDescriptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writeIsDescribed();
    void readIsDescribed();
    void numbersHaveRanges_data();
    void numbersHaveRanges();
    void rawTextHasNoSchema();
    void reasonIsGivenWhereNothingChanges();
    void everyReferenceHasItsDefinition_data();
    void everyReferenceHasItsDefinition();
    void definitionsAreThoseOfTheRecords();
};

namespace {

QJsonObject descriptionOf(const char *name)
{
    return describe(*find(QLatin1String(name)));
}

QString textOf(const QJsonValue &value)
{
    return jsonText(value);
}

/// The names of the records to which \a value refers, directly.
QStringList referencesIn(const QJsonValue &value)
{
    QStringList names;
    const QJsonArray list = value.toArray();
    for (const QJsonValue element : list)
        names += referencesIn(element);
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (member.key() == QLatin1String("$ref"))
            names += member.value().toString().mid(8);
        else
            names += referencesIn(member.value());
    }
    return names;
}

} // namespace

void tst_OperationDescriptions::writeIsDescribed()
{
    QJsonObject description = descriptionOf("Screen.writeTake");
    const QJsonObject definitions = description.take(QStringLiteral("$defs")).toObject();
    QCOMPARE(definitions.keys().join(QLatin1Char(' ')),
             QStringLiteral("Screen::s_SwitchEffect Screen::s_SwitchEffectBody"));
    QCOMPARE(
        textOf(description),
        QStringLiteral(
            R"({"arguments":[{"name":"screens","schema":{"items":{"$ref":"#/$defs/Screen::s_SwitchEffect"},"type":"array"}}],)"
            R"("changes":[{"keys":["screenType","screenId"],"kind":"layers","read":"Layer.readDetails"}],)"
            R"("code":"0x130E","name":"Screen.writeTake",)"
            R"("summary":"Takes: switches the preview to programme with the given transition.","type":"write"})"));
}

void tst_OperationDescriptions::readIsDescribed()
{
    QJsonObject description = descriptionOf("File.readDetails");
    QVERIFY(description.take(QStringLiteral("$defs"))
                .toObject()
                .contains(QStringLiteral("File::s_FileDetail")));
    QCOMPARE(
        textOf(description),
        QStringLiteral(
            R"({"answer":{"items":{"$ref":"#/$defs/File::s_FileDetail"},"type":"array"},)"
            R"("arguments":[{"name":"fileType","schema":{"maximum":255,"minimum":-1,"type":"integer"}},)"
            R"({"name":"fileId","schema":{"maximum":255,"minimum":-1,"type":"integer"}}],)"
            R"("code":"0xFA00","name":"File.readDetails","summary":"Lists files.","type":"read"})"));
}

void tst_OperationDescriptions::numbersHaveRanges_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("filter") << QByteArray("Interface.readDetails") << -1 << 255;
    QTest::newRow("number") << QByteArray("Layer.writeRemovedAll") << 0 << 255;
    QTest::newRow("enumeration") << QByteArray("Device.writeLoadToPGM") << 0 << 255;
}

void tst_OperationDescriptions::numbersHaveRanges()
{
    QFETCH(QByteArray, name);
    const QJsonArray arguments = descriptionOf(name).value(QLatin1String("arguments")).toArray();
    const QJsonObject schema = arguments.at(0).toObject().value(QLatin1String("schema")).toObject();
    QTEST(schema.value(QLatin1String("minimum")).toInt(), "minimum");
    QTEST(schema.value(QLatin1String("maximum")).toInt(), "maximum");
}

void tst_OperationDescriptions::rawTextHasNoSchema()
{
    const QJsonObject description = descriptionOf("Device.sendReadDeviceDetailsCmd");
    QCOMPARE(description.value(QLatin1String("answer")), QJsonValue(QJsonObject()));
}

void tst_OperationDescriptions::reasonIsGivenWhereNothingChanges()
{
    const QJsonObject description = descriptionOf("Auxiliary.setDeviceTime");
    QCOMPARE(textOf(description.value(QLatin1String("changes"))), QStringLiteral("[]"));
    QCOMPARE(description.value(QLatin1String("whyNothingChanges")).toString(),
             QStringLiteral("No read returns the time of the device."));
    QVERIFY(!descriptionOf("Screen.writeTake").contains(QStringLiteral("whyNothingChanges")));
}

void tst_OperationDescriptions::everyReferenceHasItsDefinition_data()
{
    QTest::addColumn<QString>("name");
    for (const Operation &operation : all())
        QTest::newRow(qPrintable(operation.name())) << operation.name();
}

void tst_OperationDescriptions::everyReferenceHasItsDefinition()
{
    QFETCH(QString, name);
    const QJsonObject description = describe(*find(name));
    QStringList used = referencesIn(description);
    used.sort();
    used.removeDuplicates();
    QCOMPARE(description.value(QLatin1String("$defs")).toObject().keys(), used);
    QVERIFY(!description.value(QLatin1String("summary")).toString().isEmpty());
}

void tst_OperationDescriptions::definitionsAreThoseOfTheRecords()
{
    const QJsonObject records =
        jsonValue(recordsDocument()).toObject().value(QLatin1String("$defs")).toObject();
    const QJsonObject used =
        descriptionOf("Device.readDetails").value(QLatin1String("$defs")).toObject();
    QVERIFY(used.size() > 10);
    for (auto record = used.begin(); record != used.end(); ++record) {
        QVERIFY(record.value().isObject());
        QCOMPARE(record.value(), records.value(record.key()));
    }
}

QTEST_GUILESS_MAIN(tst_OperationDescriptions)
#include "tst_operationdescriptions.moc"
