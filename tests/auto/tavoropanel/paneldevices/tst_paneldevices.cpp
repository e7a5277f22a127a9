// The list of devices: every state of a device, and what the operator does with the list.
#include <support/tavoropanel/windowbench.h>

#include <tavorobizmodel/devicelist.h>
#include <tavoropanel/devices/sessionsmodel.h>

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSpinBox>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelDevices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<WindowBench>(); }
    void cleanup() { m_bench.reset(); }

    void statesAreShownInWords();
    void readingShowsItsProgress();
    void refusedReadingNamesTheReason();
    void closedDeviceIsDisconnectedUntilReconnected();
    void deviceIsAddedByItsAddress();
    void deviceIsRemovedFromTheListAndTheModel();
    void selectedRowIsTheSelectedDevice();
    void lastMessageOfADeviceIsShown();
    void controlByAnotherClientIsShown();
    void emptyListSaysWhatToDo();
    void devicesOnTheNetworkAreSearched();

private:
    QListView &list() { return *m_bench->find<QWidget>("devices").findChild<QListView *>(); }
    QString text(int role, int row = 0)
    {
        return list().model()->index(row, 0).data(role).toString();
    }
    QString stateText() { return text(SessionsModel::StateTextRole); }
    void trigger(ActionId id) { m_bench->window->actions().action(id).trigger(); }

    std::unique_ptr<WindowBench> m_bench;
};

void tst_PanelDevices::statesAreShownInWords()
{
    QStringList words;
    m_bench->open();
    words << stateText();
    const QObject context; // ends the connection before the words end
    connect(m_bench->wall, &DeviceSession::stateChanged, &context, [&] { words << stateText(); });
    QTRY_VERIFY(m_bench->wall->isReady());
    QCOMPARE(words,
             (QStringList{QStringLiteral("Connecting"), QStringLiteral("Reading, 0 %"),
                          QStringLiteral("Ready")}));
    QCOMPARE(text(Qt::DisplayRole), QStringLiteral("wall 1"));

    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY2(stateText().startsWith(QStringLiteral("Connection lost: ")),
                 qUtf8Printable(stateText()));
    QTRY_VERIFY2(stateText().contains(QStringLiteral("; next attempt at ")),
                 qUtf8Printable(stateText()));
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_COMPARE(stateText(), QStringLiteral("Ready"));
}

void tst_PanelDevices::readingShowsItsProgress()
{
    m_bench->open();
    QList<double> shares;
    const QObject context; // ends the connection before the list ends
    connect(list().model(), &QAbstractItemModel::dataChanged, &context,
            [&](const QModelIndex &index) {
                shares << index.data(SessionsModel::ProgressRole).toDouble();
            });
    QTRY_VERIFY(m_bench->wall->isReady());
    const auto isPart = [](double share) {
        return share > 0 && share < 1;
    };
    QVERIFY(std::any_of(shares.begin(), shares.end(), isPart));
    QCOMPARE(text(SessionsModel::ProgressRole), QStringLiteral("-1"));
}

void tst_PanelDevices::refusedReadingNamesTheReason()
{
    QVERIFY(m_bench->addFault("status=10,code=0x1300"));
    m_bench->open();
    QTRY_VERIFY(m_bench->wall->isReady());
    QVERIFY2(stateText().startsWith(QStringLiteral("Ready: ")), qUtf8Printable(stateText()));
}

void tst_PanelDevices::closedDeviceIsDisconnectedUntilReconnected()
{
    QVERIFY(m_bench->openSelected());
    m_bench->wall->close();
    QVERIFY2(stateText().startsWith(QStringLiteral("Disconnected")), qUtf8Printable(stateText()));
    trigger(ActionId::Reconnect);
    QTRY_COMPARE(stateText(), QStringLiteral("Ready"));
}

