#include <schema.h>

#include <support/proto/recordschema.h>

#include <tavorooperations/schema.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QtTest>

namespace {

QByteArray contentOf(const char *path)
{
    QFile file(QStringLiteral(SOURCE_DIR "/") + QLatin1String(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonArray commandsOfSchema()
{
    const QJsonDocument document = QJsonDocument::fromJson(contentOf("docs/schema/commands.json"));
    return document.object()[QLatin1String("commands")].toArray();
}

/// The body that is not empty, in the form of the tables of docs/protocol.md.
QString bodyOf(const QJsonObject &command)
{
    for (const char *key : {"request", "answer", "report"}) {
        const QJsonValue body = command[QLatin1String(key)];
        if (body == QJsonValue(QStringLiteral("bytes")))
            return QStringLiteral("raw bytes");
        if (!body.isObject())
            continue;
        const QJsonObject items = body.toObject()[QLatin1String("items")].toObject();
        const QString reference =
            (items.isEmpty() ? body.toObject() : items)[QLatin1String("$ref")].toString();
        const QString name = reference.mid(reference.indexOf(QLatin1String("$defs/")) + 6);
        return (items.isEmpty() ? QStringLiteral("`%1`") : QStringLiteral("`[%1]`")).arg(name);
    }
    return QStringLiteral("empty");
}

/// Code, type and body of each command, as docs/schema/commands.json gives them.
QStringList schemaRows()
{
    QStringList rows;
    for (const QJsonValue value : commandsOfSchema()) {
        const QJsonObject command = value.toObject();
        rows << QStringLiteral("%1 %2 %3")
                    .arg(command[QLatin1String("code")].toString(),
                         command[QLatin1String("type")].toString(), bodyOf(command));
    }
    return rows;
}

/// The same from the tables of docs/protocol.md.
QStringList pageRows()
{
    const QRegularExpression row(
        QStringLiteral("^\\| (0x[0-9A-F]{4}) \\| ([a-z ]+) \\| ([^|,]+) \\|"),
        QRegularExpression::MultilineOption);
    QStringList rows;
    auto matches = row.globalMatch(QString::fromUtf8(contentOf("docs/protocol.md")));
    while (matches.hasNext()) {
        const auto match = matches.next();
        rows << QStringLiteral("%1 %2 %3")
                    .arg(match.captured(1), match.captured(2), match.captured(3));
    }
    return rows;
}

/// Name and code of every command, as the enumeration declares them.
QStringList declaredCommands()
{
    const QRegularExpression enumerator(QStringLiteral("^    (\\w+) += (0x[0-9A-F]{4}),"),
                                        QRegularExpression::MultilineOption);
    QStringList commands;
    auto matches = enumerator.globalMatch(
        QString::fromUtf8(contentOf("src/libs/contracts/tavorossproxy/commandcodes.h")));
    while (matches.hasNext()) {
        const auto match = matches.next();
        commands << match.captured(1) + QLatin1Char(' ') + match.captured(2);
    }
    return commands;
}

} // namespace

/// docs/schema is complete and up to date. That the schema of each record matches the codec is
/// tested with the records of each domain.
class tst_RecordSchema : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void committedFilesAreWhatTheGeneratorWrites();
    void everyRecordHasADefinition();
    void everyCommandIsListed();
    void commandsAreThoseOfTheProtocolPage();
    void recordsOfCommandsAreDefined();
    void invalidValuesAreRejected_data();
    void invalidValuesAreRejected();
};

/// After a change of a record or a command: cmake --build --preset dev --target schema
void tst_RecordSchema::committedFilesAreWhatTheGeneratorWrites()
{
    using namespace Tavoro;
    QCOMPARE(contentOf("docs/schema/records.json"),
             QByteArray::fromStdString(Operations::recordsDocument()));
    QCOMPARE(contentOf("docs/schema/commands.json"),
             QByteArray::fromStdString(Schema::commandsDocument()));
}

void tst_RecordSchema::everyRecordHasADefinition()
{
    const RecordSchema schema;
    const QByteArray shared = "Tavoro::ProtoModel::";
    QByteArrayList missing;
    int count = 0;
    for (const QByteArray &line : contentOf("tests/data/records.tsv").trimmed().split('\n')) {
        const QByteArray record = line.left(line.indexOf('\t')).mid(shared.size());
        ++count;
        if (!schema.contains(record))
            missing << record;
    }
    QCOMPARE(missing.join(' '), QByteArray());
    QCOMPARE(count, 165);
}

void tst_RecordSchema::everyCommandIsListed()
{
    QStringList listed;
    for (const QJsonValue value : commandsOfSchema()) {
        const QJsonObject command = value.toObject();
        listed << command[QLatin1String("name")].toString() + QLatin1Char(' ')
                + command[QLatin1String("code")].toString();
    }
    listed.removeDuplicates();
    QCOMPARE(listed.size(), 89);
    QCOMPARE(listed, declaredCommands());
}

void tst_RecordSchema::commandsAreThoseOfTheProtocolPage()
{
    QCOMPARE(schemaRows(), pageRows());
}

void tst_RecordSchema::recordsOfCommandsAreDefined()
{
    const RecordSchema schema;
    for (const QJsonValue value : commandsOfSchema()) {
        const QString body = bodyOf(value.toObject());
        if (body.startsWith(QLatin1Char('`')))
            QVERIFY2(
                schema.contains(
                    QString(body).remove(QRegularExpression(QStringLiteral("[`\\[\\]]"))).toUtf8()),
                qPrintable(body));
    }
}

void tst_RecordSchema::invalidValuesAreRejected_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("error");
    // clang-format off
    QTest::newRow("key is missing")    << "s_RGB"                << R"({"R":1,"G":2})"                          << "B: missing";
    QTest::newRow("text for a number") << "s_RGB"                << R"({"R":1,"G":2,"B":"3"})"                  << "B: not a number";
    QTest::newRow("beyond 8 bits")     << "s_ScreenId"           << R"({"screenId":256,"screenType":0})"        << "screenId: out of range";
    QTest::newRow("below zero")        << "s_ScreenId"           << R"({"screenId":-1,"screenType":0})"         << "screenId: out of range";
    QTest::newRow("flag as a word")    << "Layer::s_CutFillBody" << R"({"enable":true,"isBinding":0})"          << "enable: not a number";
    QTest::newRow("flag beyond 1")     << "Layer::s_CutFillBody" << R"({"enable":2,"isBinding":0})"             << "enable: not 0 or 1";
    QTest::newRow("number for a text") << "File::s_FileGeneral"  << R"({"name":5})"                             << "name: not a string";
    QTest::newRow("object for a list") << "Device::s_Powers"     << R"({"powers":{}})"                          << "powers: not an array";
    QTest::newRow("bad element")       << "Device::s_Powers"     << R"({"powers":[{"powerId":1,"iSignal":2}]})" << "powers: status: missing";
    QTest::newRow("list for a record") << "Device::s_General"    << R"({"general":[]})"                         << "general: not an object";
    QTest::newRow("nothing wrong")     << "s_RGB"                << R"({"R":1,"G":2,"B":3,"other":[]})"         << "";
    // clang-format on
}

void tst_RecordSchema::invalidValuesAreRejected()
{
    QFETCH(QString, record);
    QFETCH(QString, json);
    QTEST(RecordSchema().error(record.toUtf8(), json.toUtf8()), "error");
}

QTEST_GUILESS_MAIN(tst_RecordSchema)
#include "tst_recordschema.moc"
