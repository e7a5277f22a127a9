#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <utility>

namespace {

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
}

/// What \a pattern captures in \a line, or an empty text.
QString captured(const QString &line, const QString &pattern)
{
    return QRegularExpression(pattern).match(line).captured(1);
}

/// Full names of the records that a header declares, in its order. Their names begin with s_.
QStringList recordsOfHeader(const QString &path)
{
    const QRegularExpression fields(QStringLiteral("^    TAVORO_\\w*FIELDS\\("));
    QString space;
    QString record;
    QStringList names;
    for (const QString &line : linesOf(path)) {
        const QString newSpace = captured(line, QStringLiteral("^namespace ([\\w:]+) \\{"));
        const QString newRecord = captured(line, QStringLiteral("^struct (s_\\w+)"));
        if (!newSpace.isEmpty())
            space = newSpace;
        if (!newRecord.isEmpty())
            record = newRecord;
        if (!record.isEmpty() && line.contains(fields))
            names << space + QStringLiteral("::") + std::exchange(record, QString());
    }
    return names;
}

/// Full names of the records whose readers and writers a source compiles, in its order.
QStringList recordsOfSource(const QString &path)
{
    QStringList names;
    for (const QString &line : linesOf(path)) {
        const QString name = captured(line, QStringLiteral("^TAVORO_CODEC\\(([\\w:]+)\\)"));
        if (!name.isEmpty())
            names << name;
    }
    return names;
}

/// First columns of a data file.
QStringList namesOfData(const char *fileName)
{
    QStringList names;
    for (const QString &line : linesOf(QStringLiteral(TEST_DATA_DIR "/") + QLatin1String(fileName)))
        if (!line.isEmpty())
            names << line.section(QLatin1Char('\t'), 0, 0);
    return names;
}

/// What \a read finds in all files of the record folder that match \a filter.
QStringList inFolder(const QString &filter, QStringList (*read)(const QString &))
{
    const QDir folder(QStringLiteral(PROTO_SOURCE_DIR));
    QStringList names;
    for (const QString &file : folder.entryList({filter}, QDir::Files))
        names << read(folder.filePath(file));
    return names;
}

QStringList declaredRecords()
{
    return inFolder(QStringLiteral("*.h"), &recordsOfHeader);
}

/// Names that only one of the lists has, or that one has twice; empty if the lists are equal.
QString differences(QStringList names)
{
    QStringList different;
    for (const QString &name : declaredRecords())
        if (!names.removeOne(name))
            different << QStringLiteral("missing: ") + name;
    for (const QString &name : names)
        different << QStringLiteral("unknown or repeated: ") + name;
    return different.join(QStringLiteral(", "));
}

} // namespace

/// A new record needs a codec and its rows of test data; these tests find a missing one.
class tst_RecordCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headersDeclareRecords();
    void everyRecordHasOneCodec();
    void everyRecordHasItsDefaultText();
    void everyRecordHasATextWithoutDefaults();
};

void tst_RecordCatalogue::headersDeclareRecords()
{
    // Checks the test itself: after a change of layout it must still find all records.
    QCOMPARE(declaredRecords().size(), 165);
}

void tst_RecordCatalogue::everyRecordHasOneCodec()
{
    const QStringList compiled = inFolder(QStringLiteral("*records.cpp"), &recordsOfSource);
    QCOMPARE(differences(compiled), QString());
}

void tst_RecordCatalogue::everyRecordHasItsDefaultText()
{
    QCOMPARE(differences(namesOfData("records.tsv")), QString());
}

void tst_RecordCatalogue::everyRecordHasATextWithoutDefaults()
{
    QCOMPARE(differences(namesOfData("recordvalues.tsv")), QString());
}

QTEST_GUILESS_MAIN(tst_RecordCatalogue)
#include "tst_recordcatalogue.moc"
