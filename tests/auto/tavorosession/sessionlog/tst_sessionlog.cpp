// The log of a session has no bodies, unless they are switched on.

#include <support/common/messagecatcher.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/bodylog.h>
#include <tavorocontrol/device.h>

#include <QRegularExpression>

using namespace Tavoro;

class tst_SessionLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readingLogsNoBodies();
    void callsLogBodiesOnlyWhenSwitchedOn();
    void optionSwitchesBodiesOn();
    void reportsLogNoBodies();
    void controlLibraryLogsBodiesOfOtherDevices();

private:
    static SessionBench::Options withBodies()
    {
        SessionBench::Options options = SessionBench::fastOptions();
        options.logsBodies = true;
        return options;
    }
    /// What the control library has logged of exchanges, without the device and the tag.
    static QStringList exchanges(const MessageCatcher &log)
    {
        static const QRegularExpression identity(
            QStringLiteral("^TavoroCmd \"wall 1\" \"[^\"]*\" "));
        static const QRegularExpression tag(QStringLiteral("lables: \\d+"));
        QStringList lines;
        const auto texts = log.texts("tavoro.control", QtInfoMsg);
        for (QString line : texts)
            lines << line.remove(identity).replace(tag, QStringLiteral("lables"));
        return lines;
    }
    /// A write and a read.
    static QStringList linesOfCalls(SessionBench &bench)
    {
        MessageCatcher log;
        resultOf(bench.wall->call(&Control::Device::writeSwap, {1}));
        resultOf(bench.wall->call(&Control::Device::readDeviceGroupInfo));
        return exchanges(log).filter(QLatin1String("BC(11), FC(7)"))
            + exchanges(log).filter(QLatin1String("BC(11), FC(a)"));
    }
};

void tst_SessionLog::readingLogsNoBodies()
{
    MessageCatcher log;
    SessionBench bench;
    QVERIFY(bench.openReady());
    const QStringList lines = exchanges(log);
    QVERIFY(lines.size() > 8);
    for (const QString &line : lines)
        QVERIFY2(!line.contains(QLatin1Char('{')) && !line.contains(QLatin1Char('[')),
                 qPrintable(line));
}

void tst_SessionLog::callsLogBodiesOnlyWhenSwitchedOn()
{
    SessionBench bench;
    QVERIFY(bench.openReady());
    // clang-format off
    const QStringList quiet{
        QStringLiteral(R"("BC(11), FC(7)." "Set device swap status information." " lables")"),
        QStringLiteral(R"("BC(11), FC(7)." "Set device swap status information successfully." " lables")"),
        QStringLiteral(R"("BC(11), FC(a)." "Get device group information.arg2 values:" 0 0 0 0 " lables")"),
        QStringLiteral(R"("BC(11), FC(a)." "Get device group information successfully." " lables")"),
    };
    const QStringList whole{
        QStringLiteral(R"("BC(11), FC(7)." "Set device swap status information." " lables" "{\"swap\":1}")"),
        QStringLiteral(R"("BC(11), FC(7)." "Set device swap status information successfully." " lables")"),
        QStringLiteral(R"("BC(11), FC(a)." "Get device group information.arg2 values:" 0 0 0 0 " lables")"),
        QStringLiteral(R"("BC(11), FC(a)." "Get device group information successfully." " lables, content:" "{\"groupInfos\":[]}")"),
    };
    // clang-format on
    QCOMPARE(linesOfCalls(bench), quiet);
    bench.wall->setBodiesLogged(true);
    QCOMPARE(linesOfCalls(bench), whole);
    bench.wall->setBodiesLogged(false);
    QCOMPARE(linesOfCalls(bench), quiet);
}

void tst_SessionLog::optionSwitchesBodiesOn()
{
    SessionBench bench(withBodies());
    QVERIFY(bench.openReady());
    QVERIFY(linesOfCalls(bench).join(QString()).contains(QLatin1String("swap")));
}

void tst_SessionLog::reportsLogNoBodies()
{
    SessionBench bench;
    QVERIFY(bench.openReady());
    const auto lineOfAReport = [&] {
        MessageCatcher log;
        if (!bench.execute(QStringLiteral("power 1 0")))
            return QStringLiteral("the console refused");
        const auto reports = [&] {
            return log.texts("tavoro.control", QtDebugMsg).filter(QLatin1String("auto report"));
        };
        return QTest::qWaitFor([&] { return !reports().isEmpty(); }, 60000) ? reports().first()
                                                                            : QString();
    };
    const QString words = QStringLiteral("FC(03).Process result: 1, device power information\"");
    QString line = lineOfAReport();
    QVERIFY2(line.endsWith(words), qPrintable(line));
    bench.wall->setBodiesLogged(true);
    line = lineOfAReport();
    QVERIFY2(line.contains(words + QStringLiteral(R"( "{\"powers\":)")), qPrintable(line));
}

void tst_SessionLog::controlLibraryLogsBodiesOfOtherDevices()
{
    SessionBench bench;
    QVERIFY(bench.openReady());
    const auto device = bench.wall->device();
    delete bench.wall;
    QVERIFY(Control::areBodiesLogged(*device));
}

QTEST_GUILESS_MAIN(tst_SessionLog)
#include "tst_sessionlog.moc"
