// Every fault of a device in every kind of operation: checks the result, the log, the status bar,
// the model and the store, and that everything works when the fault is over.

#include <support/tavorosim/faultrows.h>
#include <support/tavorosim/operations.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/screen.h>

#include <QtTest>

namespace {

// clang-format off
/// The reason that a user sees for the status in a cell.
struct Words {
    const char *cell;
    const char *reason;
};
constexpr Words words[] = {
    {"8",       "hardware error:8"},
    {"259",     "software error: Channel disconnected"},
    {"260",     "software error: Request timed out"},
    {"357",     "protocol error: Invalid register address"},
    {"358",     "protocol error: Return data is too short"},
    {"359",     "protocol error: Invalid protocol header flag"},
    {"360",     "protocol error: Invalid checksum index"},
    {"361",     "protocol error: Invalid checksum"},
    {"362",     "protocol error: Invalid type"},
    {"363",     "protocol error: Invalid extended data length"},
    {"365",     "protocol error: Device response decoding timed out"},
    {"offline", "The device is offline"},
};

/// The error text of the codec for an answer that is not a valid record.
struct NoRecord {
    const char *fault;
    const char *operation;
    const char *error;
};
constexpr NoRecord noRecords[] = {
    {"truncate",      "read",            "Decode json failed: error at line :0 col :8 msg:not a valid quote string!"},
    {"truncate",      "split read",      "Decode json failed: error at line :0 col :629 msg:read object must start with {!"},
    {"truncate",      "synchronisation", "Decode json failed: error at line :0 col :209 msg:invalid json document!"},
    {"garble=100000", "read",            "Decode json failed: error at line :0 col :17 msg:not a valid string!"},
    {"garble=100000", "split read",      "Decode json failed: error at line :0 col :800 msg:invalid json document!"},
    {"garble=100000", "synchronisation", "Decode json failed: error at line :0 col :400 msg:array must start with [."},
};
// clang-format on

QString reasonOf(const QString &cell)
{
    for (const Words &row : words) {
        if (cell == QLatin1String(row.cell))
            return QLatin1String(row.reason);
    }
    return {};
}

QString filled(const char *text, const QString &with)
{
    return QString::fromLatin1(text).replace(QLatin1String("%1"), with);
}

QString shownOn(int type, const QString &text)
{
    return QStringLiteral("status bar %1 for 5000 ms: %2").arg(type).arg(text);
}

QString logged(const QString &text)
{
    return QStringLiteral("warning: ") + text;
}

/// One outcome of a cell, with the texts of an operation.
class Outcome {
public:
    Outcome(const FaultRow &fault, const Operation &operation, const QString &cell)
        : m_fault(fault),
          m_operation(operation),
          m_result(cell.section(QLatin1Char('@'), 0, 0)),
          m_otherPacket(cell.section(QLatin1Char('@'), 1))
    { }

    bool isFailure() const { return !reasonOf(m_result).isEmpty(); }
    bool isNoRecord() const { return m_result == QLatin1String("json"); }
    bool isOk() const { return !isFailure() && !isNoRecord(); }
    QString result() const { return m_result; }

    QString error() const
    {
        if (isNoRecord())
            return noRecord();
        return isFailure() ? filled(m_operation.error, reasonOf(m_result))
                           : QStringLiteral("text from before");
    }
    QString noRecord() const
    {
        for (const NoRecord &row : noRecords) {
            if (qstrcmp(row.fault, m_fault.fault) == 0
                && qstrcmp(row.operation, m_operation.name) == 0)
                return QLatin1String(row.error);
        }
        return {};
    }
    /// The sentence on the status bar.
    QString sentence() const { return filled(m_operation.failed, reasonOf(m_result)); }

