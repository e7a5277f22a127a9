// Control of a device: shown, taken, released and forced in the panel.
#include <support/tavoropanel/windowbench.h>

#include <tavoropanel/control/controlbar.h>
#include <tavoropanel/live/statusline.h>

#include <QAction>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Tavoro;
using namespace Tavoro::Panel;
using SSProxy::ControlAction;

class tst_PanelControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<WindowBench>();
        QVERIFY(m_bench->openSelected());
        m_other = std::make_unique<TcpConnection>(m_bench->running->simulator->port());
    }
    void cleanup()
    {
        m_other.reset();
        m_bench.reset();
    }

    void controlIsTakenAndReleasedWithItsButtons();
    void firstWriteTakesControl();
    void holderIsNamedWhileControlsAreDisabled();
    void forcingAsksFirst();
    void lossOfControlIsShown();
    void lostDeviceHasNoControl();

private:
    QString shown() { return m_bench->find<QLabel>("controlState").text(); }
    QPushButton &button(const QString &text)
    {
        const auto buttons = m_bench->find<ControlBar>("control").findChildren<QPushButton *>();
        for (QPushButton *const each : buttons) {
            if (each->text() == text)
                return *each;
        }
        qFatal("no button %s", qUtf8Printable(text));
    }
    QString holder()
    {
        QString name;
        m_other->channel->readControlHolder(name);
        return name;
    }
    bool hasMessage(const QString &part)
    {
        const Messages &messages = m_bench->window->messages();
        for (int row = 0; row < messages.rowCount(); ++row) {
            if (messages.message(row).text.contains(part))
                return true;
        }
        return false;
    }
    bool otherRequests(ControlAction action)
    {
        QString error;
        return m_other->channel->requestControl(action, error);
    }

    std::unique_ptr<WindowBench> m_bench;
    std::unique_ptr<TcpConnection> m_other;
};

void tst_PanelControl::controlIsTakenAndReleasedWithItsButtons()
{
    QTRY_COMPARE(shown(), QStringLiteral("Not controlled"));
    WindowBench::click(button(QStringLiteral("Take control")));
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by this panel"));
    QVERIFY(!holder().isEmpty());
    WindowBench::click(button(QStringLiteral("Release control")));
    QTRY_COMPARE(shown(), QStringLiteral("Not controlled"));
    QCOMPARE(holder(), QString());

    m_bench->key(Qt::Key_T, Qt::ControlModifier);
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by this panel"));
}

void tst_PanelControl::firstWriteTakesControl()
{
    QTRY_COMPARE(shown(), QStringLiteral("Not controlled"));
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by this panel"));
}

void tst_PanelControl::holderIsNamedWhileControlsAreDisabled()
{
    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by ") + holder());
    QVERIFY(!m_bench->window->actions().action(ActionId::Take).isEnabled());
    QTRY_COMPARE(
        m_bench->window->findChild<StatusLine *>()->text(),
        QStringLiteral("Not possible: wall 1 is controlled by %1. Take control to operate it.")
            .arg(holder()));
    WindowBench::click(button(QStringLiteral("Take control")));
    QTRY_VERIFY(hasMessage(holder()));
    QVERIFY(!m_bench->window->selection().canWrite());

    QVERIFY(otherRequests(ControlAction::GiveUp));
    QTRY_COMPARE(shown(), QStringLiteral("Not controlled"));
    QVERIFY(m_bench->window->actions().action(ActionId::Take).isEnabled());
}

void tst_PanelControl::forcingAsksFirst()
{
    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_VERIFY(m_bench->wall->isControlledByOthers());
    const QString before = holder();

    WindowBench::click(button(QStringLiteral("Force control…")));
    auto *box = m_bench->window->findChild<QMessageBox *>();
    QVERIFY(box);
    WindowBench::click(*box->button(QMessageBox::Cancel));
    QTRY_VERIFY(!m_bench->window->findChild<QMessageBox *>());
    QCOMPARE(holder(), before);

    WindowBench::click(button(QStringLiteral("Force control…")));
    box = m_bench->window->findChild<QMessageBox *>();
    QVERIFY(box);
    WindowBench::click(*box->findChild<QPushButton *>(QStringLiteral("force")));
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by this panel"));
    QVERIFY(holder() != before);
}

void tst_PanelControl::lossOfControlIsShown()
{
    WindowBench::click(button(QStringLiteral("Take control")));
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by this panel"));
    QVERIFY(otherRequests(ControlAction::Force));
    QTRY_COMPARE(shown(), QStringLiteral("Controlled by ") + holder());
}

void tst_PanelControl::lostDeviceHasNoControl()
{
    QVERIFY(button(QStringLiteral("Take control")).isEnabled());
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!button(QStringLiteral("Take control")).isEnabled());
    QVERIFY(!m_bench->find<QLabel>("controlState").isVisible());
    QVERIFY(
        m_bench->find<QLabel>("deviceState").text().startsWith(QStringLiteral("Connection lost")));
}

QTEST_MAIN(tst_PanelControl)
#include "tst_panelcontrol.moc"
