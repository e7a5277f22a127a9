// The properties of what is selected, edited with mouse and keyboard on a simulated device.

#include <support/tavoropanel/detailsbench.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QToolButton>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelDetailsValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typedNumberIsOnTheDevice_data();
    void typedNumberIsOnTheDevice();
    void clickedFlagIsOnTheDevice_data();
    void clickedFlagIsOnTheDevice();
    void typedNameIsOnTheDevice_data();
    void typedNameIsOnTheDevice();
    void chosenWordIsOnTheDevice();
    void chosenColourIsOnTheDevice();
    void chosenSourceIsOnTheDevice();
    void nameOfAFileIsOnTheDevice();
    void screenCanBeTheSource();
    void openListOfSourcesStaysWhenAFormatChanges();
};

void tst_PanelDetailsValues::typedNumberIsOnTheDevice_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    // clang-format off
    QTest::newRow("window.x")                       << int(LayerTab)  << "-120"  << -120;
    QTest::newRow("window.height")                  << int(LayerTab)  << "700"   << 700;
    QTest::newRow("zorder")                         << int(LayerTab)  << "7"     << 7;
    QTest::newRow("opacity")                        << int(LayerTab)  << "45"    << 45;
    QTest::newRow("general.flipType")               << int(LayerTab)  << "2"     << 2;
    QTest::newRow("mask.bottom")                    << int(LayerTab)  << "12"    << 12;
    QTest::newRow("border.size.hWidth")             << int(LayerTab)  << "9"     << 9;
    QTest::newRow("border.color.opacity")           << int(LayerTab)  << "30"    << 30;
    QTest::newRow("shadow.general.feather")         << int(LayerTab)  << "14"    << 14;
    QTest::newRow("imageQuality.hue")               << int(LayerTab)  << "-15"   << -15;
    QTest::newRow("layout.x")                       << int(ScreenTab) << "33"    << 33;
    QTest::newRow("physicalSize.width")             << int(ScreenTab) << "4000"  << 4000;
    QTest::newRow("FTB.time")                       << int(ScreenTab) << "25"    << 25;
    QTest::newRow("switchEffect.time")              << int(ScreenTab) << "8"     << 8;
    QTest::newRow("imageQuality.gamma")             << int(ScreenTab) << "2.40"  << 240;
    QTest::newRow("testPattern.speed")              << int(ScreenTab) << "6"     << 6;
    QTest::newRow("presetTiming.vertical.addTime")  << int(InputTab)  << "720"   << 720;
    QTest::newRow("presetTiming.refresh")           << int(InputTab)  << "50"    << 50;
    QTest::newRow("colorDepths.presetColorDepth")   << int(InputTab)  << "10"    << 10;
    QTest::newRow("crop.xRatio")                    << int(InputTab)  << "12.5"  << 12500;
    QTest::newRow("imageQuality.contrast.all")      << int(InputTab)  << "61"    << 61;
    QTest::newRow("dynamicRangConversion.type")     << int(DeviceTab) << "3"     << 3;
    // clang-format on
}

void tst_PanelDetailsValues::typedNumberIsOnTheDevice()
{
    QFETCH(const int, tab);
    QFETCH(const QString, typed);
    QFETCH(const int, stored);
    const char *const path = QTest::currentDataTag();
    DetailsBench bench;
    DetailsBench::type(bench.control<QDoubleSpinBox>(path, DetailsTab(tab)), typed);
    QTRY_COMPARE(bench.value(path, DetailsTab(tab)).toInt(), stored);
}

void tst_PanelDetailsValues::clickedFlagIsOnTheDevice_data()
{
    QTest::addColumn<int>("tab");
    // clang-format off
    QTest::newRow("general.isFreeze")             << int(LayerTab);
    QTest::newRow("testColor.enable")             << int(LayerTab);
    QTest::newRow("mask.enable")                  << int(LayerTab);
    QTest::newRow("border.enable")                << int(LayerTab);
    QTest::newRow("shadow.general.enable")        << int(LayerTab);
    QTest::newRow("freeze")                       << int(ScreenTab);
    QTest::newRow("FTB.enable")                   << int(ScreenTab);
    QTest::newRow("PGMEdit")                      << int(ScreenTab);
    QTest::newRow("screenZeLK.enable")            << int(ScreenTab);
    QTest::newRow("testPattern.enable")           << int(ScreenTab);
    QTest::newRow("HDCP.enable")                  << int(InputTab);
    QTest::newRow("presetTiming.interlaced")      << int(InputTab);
    QTest::newRow("crop.enable")                  << int(InputTab);
    QTest::newRow("cutoutGeneral.enable")         << int(InputTab);
    QTest::newRow("swap")                         << int(DeviceTab);
    QTest::newRow("zeLKEnable")                   << int(DeviceTab);
    QTest::newRow("dynamicRangConversion.enable") << int(DeviceTab);
    // clang-format on
}

