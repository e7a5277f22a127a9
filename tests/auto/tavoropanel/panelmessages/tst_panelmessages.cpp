// The messages of the panel: what is reported, and what is shown of it.
#include <support/tavoropanel/panelbench.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/screen.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelMessages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void messageHasTimeSeverityDeviceAndText();
    void refusedCallIsAnErrorOfItsDevice();
    void doneCallIsNotReportedTwice();
    void statusBarMessagesOfTheLibraryAreKept_data();
    void statusBarMessagesOfTheLibraryAreKept();
    void oldestMessagesAreDropped();
};

namespace {

QStringList texts(const Messages &messages)
{
    QStringList found;
    for (int row = 0; row < messages.rowCount(); ++row)
        found << messages.message(row).text;
    return found;
}

} // namespace

void tst_PanelMessages::messageHasTimeSeverityDeviceAndText()
{
    Messages messages;
    const QDateTime before = QDateTime::currentDateTime();
    messages.report(Severity::Warning, QStringLiteral("The fan is slow."), QStringLiteral("Main"));

    QCOMPARE(messages.rowCount(), 1);
    QVERIFY(messages.message(0).time >= before);
    const auto text = [&](int column) {
        return messages.index(0, column).data().toString();
    };
    QCOMPARE(text(Messages::SeverityColumn), QStringLiteral("Warning"));
    QCOMPARE(text(Messages::DeviceColumn), QStringLiteral("Main"));
    QCOMPARE(text(Messages::TextColumn), QStringLiteral("The fan is slow."));

    Message message = messages.message(0);
    message.time = QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7, 89));
    QCOMPARE(Messages::line(message),
             QStringLiteral("2026-03-04 05:06:07.089\tWarning\tMain\tThe fan is slow."));
}

void tst_PanelMessages::refusedCallIsAnErrorOfItsDevice()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.addFault("status=4,code=0x1309,count=1"));
    const Outcome outcome =
        resultOf(bench.wall->call(&Control::Screen::writeFreeze, {ProtoModel::Screen::s_Freeze()}));
    QTRY_COMPARE(bench.messages.message(bench.messages.rowCount() - 1).severity, Severity::Warning);

    bench.messages.report(outcome);
    const Message &last = bench.messages.message(bench.messages.rowCount() - 1);
    QCOMPARE(last.severity, Severity::Error);
    QCOMPARE(last.device, QStringLiteral("wall 1"));
    QCOMPARE(
        last.text,
        QStringLiteral("wall 1: screen freeze information was refused: a value is out of range."));
}

void tst_PanelMessages::doneCallIsNotReportedTwice()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    ProtoModel::Screen::s_Freeze freeze;
    freeze.screenId = 1;
    freeze.screenType = 1;
    const auto before =
        texts(bench.messages).count(QStringLiteral("Set screen freeze information successfully."));
    const Outcome outcome = resultOf(bench.wall->call(&Control::Screen::writeFreeze, {freeze}));
    QVERIFY2(outcome, qUtf8Printable(outcome.text()));
    bench.messages.report(outcome);
    QTRY_COMPARE(
        texts(bench.messages).count(QStringLiteral("Set screen freeze information successfully.")),
        before + 1);
}

void tst_PanelMessages::statusBarMessagesOfTheLibraryAreKept_data()
{
    using namespace BizModel::Enum;
    QTest::addColumn<int>("type");
    QTest::addColumn<Severity>("severity");
    QTest::newRow("success") << int(StatusBarSuccess) << Severity::Detail;
    QTest::newRow("information") << int(StatusBarInformation) << Severity::Information;
    QTest::newRow("failure") << int(StatusBarFailure) << Severity::Warning;
}

void tst_PanelMessages::statusBarMessagesOfTheLibraryAreKept()
{
    QFETCH(const int, type);
    QFETCH(const Severity, severity);
    Messages messages;
    Q_EMIT BizModel::DeviceList::instance()->signalShowStatusBarMsg(
        static_cast<BizModel::Enum::StatusBarMsgType>(type), QStringLiteral("Something."), 5000);
    QCOMPARE(messages.rowCount(), 1);
    QCOMPARE(messages.message(0).severity, severity);
    QCOMPARE(messages.message(0).text, QStringLiteral("Something."));
}

void tst_PanelMessages::oldestMessagesAreDropped()
{
    Messages messages;
    QSignalSpy removed(&messages, &Messages::rowsRemoved);
    for (int i = 0; i <= Messages::maxMessages; ++i)
        messages.report(Severity::Detail, QString::number(i));
    QCOMPARE(messages.rowCount(), Messages::maxMessages);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(messages.message(0).text, QStringLiteral("1"));
}

QTEST_MAIN(tst_PanelMessages)
#include "tst_panelmessages.moc"
