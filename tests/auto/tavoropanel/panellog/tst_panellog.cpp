// The log view, the status bar, and the message boxes of the library.
#include <support/tavoropanel/windowbench.h>

#include <tavorobizmodel/devicelist.h>
#include <tavoropanel/log/logview.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QMessageBox>
#include <QStatusBar>
#include <QTableView>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<WindowBench>();
        messages().report(Severity::Detail, QStringLiteral("A request."));
        messages().report(Severity::Information, QStringLiteral("A message."));
        messages().report(Severity::Error, QStringLiteral("A failure."), QStringLiteral("Main"));
    }
    void cleanup() { m_bench.reset(); }

    void comboBoxSelectsTheMessages();
    void allMessagesAreCopiedAsText();
    void selectedMessagesAreCopiedAsText();
    void statusBarShowsTheLastMessage();
    void requestsAreNotShownOnTheStatusBar();
    void messageBoxOfTheLibraryIsShownOnce();

private:
    Messages &messages() { return m_bench->window->messages(); }
    LogView &view() { return m_bench->find<LogView>("log"); }
    QTableView &table() { return *view().findChild<QTableView *>(); }
    QStringList shown()
    {
        QStringList texts;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            texts << table().model()->index(row, Messages::TextColumn).data().toString();
        return texts;
    }
    QString copied()
    {
        m_bench->window->actions().action(ActionId::CopyLog).trigger();
        return QGuiApplication::clipboard()->text();
    }

    std::unique_ptr<WindowBench> m_bench;
};

void tst_PanelLog::comboBoxSelectsTheMessages()
{
    auto *const least = view().findChild<QComboBox *>();
    QCOMPARE(shown(), (QStringList{QStringLiteral("A message."), QStringLiteral("A failure.")}));
    least->setFocus();
    QTest::keyClick(least, Qt::Key_Down);
    QCOMPARE(shown(), QStringList{QStringLiteral("A failure.")});
    QTest::keyClick(least, Qt::Key_Down);
    QCOMPARE(shown(),
             (QStringList{QStringLiteral("A request."), QStringLiteral("A message."),
                          QStringLiteral("A failure.")}));
}

void tst_PanelLog::allMessagesAreCopiedAsText()
{
    QCOMPARE(copied(),
             Messages::line(messages().message(1)) + QLatin1Char('\n')
                 + Messages::line(messages().message(2)));
}

void tst_PanelLog::selectedMessagesAreCopiedAsText()
{
    table().selectRow(1);
    QCOMPARE(copied(), Messages::line(messages().message(2)));
    QVERIFY(copied().endsWith(QStringLiteral("\tError\tMain\tA failure.")));
}

void tst_PanelLog::statusBarShowsTheLastMessage()
{
    QCOMPARE(m_bench->window->statusBar()->currentMessage(), QStringLiteral("Error: A failure."));
    messages().report(Severity::Information, QStringLiteral("Fine again."));
    QCOMPARE(m_bench->window->statusBar()->currentMessage(), QStringLiteral("Fine again."));
}

void tst_PanelLog::requestsAreNotShownOnTheStatusBar()
{
    messages().report(Severity::Detail, QStringLiteral("Another request."));
    QCOMPARE(m_bench->window->statusBar()->currentMessage(), QStringLiteral("Error: A failure."));
}

void tst_PanelLog::messageBoxOfTheLibraryIsShownOnce()
{
    const QString text = QStringLiteral("Device data has been updated, please synchronize now.");
    for (int i = 0; i < 2; ++i)
        Q_EMIT BizModel::DeviceList::instance()->signalShowFramelessMessageBoxMsg(
            BizModel::Enum::MessageBoxWarning, text);
    const auto boxes = m_bench->window->findChildren<QMessageBox *>();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.first()->text(), text);
    QCOMPARE(boxes.first()->icon(), QMessageBox::Warning);
    QVERIFY(boxes.first()->isVisible());
    QVERIFY(shown().contains(text));
    QTest::keyClick(boxes.first(), Qt::Key_Return);
    QTRY_VERIFY(m_bench->window->findChildren<QMessageBox *>().isEmpty());
}

QTEST_MAIN(tst_PanelLog)
#include "tst_panellog.moc"
