// How the panel starts and ends: the devices of the last run, the demo, the command line.
#include <support/tavoropanel/windowbench.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/interface.h>
#include <tavoropanel/demo/demobar.h>
#include <tavoropanel/demo/demodevice.h>
#include <tavoropanel/options.h>

#include <QAbstractItemModel>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelStart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void devicesOfTheLastRunAreListedAtOnce();
    void plugOfTheDemoMakesTheDeviceGoAndComeBack();
    void inputsOfTheDemoMove();
    void commandLineIsRead();
    void wrongCommandLineIsRefused_data();
    void wrongCommandLineIsRefused();
    void placesOfThePartsAreRestored();
};

namespace {

Options read(const QStringList &arguments)
{
    return readOptions(QStringList{QStringLiteral("tavoropanel")} + arguments);
}

} // namespace

void tst_PanelStart::devicesOfTheLastRunAreListedAtOnce()
{
    const QTemporaryDir folder;
    BizModel::s_DeviceStoreOptions store;
    store.fileName = folder.filePath(QStringLiteral("devices.sqlite"));
    BizModel::DeviceList &list = *BizModel::DeviceList::instance();
    QString error;
    {
        SessionBench bench;
        QVERIFY2(list.openDeviceStore(store, error), qUtf8Printable(error));
        QSignalSpy saved(&list, &BizModel::DeviceList::signalDeviceDataSaved);
        QVERIFY(bench.openReady());
        QTRY_VERIFY(!saved.isEmpty());
        list.closeDeviceStore();
    }
    QVERIFY(list.devices().isEmpty());

    QVERIFY2(list.openDeviceStore(store, error), qUtf8Printable(error));
    WindowBench bench;
    bench.session->openListed();
    const auto *const view = bench.find<QWidget>("devices").findChild<QListView *>();
    QCOMPARE(view->model()->rowCount(), 1);
    QCOMPARE(view->model()->index(0, 0).data().toString(), QStringLiteral("wall 1"));
    QCOMPARE(bench.window->selection().screens().size(), 1);
    QVERIFY(!bench.window->selection().canWrite());
    list.closeDeviceStore();
}

void tst_PanelStart::plugOfTheDemoMakesTheDeviceGoAndComeBack()
{
    DemoDevice demo;
    QString error;
    QVERIFY2(demo.start(error), qUtf8Printable(error));
    WindowBench bench;
    auto *const bar = new DemoBar(demo);
    bench.window->addTopBar(*bar);
    DeviceSession *const device = bench.session->open(QStringLiteral("127.0.0.1"), demo.port());
    QTRY_VERIFY(device->isReady());
    auto &plug = bench.find<QPushButton>("plug");
    QCOMPARE(plug.text(), QStringLiteral("Pull the plug"));
    WindowBench::click(plug);
    QCOMPARE(plug.text(), QStringLiteral("Plug it in again"));
    QTRY_COMPARE(device->state().kind, DeviceState::Lost);
    WindowBench::click(plug);
    QTRY_VERIFY(device->isReady());
}

void tst_PanelStart::inputsOfTheDemoMove()
{
    DemoDevice demo;
    QString error;
    QVERIFY2(demo.start(error), qUtf8Printable(error));
    SessionBench bench;
    DeviceSession *const device = bench.session->open(QStringLiteral("127.0.0.1"), demo.port());
    QTRY_VERIFY(device->isReady());
    const auto widthOfInput = [device](int slot, int connector) {
        const auto input = device->device()->findInterface({slot, connector, 0}).lock();
        return input ? input->detail().actualTiming.horizontal.addTime : -1;
    };
    demo.moveInputs();
    QTRY_COMPARE(widthOfInput(1, 2), 1280);
    demo.moveInputs();
    QTRY_COMPARE(widthOfInput(2, 1), 3840);
}

void tst_PanelStart::commandLineIsRead()
{
    const Options none = read({});
    QVERIFY(!none.isDemo);
    QVERIFY(none.text.isEmpty());
    QVERIFY(none.devices.isEmpty());

    const Options all =
        read({QStringLiteral("--theme"), QStringLiteral("light"), QStringLiteral("--store"),
              QStringLiteral("x.sqlite"), QStringLiteral("192.0.2.7:6631")});
    QCOMPARE(all.theme, QStringLiteral("light"));
    QCOMPARE(all.store, QStringLiteral("x.sqlite"));
    QCOMPARE(all.devices, QStringList{QStringLiteral("192.0.2.7:6631")});
    QVERIFY(all.text.isEmpty());

    QVERIFY(read({QStringLiteral("--demo")}).isDemo);
    QCOMPARE(read({QStringLiteral("--version")}).text, QStringLiteral("tavoropanel 0.1.0"));
    QCOMPARE(read({QStringLiteral("--help")}).status, 0);
    QVERIFY(read({QStringLiteral("--help")}).text.contains(QStringLiteral("--demo")));
}

void tst_PanelStart::wrongCommandLineIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");
    QTest::newRow("option") << QStringList{QStringLiteral("--wrong")}
                            << QStringLiteral("Unknown option 'wrong'.");
    QTest::newRow("theme") << QStringList{QStringLiteral("--theme=pink")}
                           << QStringLiteral("\"pink\" is not a theme; use dark, light or system.");
}

void tst_PanelStart::wrongCommandLineIsRefused()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, text);
    const Options options = read(arguments);
    QCOMPARE(options.text, text);
    QCOMPARE(options.status, 2);
}

void tst_PanelStart::placesOfThePartsAreRestored()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("panel.ini")), QSettings::IniFormat);
    {
        WindowBench bench;
        bench.find<QWidget>("filesDock").hide();
        bench.window->save(settings);
    }
    WindowBench bench;
    QVERIFY(!bench.find<QWidget>("filesDock").isHidden());
    bench.window->restore(settings);
    QVERIFY(bench.find<QWidget>("filesDock").isHidden());
    QCOMPARE(settings.value(QStringLiteral("window/theme")).toString(), QStringLiteral("dark"));
}

QTEST_MAIN(tst_PanelStart)
#include "tst_panelstart.moc"