void tst_PanelDetailsValues::clickedFlagIsOnTheDevice()
{
    QFETCH(const int, tab);
    const char *const path = QTest::currentDataTag();
    DetailsBench bench;
    const bool before = bench.value(path, DetailsTab(tab)).toVariant().toBool();
    auto *const box = bench.control<QCheckBox>(path, DetailsTab(tab));
    QCOMPARE(box->isChecked(), before);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QTRY_COMPARE(bench.value(path, DetailsTab(tab)).toVariant().toBool(), !before);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
    QTRY_COMPARE(bench.value(path, DetailsTab(tab)).toVariant().toBool(), before);
}

void tst_PanelDetailsValues::typedNameIsOnTheDevice_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("layer") << int(LayerTab);
    QTest::newRow("screen") << int(ScreenTab);
    QTest::newRow("input") << int(InputTab);
    QTest::newRow("device") << int(DeviceTab);
}

void tst_PanelDetailsValues::typedNameIsOnTheDevice()
{
    QFETCH(const int, tab);
    DetailsBench bench;
    DetailsBench::type(bench.control<QLineEdit>("general.name", DetailsTab(tab)),
                       QStringLiteral("Stage 7"));
    QTRY_COMPARE(bench.value("general.name", DetailsTab(tab)).toString(),
                 QStringLiteral("Stage 7"));
}

void tst_PanelDetailsValues::chosenWordIsOnTheDevice()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("presetApplyType", DeviceTab);
    QCOMPARE(box->currentText(), QStringLiteral("Preview"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    QTRY_COMPARE(bench.value("presetApplyType", DeviceTab).toInt(), 1);
    QCOMPARE(box->currentText(), QStringLiteral("Programme"));
}

void tst_PanelDetailsValues::chosenColourIsOnTheDevice()
{
    DetailsBench bench;
    auto *const button = bench.control<QToolButton>("backgroundColor", ScreenTab);
    QTest::mouseClick(button, Qt::LeftButton);
    auto *const dialogue = bench.view->findChild<QColorDialog *>();
    QVERIFY(dialogue);
    dialogue->setCurrentColor(QColor(10, 20, 30));
    QTest::keyClick(dialogue, Qt::Key_Return);
    QTRY_COMPARE(bench.value("backgroundColor.B", ScreenTab).toInt(), 30);
    QCOMPARE(bench.value("backgroundColor.R", ScreenTab).toInt(), 10);
    QCOMPARE(button->text(), QStringLiteral("#0A141E"));
}

void tst_PanelDetailsValues::chosenSourceIsOnTheDevice()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("source.general", LayerTab);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    QTRY_COMPARE(bench.value("source.general.type", LayerTab).toInt(), 0);
    QCOMPARE(box->currentText(), QStringLiteral("No source"));
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QTRY_COMPARE(bench.value("source.general.id", LayerTab).toInt(), 0x10200);
    QCOMPARE(box->currentText(), QStringLiteral("Input 2 – 1920 × 1080, 60 Hz"));
}

void tst_PanelDetailsValues::screenCanBeTheSource()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("source.general", LayerTab);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End);
    QTRY_COMPARE(bench.value("source.general.type", LayerTab).toInt(), 3);
    QCOMPARE(bench.value("source.general.id", LayerTab).toInt(), 2);
    QCOMPARE(box->currentText(), QStringLiteral("Screen Blend – 3712 × 2032 px"));
}

void tst_PanelDetailsValues::openListOfSourcesStaysWhenAFormatChanges()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("source.general", LayerTab);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(3, 0));
    QVERIFY(bench.execute(QStringLiteral("timing 1 2 1280 720 50")));
    QTRY_COMPARE(box->itemText(2), QStringLiteral("Input 2 – 1280 × 720, 50 Hz"));
    QVERIFY(box->view()->isVisible());
    QCOMPARE(box->view()->currentIndex().row(), 3);
}

void tst_PanelDetailsValues::nameOfAFileIsOnTheDevice()
{
    DetailsBench bench;
    bench.createImage(3);
    QTRY_VERIFY(bench.image(3));
    bench.selection.setFile(Selection::FileId{3, 2});
    DetailsBench::type(bench.control<QLineEdit>("general.name", FileTab),
                       QStringLiteral("sky.png"));
    QTRY_COMPARE(QString::fromStdString(bench.image(3)->detail().general.name),
                 QStringLiteral("sky.png"));
}

QTEST_MAIN(tst_PanelDetailsValues)
#include "tst_paneldetailsvalues.moc"