    QStringList warnings() const
    {
        if (!isFailure())
            return {};
        QString line = QStringLiteral("TavoroCmd {device} ")
            + filled(m_operation.logged, isBare() ? reasonOf(m_result) : sentence());
        const QString packet =
            m_otherPacket.isEmpty() ? QLatin1String(m_operation.packet) : m_otherPacket;
        if (!packet.isEmpty() && m_result != QLatin1String("offline"))
            line += QStringLiteral(" \",send count/total count:%1\"").arg(packet);
        QStringList lines{logged(line)};
        if (m_operation.logsBesides[0] != '\0')
            lines << logged(filled(m_operation.logsBesides, sentence()));
        return lines;
    }
    QString shown() const
    {
        return isFailure() ? shownOn(2, sentence())
                           : shownOn(0, QLatin1String(m_operation.succeeded));
    }
    /// The number of packets that a streamed read passes on.
    int handedOver() const
    {
        if (isOk())
            return 3;
        return m_otherPacket.isEmpty() && m_result != QLatin1String("offline") ? 1 : 2;
    }

private:
    bool isBare() const { return qstrcmp(m_operation.error, "%1") == 0; }

    const FaultRow &m_fault;
    const Operation &m_operation;
    const QString m_result;
    const QString m_otherPacket;
};

/// The row of a screen whose record was truncated in its timing: the fields after that place have
/// their defaults.
QString brokenOff(const QString &row)
{
    const QString place = QStringLiteral("\"timing\":{\"interlaced\":0,");
    std::string text;
    ajson::encodeRecord(Tavoro::ProtoModel::Screen::s_ScreenFullDetail{}, text);
    const QString other = QString::fromStdString(text);
    return row.left(row.indexOf(place)) + other.mid(other.indexOf(place)) + QLatin1Char(' ');
}

/// The rows of model and store after a synchronisation. If the read of the screens fails, there are
/// no layers either; all other objects that can be read are there.
QStringList heldAfter(const FaultBench &bench, const Outcome &outcome, bool hasFiles, int screens)
{
    const auto before = [&](int kind) {
        return bench.rowsBefore(kind);
    };
    QStringList held = before(0) + before(1) + before(2);
    if (outcome.isOk())
        held << before(3) << before(4);
    else if (screens == 1)
        held << brokenOff(before(3).constFirst());
    if (hasFiles)
        held << before(5);
    return held + before(6) + before(7);
}

} // namespace

class tst_FaultOperations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCellHolds_data();
    void everyCellHolds();
    void cleanupTestCase();

private:
    FaultBench &benchOf(int row);
    void checkSingle(FaultBench &bench, const Shown &shown, const Outcome &outcome);
    void checkStreamed(FaultBench &bench, const Shown &shown, const Outcome &outcome);
    void checkSynchronisation(FaultBench &bench, const Shown &shown, const Outcome &outcome,
                              const QString &files, int screens);

    std::unique_ptr<FaultBench> m_bench;
    int m_benchRow = -1;
};

FaultBench &tst_FaultOperations::benchOf(int row)
{
    if (row != m_benchRow) {
        m_bench.reset();
        m_bench = std::make_unique<FaultBench>(faultRows[row].time);
        m_benchRow = row;
        resetDevice(*m_bench);
        m_bench->synchronise();
        m_bench->remember();
    }
    return *m_bench;
}

void tst_FaultOperations::cleanupTestCase()
{
    m_bench.reset();
}

void tst_FaultOperations::everyCellHolds_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    for (int row = 0; row < int(std::size(faultRows)); ++row) {
        for (int column = 0; column < operationCount; ++column)
            QTest::addRow("%s, %s", faultRows[row].fault, operations[column].name) << row << column;
    }
}

void tst_FaultOperations::everyCellHolds()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const FaultRow &fault = faultRows[row];
    const Operation &operation = operations[column];
    FaultBench &bench = benchOf(row);
    resetDevice(bench);
    bench.addFault(QLatin1String(fault.fault) + QLatin1String(operation.rule));
    const Shown shown = bench.run([&](QString &error) { return operation.run(bench, error); });
    bench.checkFaultStruck();
    bench.checkTime(shown);

    const QStringList cell = QString::fromLatin1(fault.cells[column]).split(QLatin1Char(' '));
    const QStringList choice = cell.first().split(QLatin1Char('|'));
    const bool isSecond =
        choice.size() > 1 && shown.warnings.value(0).contains(reasonOf(choice.last()));
    const Outcome outcome(fault, operation, isSecond ? choice.last() : choice.first());
    if (operation.isSynchronisation())
        checkSynchronisation(bench, shown, outcome, QLatin1String(fault.files),
                             cell.value(1).toInt());
    else if (operation.isStreamed())
        checkStreamed(bench, shown, outcome);
    else
        checkSingle(bench, shown, outcome);

    bench.lift(fault.isLost);
    bench.checkNextExchange();
    if (operation.hasHappened)
        QCOMPARE(operation.hasHappened(bench), cell.last() == QLatin1String("done"));
    if (operation.isSynchronisation()) {
        resetDevice(bench);
        QVERIFY(bench.synchronise());
    }
    bench.checkModelIsUnchanged();
    bench.checkResources();
}

