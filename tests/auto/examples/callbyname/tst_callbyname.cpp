// The program of docs/operations.md: the page shows its source, and it prints what the page says.

#include <support/common/filecontent.h>

#include <tavorosim/simulateddevice.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

class tst_CallByName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pageShowsTheWholeSource();
    void printsWhatThePageSays_data();
    void printsWhatThePageSays();

private:
    QString m_page;
    Tavoro::Sim::SimulatedDevice m_device;
};

void tst_CallByName::initTestCase()
{
    m_page = QString::fromUtf8(contentOf(QStringLiteral(OPERATIONS_PAGE)));
    QString error;
    QVERIFY2(m_device.start(error), qPrintable(error));
}

void tst_CallByName::pageShowsTheWholeSource()
{
    const QString source = QString::fromUtf8(contentOf(QStringLiteral(CALL_BY_NAME_SOURCE)));
    QVERIFY(!source.isEmpty());
    QVERIFY(m_page.contains(QStringLiteral("```cpp\n%1```\n").arg(source)));
}

void tst_CallByName::printsWhatThePageSays_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("output");
    static const QRegularExpression run(
        QStringLiteral("^\\$ callbyname 127\\.0\\.0\\.1 6630 (\\S+)(?: '(.*)')?\n((?:[^$`].*\n)+)"),
        QRegularExpression::MultilineOption);
    int count = 0;
    for (auto runs = run.globalMatch(m_page); runs.hasNext(); ++count) {
        const auto match = runs.next();
        QTest::newRow(qPrintable(match.captured(1)))
            << match.captured(1) << match.captured(2) << match.captured(3);
    }
    QCOMPARE(count, 3);
}

void tst_CallByName::printsWhatThePageSays()
{
    QFETCH(QString, operation);
    QFETCH(QString, argument);
    QStringList words{QStringLiteral("127.0.0.1"), QString::number(m_device.port()), operation};
    if (!argument.isEmpty())
        words += argument;
    QProcess program;
    program.start(QStringLiteral(CALL_BY_NAME), words);
    QVERIFY(program.waitForFinished());
    QTEST(QString::fromUtf8(program.readAllStandardOutput()), "output");
}

QTEST_GUILESS_MAIN(tst_CallByName)
#include "tst_callbyname.moc"