void tst_PanelDevices::deviceIsAddedByItsAddress()
{
    m_bench->key(Qt::Key_N, Qt::ControlModifier);
    auto *const dialog = m_bench->window->findChild<QDialog *>();
    QVERIFY(dialog);
    auto *const host = dialog->findChild<QLineEdit *>(QStringLiteral("host"));
    QPushButton *add = nullptr;
    for (QPushButton *const button : dialog->findChildren<QPushButton *>()) {
        if (button->text() == QLatin1String("Add"))
            add = button;
    }
    QVERIFY(host && add);
    QVERIFY(!add->isEnabled());
    QTest::keyClicks(host, QStringLiteral(" 127.0.0.1"));
    QVERIFY(add->isEnabled());
    dialog->findChild<QSpinBox *>()->setValue(m_bench->running->simulator->port());
    WindowBench::click(*add);
    QTRY_COMPARE(stateText(), QStringLiteral("Ready"));
    QCOMPARE(m_bench->window->selection().device(), m_bench->session->devices().first());
}

void tst_PanelDevices::deviceIsRemovedFromTheListAndTheModel()
{
    QVERIFY(m_bench->openSelected());
    QCOMPARE(BizModel::DeviceList::instance()->devices().size(), 1);
    trigger(ActionId::RemoveDevice);
    QCOMPARE(list().model()->rowCount(), 0);
    QVERIFY(m_bench->session->devices().isEmpty());
    QVERIFY(BizModel::DeviceList::instance()->devices().isEmpty());
    QVERIFY(!m_bench->window->selection().device());
    QVERIFY(!m_bench->window->actions().action(ActionId::RemoveDevice).isEnabled());
}

void tst_PanelDevices::selectedRowIsTheSelectedDevice()
{
    QVERIFY(m_bench->openSelected());
    RunningSimulator other(SessionBench::smallDevice(2));
    DeviceSession *const second =
        m_bench->session->open(QStringLiteral("127.0.0.1"), other.simulator->port());
    QTRY_VERIFY(second->isReady());
    QCOMPARE(m_bench->window->selection().device(), m_bench->wall);

    const QRect row = list().visualRect(list().model()->index(1, 0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(m_bench->window->selection().device(), second);
    QTest::keyClick(&list(), Qt::Key_Up);
    QCOMPARE(m_bench->window->selection().device(), m_bench->wall);
    m_bench->window->selection().setDevice(second);
    QCOMPARE(list().currentIndex().row(), 1);
}

void tst_PanelDevices::lastMessageOfADeviceIsShown()
{
    QVERIFY(m_bench->openSelected());
    m_bench->window->messages().report(Severity::Warning, QStringLiteral("The fan is slow."),
                                       QStringLiteral("wall 1"));
    m_bench->window->messages().report(Severity::Warning, QStringLiteral("Elsewhere."),
                                       QStringLiteral("wall 2"));
    QCOMPARE(text(SessionsModel::MessageRole), QStringLiteral("The fan is slow."));
}

void tst_PanelDevices::controlByAnotherClientIsShown()
{
    QVERIFY(m_bench->openSelected());
    QCOMPARE(text(SessionsModel::ControlTextRole), QString());
    TcpConnection other(m_bench->running->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    QTRY_COMPARE(text(SessionsModel::ControlTextRole),
                 QStringLiteral("Controlled by another client"));
}

void tst_PanelDevices::emptyListSaysWhatToDo()
{
    QLabel *const hint = m_bench->find<QWidget>("devices").findChild<QLabel *>();
    QVERIFY(hint->isVisible());
    m_bench->open();
    QVERIFY(!hint->isVisible());
    QVERIFY(list().isVisible());
}

void tst_PanelDevices::devicesOnTheNetworkAreSearched()
{
    QAction &find = m_bench->window->actions().action(ActionId::FindDevices);
    find.trigger();
    QVERIFY(find.isChecked());
    const Messages &messages = m_bench->window->messages();
    const auto last = [&] {
        return messages.message(messages.rowCount() - 1).text;
    };
    QCOMPARE(last(), QStringLiteral("Searching the network for devices."));
    find.trigger();
    QCOMPARE(last(), QStringLiteral("The search for devices has ended."));
}

QTEST_MAIN(tst_PanelDevices)
#include "tst_paneldevices.moc"
