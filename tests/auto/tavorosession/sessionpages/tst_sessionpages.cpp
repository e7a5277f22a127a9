// docs/session.md and docs/threads.md: their snippets are compiled here, and their numbers are
// those of the libraries.

#include <support/common/filecontent.h>
#include <support/tavorobizmodel/pagesnippets.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/screen.h>
#include <tavorosession/session.h>
#include <tavorossproxy/devicecommand.h>

#include <QTest>

#include <algorithm>

using namespace Tavoro;

namespace {

struct ProgressBar {
    void setValue(int) { }
};

/// The object in which the pages write their snippets.
class Window : public QObject {
public:
    explicit Window(Session &) { }

    void showMessage(BizModel::Enum::StatusBarMsgType, const QString &, int) { }
    void show(const DeviceState &) { }
    void showError(const QString &) { }
    void showEnd(const QString &) { }

    void snippetsOfSessions(const ProtoModel::Screen::s_SwitchEffect &effect)
    {
        using namespace Tavoro;

        Session session;
        DeviceSession *wall = session.open(QStringLiteral("192.0.2.7"));
        connect(wall, &DeviceSession::stateChanged, this, [=] { show(wall->state()); });

        wall->call(&Control::Screen::writeTake, {effect}).then(this, [=](const Outcome &outcome) {
            if (!outcome)
                showError(outcome.text());
        });
    }

    void snippetsOfTransfers(DeviceSession *wall, const ProtoModel::File::s_FileInfo &info,
                             const QString &path, ProgressBar *bar)
    {
        const PendingTransfer transfer = wall->files().sendFrom(info, path);
        transfer.onProgress(
            this, [=](const TransferProgress &now) { bar->setValue(int(100 * now.share())); });
        transfer.then(this, [=](const Outcome &outcome) { showEnd(outcome.text()); });
    }

    void snippetsOfThreads()
    {
        connect(BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowStatusBarMsg,
                this, &Window::showMessage);
    }
};

int snippetOfMain(int argc, char *argv[])
{
    using QApplication = QCoreApplication;
    QApplication application(argc, argv);
    Session session;
    Window window(session);
    return application.exec();
}

QString seconds(std::chrono::milliseconds time)
{
    return QStringLiteral("%1 s").arg(time.count() / 1000);
}

} // namespace

class tst_SessionPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySnippetIsCompiled_data();
    void everySnippetIsCompiled();
    void numbersAreThoseOfTheLibraries();
};

void tst_SessionPages::everySnippetIsCompiled_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("session.md") << QStringLiteral(PAGES "/session.md");
    QTest::newRow("threads.md") << QStringLiteral(PAGES "/threads.md");
}

void tst_SessionPages::everySnippetIsCompiled()
{
    QFETCH(QString, page);
    QCOMPARE(snippetsNotIn(QStringLiteral(SOURCE_FILE), page), QStringList());
    QVERIFY(&snippetOfMain != nullptr);
}

void tst_SessionPages::numbersAreThoseOfTheLibraries()
{
    const QString page = QString::fromUtf8(contentOf(QStringLiteral(PAGES "/threads.md")));
    const SessionOptions options;
    BizModel::Device device(65535, nullptr);
    const auto &timeouts = device.deviceConfig().timeouts;
    quint32 longest = 0;
    for (const auto &each : timeouts)
        longest = std::max(longest, each->timeout);
    const QString usual = seconds(std::chrono::milliseconds(device.deviceConfig().defaultTimeout));
    const QString packet =
        seconds(std::chrono::milliseconds(SSProxy::DeviceRequestCommand::defaultTimeout));
    const QStringList statements{
        QStringLiteral("`SessionOptions::outcomeTime` (%1)").arg(seconds(options.outcomeTime)),
        QStringLiteral("`outcomeTime` (%1)").arg(seconds(options.outcomeTime)),
        QStringLiteral("`ChannelOptions::keepAliveTimeout` (%1)")
            .arg(seconds(options.channel.keepAliveTimeout)),
        QStringLiteral("%1 for most, [up to %2](model.md#timeouts-of-commands) for a save")
            .arg(usual, seconds(std::chrono::milliseconds(longest))),
        QStringLiteral("up to %1 more for each packet after the first").arg(packet),
        QStringLiteral("up to %1 for each packet, instead of").arg(packet),
    };
    for (const QString &statement : statements)
        QVERIFY2(page.contains(statement), qPrintable(statement));
}

QTEST_GUILESS_MAIN(tst_SessionPages)
#include "tst_sessionpages.moc"