void tst_FaultOperations::checkSingle(FaultBench &bench, const Shown &shown, const Outcome &outcome)
{
    QCOMPARE(shown.error, outcome.error());
    QCOMPARE(shown.ok, outcome.isOk());
    QCOMPARE(shown.warnings, outcome.warnings());
    QCOMPARE(shown.statusBar, QStringList(outcome.shown()));
    bench.checkModelIsUnchanged();
}

void tst_FaultOperations::checkStreamed(FaultBench &bench, const Shown &shown,
                                        const Outcome &outcome)
{
    const bool isShort = outcome.result() == QLatin1String("short");
    const QStringList packets{
        QStringLiteral("callback 1: 0.33, 400 bytes"),
        QStringLiteral("callback 1: 0.67, %1 bytes").arg(isShort ? 200 : 400),
        QStringLiteral("callback 1: 1.00, 200 bytes"),
    };
    QStringList lines = packets.mid(0, outcome.handedOver()) << outcome.shown();
    if (outcome.isFailure())
        lines << (outcome.handedOver() == 1 ? QStringLiteral("callback 0: 0.33, 0 bytes")
                                            : QStringLiteral("callback 0: 0.67, 0 bytes"));
    QCOMPARE(shown.error, outcome.error());
    QCOMPARE(shown.ok, outcome.isOk());
    QCOMPARE(shown.warnings, outcome.warnings());
    QCOMPARE(shown.statusBar, lines);
    bench.checkModelIsUnchanged();
}

void tst_FaultOperations::checkSynchronisation(FaultBench &bench, const Shown &shown,
                                               const Outcome &outcome, const QString &files,
                                               int screens)
{
    const QString noFiles =
        QStringLiteral("Get file detail information failed: %1 .").arg(reasonOf(files));
    const bool hasFiles = files == QLatin1String("ok");
    QStringList warnings = outcome.warnings();
    if (outcome.isNoRecord())
        warnings << QStringLiteral("warning: Read screen details failed. \"%1\"")
                        .arg(outcome.noRecord());
    if (!outcome.isOk() && !hasFiles)
        warnings << logged(
            QStringLiteral("TavoroCmd {device} \"BC(fa), FC(0).\" \"%1\" {tag}").arg(noFiles))
                 << QStringLiteral("warning: Read file details failed.");
    QCOMPARE(shown.warnings, warnings);

    QStringList lines{
        shownOn(0, QStringLiteral("Set set device time information successfully.")),
        shownOn(0, QStringLiteral("Get device detail information successfully.")),
        shownOn(0, QStringLiteral("Get interface detail information successfully.")),
        outcome.shown(),
    };
    if (outcome.isOk())
        lines << shownOn(0, QStringLiteral("Get layer detail information successfully."));
    if (outcome.isOk() || hasFiles)
        lines << shownOn(0, QStringLiteral("Get file detail information successfully."))
              << shownOn(0, QStringLiteral("Get file export information successfully."));
    else
        lines << shownOn(2, noFiles);
    QCOMPARE(shown.statusBar, lines);

    QVERIFY(shown.ok); // the outcome is that of the layers
    const auto device = bench.sync.listed();
    QCOMPARE(device->isSyncDataSuccess(), outcome.isOk());
    QVERIFY(device->isOnline());
    bench.checkModelHolds(heldAfter(bench, outcome, outcome.isOk() || hasFiles, screens));
    bench.checkStoreFollowed();
}

QTEST_GUILESS_MAIN(tst_FaultOperations)
#include "tst_faultoperations.moc"
