// Operates the window of docs/guide.md with a simulated device: windowtest TAVOROSIM

#include "window.h"
#include "objectdelegate.h"

#include <support/examples/exampleprogram.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSlider>
#include <QStatusBar>
#include <QTest>

#include <memory>

namespace {

constexpr int patience = 60000; ///< Milliseconds.

QString simulator;

/// Shows what the delegate of the guide draws.
class ReadableDelegate : public ObjectDelegate {
public:
    QStyleOptionViewItem option(const QModelIndex &index) const
    {
        QStyleOptionViewItem drawn;
        drawn.state |= QStyle::State_Enabled;
        initStyleOption(&drawn, index);
        drawn.text.replace(QChar::LineSeparator, QLatin1Char('|'));
        return drawn;
    }
};

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsShowTheDevice();
    void takeExchangesTheLayers();
    void lastPositionOfTheTBarArrives();
    void failureIsOneSentence();
    void layerIsRenamed();
    void opacityArrives();
    void lostDeviceIsGrey();

private:
    template <class Widget>
    Widget *find(const char *name) const;
    QStringList rows(const char *list) const;
    void console(const char *line);

    std::unique_ptr<ExampleProgram> m_device;
    Tavoro::Session m_session;
    std::unique_ptr<Window> m_window;
};

template <class Widget>
Widget *WindowTest::find(const char *name) const
{
    for (auto *widget : m_window->findChildren<Widget *>()) {
        if (widget->accessibleName() == QLatin1String(name))
            return widget;
    }
    qFatal("the window has no \"%s\"", name);
}

QStringList WindowTest::rows(const char *list) const
{
    const auto *const model = find<QListView>(list)->model();
    const ReadableDelegate delegate;
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row)
        texts << delegate.option(model->index(row, 0)).text;
    return texts;
}

/// Carries out a line of the device's console.
void WindowTest::console(const char *line)
{
    m_device->process.write(line + QByteArray("\n"));
    QCOMPARE(m_device->readLine(), QStringLiteral("ok"));
}

void WindowTest::initTestCase()
{
    m_device = std::make_unique<ExampleProgram>(
        simulator.toLocal8Bit().constData(),
        QStringLiteral(
            "--port 0 --inputs 2 --outputs 2 --screens 2 --layers-per-screen 2 --name Hall")
            .split(QLatin1Char(' ')));
    const QString port = m_device->readLine().section(QLatin1Char(':'), -1);
    QVERIFY(m_device->readLine().startsWith(QStringLiteral("discovery port ")));
    m_window = std::make_unique<Window>(m_session);
    m_session.open(QStringLiteral("127.0.0.1"), port.toUShort());
    m_window->show();
    QTRY_VERIFY_WITH_TIMEOUT(m_session.devices().first()->isReady(), patience);
}

void WindowTest::listsShowTheDevice()
{
    if (qEnvironmentVariableIsSet("SCREENSHOT"))
        m_window->grab().save(qEnvironmentVariable("SCREENSHOT"));
    QCOMPARE(rows("Devices"), QStringList{QStringLiteral("Hall")});
    QCOMPARE(rows("Screens"), (QStringList{QStringLiteral("Main"), QStringLiteral("Blend")}));
    QCOMPARE(rows("Preview"),
             (QStringList{QStringLiteral("Background|Input 2, 3840 × 1080 at 0, 0"),
                          QStringLiteral("Layer 1|Input 1, 3840 × 1080 at 0, 0")}));
    QCOMPARE(rows("Programme"),
             (QStringList{QStringLiteral("Background|Input 1, 3840 × 1080 at 0, 0"),
                          QStringLiteral("Layer 1|Input 2, 3840 × 1080 at 0, 0")}));
}

void WindowTest::takeExchangesTheLayers()
{
    const QStringList preview = rows("Preview");
    const QStringList programme = rows("Programme");
    m_window->findChild<QPushButton *>()->click();
    QTRY_COMPARE_WITH_TIMEOUT(m_window->statusBar()->currentMessage(),
                              QStringLiteral("The take is done."), patience);
    QTRY_COMPARE_WITH_TIMEOUT(rows("Programme"), preview, patience);
    QTRY_COMPARE_WITH_TIMEOUT(rows("Preview"), programme, patience);
}

void WindowTest::lastPositionOfTheTBarArrives()
{
    auto *const tbar = find<QSlider>("T-bar");
    for (int percent = 1; percent <= 60; ++percent)
        tbar->setValue(percent);
    const auto *const screens =
        static_cast<Tavoro::Models::ObjectModel *>(find<QListView>("Screens")->model());
    const auto position = [=] {
        return screens->index(0).data(screens->role("tbar")).toMap()[QStringLiteral("percent")];
    };
    QTRY_COMPARE_WITH_TIMEOUT(position().toInt(), 60, patience);
}

void WindowTest::failureIsOneSentence()
{
    console("fault add status=8,code=0x130E,count=1");
    m_window->findChild<QPushButton *>()->click();
    QTRY_COMPARE_WITH_TIMEOUT(
        m_window->statusBar()->currentMessage(),
        QStringLiteral("Hall: screen take information was refused: the device is busy, or "
                       "the object is in use."),
        patience);
}

void WindowTest::layerIsRenamed()
{
    auto *const preview = find<QListView>("Preview");
    const QModelIndex layer = preview->model()->index(0, 0);
    preview->edit(layer);
    auto *const editor = preview->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("Speaker"));
    QTest::keyClick(editor, Qt::Key_Return);
    const auto name = [this] {
        const auto model = m_session.devices().first()->device();
        for (const auto &each : model->layers()) {
            const auto detail = each.lock()->detail();
            if (detail.layerIdenti.sceneType == 2 && detail.zorder == 0)
                return QString::fromStdString(detail.general.name);
        }
        return QString();
    };
    QTRY_COMPARE_WITH_TIMEOUT(name(), QStringLiteral("Speaker"), patience);
}

void WindowTest::opacityArrives()
{
    auto *const preview = find<QListView>("Preview");
    preview->setCurrentIndex(preview->model()->index(1, 0));
    auto *const slider = find<QSlider>("Opacity");
    QCOMPARE(slider->value(), 100);
    for (int percent = 99; percent >= 40; --percent)
        slider->setValue(percent);
    const auto *const layers = static_cast<Tavoro::Models::LayersModel *>(preview->model());
    const auto layer = layers->layer(layers->index(1));
    QTRY_COMPARE_WITH_TIMEOUT(int(layer->detail().opacity), 40, patience);
    preview->setCurrentIndex(preview->model()->index(0, 0));
    QCOMPARE(slider->value(), 100);
}

void WindowTest::lostDeviceIsGrey()
{
    const QModelIndex device = find<QListView>("Devices")->model()->index(0, 0);
    QVERIFY(ReadableDelegate().option(device).state & QStyle::State_Enabled);
    console("switch 0");
    QTRY_VERIFY_WITH_TIMEOUT(!(ReadableDelegate().option(device).state & QStyle::State_Enabled),
                             patience);
    QVERIFY(find<QListView>("Programme")->model()->rowCount() > 0);
    m_window->findChild<QPushButton *>()->click();
    QTRY_VERIFY_WITH_TIMEOUT(m_window->statusBar()->currentMessage().startsWith(
                                 QStringLiteral("Hall: screen take information was not sent: ")),
                             patience);
    if (qEnvironmentVariableIsSet("SCREENSHOT_LOST"))
        m_window->grab().save(qEnvironmentVariable("SCREENSHOT_LOST"));
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    simulator = application.arguments().value(1);
    WindowTest test;
    return QTest::qExec(&test, QStringList(application.arguments().first()));
}

#include "windowtest.moc"
