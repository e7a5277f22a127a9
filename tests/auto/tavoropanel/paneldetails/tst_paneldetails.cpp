// The properties of what is selected, edited with mouse and keyboard on a simulated device.

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/details/detailsview.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorooperations/jsontext.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabBar>
#include <QToolButton>
#include <QWheelEvent>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

enum Tab {
    LayerTab,
    ScreenTab,
    InputTab,
    FileTab,
    DeviceTab
};

/// The details of a device of which a layer, a screen and an input are selected.
class DetailsBench : public PanelBench {
public:
    DetailsBench()
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<DetailsView>(selection, messages, changes, actions);
        view->resize(400, 700);
        view->show();
        selection.setInterface(Selection::InterfaceId{1, 2, 0});
        selection.setLayer(layerId());
    }

    template <class Widget>
    Widget *control(const char *path, Tab tab)
    {
        view->findChild<QTabBar *>()->setCurrentIndex(tab);
        auto *const found = currentPage()->findChild<Widget *>(QLatin1String(path));
        if (!found)
            qFatal("there is no control for %s", path);
        return found;
    }
    QLabel *refusal(const char *path) const
    {
        return currentPage()->findChild<QLabel *>(QStringLiteral("refusal of ")
                                                  + QLatin1String(path));
    }
    QWidget *currentPage() const
    {
        for (QScrollArea *const area : view->findChildren<QScrollArea *>()) {
            if (area->isVisible())
                return area->widget();
        }
        qFatal("no page is shown");
        return nullptr;
    }

    /// Makes the device store an image of this number as a logo.
    void createImage(int number)
    {
        ProtoModel::File::s_CreateImageFile image;
        image.fileId = number;
        image.fileType = BizModel::Enum::File::Logo;
        image.source = {65792, 1, 8};
        if (!resultOf(wall->call(&Control::File::writeCreateImageFile, {image})))
            qFatal("the device does not create the image");
    }
    std::shared_ptr<BizModel::File> image(int number) const
    {
        return model()->findFile(BizModel::Enum::File::Logo, number).lock();
    }

    template <class Record>
    static QJsonObject json(const Record &record)
    {
        std::string text;
        ajson::encodeRecord(record, text);
        return Operations::jsonValue(text).toObject();
    }
    /// The record that the model has of what a tab shows.
    QJsonObject record(Tab tab) const
    {
        switch (tab) {
        case LayerTab:
            return json(model()->findLayer(layerId()).lock()->detail());
        case ScreenTab:
            return json(model()->findScreen(1, 1).lock()->detail());
        case InputTab:
            return json(model()->findInterface({1, 2, 0}).lock()->detail());
        case FileTab:
            break;
        case DeviceTab:
            return json(model()->deviceDetail());
        }
        return {};
    }
    QJsonValue value(const char *path, Tab tab) const
    {
        QJsonValue found = record(tab);
        for (const QString &key : QString::fromLatin1(path).split(QLatin1Char('.')))
            found = found.toObject().value(key);
        return found;
    }

    std::unique_ptr<DetailsView> view;
};

void type(QWidget *control, const QString &text)
{
    QTest::mouseClick(control, Qt::LeftButton);
    control->setFocus();
    QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(control, text);
    QTest::keyClick(control, Qt::Key_Return);
}

} // namespace

class tst_PanelDetails : public QObject {
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
    void everyControlShowsAFieldOfTheRecord();
    void everyControlHasItsTexts();
    void refusedValueGivesWayToThatOfTheDevice();
    void editCanBeUndone();
    void otherClientsChangeIsShown();
    void textBeingTypedStays();
    void wheelOverAControlWithoutFocusChangesNothing();
    void screenCanBeTheSource();
    void openListOfSourcesStaysWhenAFormatChanges();
    void longValuesAreShownInSeveralLines();
    void tabOfTheLatestSelectionIsShown();
    void tabStaysWhenAnotherObjectAppearsAgain();
    void tabOfAnObjectThatAppearsAgainReturns();
    void propertiesOfALostDeviceCannotBeEdited();
    void tabKeyVisitsTheControlsInTheirOrder();
};

void tst_PanelDetails::typedNumberIsOnTheDevice_data()
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

void tst_PanelDetails::typedNumberIsOnTheDevice()
{
    QFETCH(const int, tab);
    QFETCH(const QString, typed);
    QFETCH(const int, stored);
    const char *const path = QTest::currentDataTag();
    DetailsBench bench;
    type(bench.control<QDoubleSpinBox>(path, Tab(tab)), typed);
    QTRY_COMPARE(bench.value(path, Tab(tab)).toInt(), stored);
}

void tst_PanelDetails::clickedFlagIsOnTheDevice_data()
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

void tst_PanelDetails::clickedFlagIsOnTheDevice()
{
    QFETCH(const int, tab);
    const char *const path = QTest::currentDataTag();
    DetailsBench bench;
    const bool before = bench.value(path, Tab(tab)).toVariant().toBool();
    auto *const box = bench.control<QCheckBox>(path, Tab(tab));
    QCOMPARE(box->isChecked(), before);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QTRY_COMPARE(bench.value(path, Tab(tab)).toVariant().toBool(), !before);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
    QTRY_COMPARE(bench.value(path, Tab(tab)).toVariant().toBool(), before);
}

void tst_PanelDetails::typedNameIsOnTheDevice_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("layer") << int(LayerTab);
    QTest::newRow("screen") << int(ScreenTab);
    QTest::newRow("input") << int(InputTab);
    QTest::newRow("device") << int(DeviceTab);
}

void tst_PanelDetails::typedNameIsOnTheDevice()
{
    QFETCH(const int, tab);
    DetailsBench bench;
    type(bench.control<QLineEdit>("general.name", Tab(tab)), QStringLiteral("Stage 7"));
    QTRY_COMPARE(bench.value("general.name", Tab(tab)).toString(), QStringLiteral("Stage 7"));
}

void tst_PanelDetails::chosenWordIsOnTheDevice()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("presetApplyType", DeviceTab);
    QCOMPARE(box->currentText(), QStringLiteral("Preview"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    QTRY_COMPARE(bench.value("presetApplyType", DeviceTab).toInt(), 1);
    QCOMPARE(box->currentText(), QStringLiteral("Programme"));
}

void tst_PanelDetails::chosenColourIsOnTheDevice()
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

void tst_PanelDetails::chosenSourceIsOnTheDevice()
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

void tst_PanelDetails::screenCanBeTheSource()
{
    DetailsBench bench;
    auto *const box = bench.control<QComboBox>("source.general", LayerTab);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End);
    QTRY_COMPARE(bench.value("source.general.type", LayerTab).toInt(), 3);
    QCOMPARE(bench.value("source.general.id", LayerTab).toInt(), 2);
    QCOMPARE(box->currentText(), QStringLiteral("Screen Blend – 3712 × 2032 pixels"));
}

void tst_PanelDetails::openListOfSourcesStaysWhenAFormatChanges()
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

void tst_PanelDetails::nameOfAFileIsOnTheDevice()
{
    DetailsBench bench;
    bench.createImage(3);
    QTRY_VERIFY(bench.image(3));
    bench.selection.setFile(Selection::FileId{3, 2});
    type(bench.control<QLineEdit>("general.name", FileTab), QStringLiteral("sky.png"));
    QTRY_COMPARE(QString::fromStdString(bench.image(3)->detail().general.name),
                 QStringLiteral("sky.png"));
}

/// Each path of a control leads to a field of the record that the device reads.
void tst_PanelDetails::everyControlShowsAFieldOfTheRecord()
{
    DetailsBench bench;
    for (const Tab tab : {LayerTab, ScreenTab, InputTab, DeviceTab}) {
        bench.view->findChild<QTabBar *>()->setCurrentIndex(tab);
        int fields = 0;
        for (QWidget *const control : bench.currentPage()->findChildren<QWidget *>()) {
            const QByteArray path = control->objectName().toLatin1();
            const bool isField = !control->accessibleName().isEmpty() && !path.isEmpty()
                && !path.startsWith("qt_") && !qobject_cast<QLabel *>(control);
            if (!isField)
                continue;
            ++fields;
            QVERIFY2(!bench.value(path.constData(), tab).isUndefined(), path.constData());
        }
        QVERIFY(fields >= 7);
    }
}

void tst_PanelDetails::everyControlHasItsTexts()
{
    DetailsBench bench;
    for (const Tab tab : {LayerTab, ScreenTab, InputTab, DeviceTab}) {
        bench.view->findChild<QTabBar *>()->setCurrentIndex(tab);
        for (QWidget *const control : bench.currentPage()->findChildren<QWidget *>()) {
            if (!(control->focusPolicy() & Qt::TabFocus) || !control->isVisible())
                continue;
            if (control->objectName().startsWith(QLatin1String("qt_")))
                continue; // the line of a spin box
            QVERIFY2(!control->accessibleName().isEmpty(), qUtf8Printable(control->objectName()));
        }
    }
    QCOMPARE(bench.control<QDoubleSpinBox>("opacity", LayerTab)->accessibleDescription(),
             QStringLiteral("0 to 100 %"));
    QCOMPARE(bench.control<QDoubleSpinBox>("imageQuality.gamma", LayerTab)->toolTip(),
             QStringLiteral("0.10 to 10.00"));
}

void tst_PanelDetails::refusedValueGivesWayToThatOfTheDevice()
{
    DetailsBench bench;
    QVERIFY(bench.addFault("status=4,code=0x1408,count=1"));
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    type(box, QStringLiteral("45"));
    QTRY_VERIFY(bench.refusal("opacity")->isVisible());
    QCOMPARE(bench.refusal("opacity")->text(), QStringLiteral("⚠ a value is out of range"));
    QCOMPARE(box->accessibleDescription(), QStringLiteral("a value is out of range"));
    QCOMPARE(box->value(), 100.0);
    QVERIFY(!bench.refusal("zorder")->isVisible());
    type(box, QStringLiteral("46"));
    QTRY_COMPARE(bench.value("opacity", LayerTab).toInt(), 46);
    QVERIFY(!bench.refusal("opacity")->isVisible());
}

void tst_PanelDetails::editCanBeUndone()
{
    DetailsBench bench;
    type(bench.control<QDoubleSpinBox>("window.x", LayerTab), QStringLiteral("55"));
    QTRY_VERIFY(bench.changes.canUndo());
    QTRY_COMPARE(bench.value("window.x", LayerTab).toInt(), 55);
    QCOMPARE(bench.changes.undoText(), QStringLiteral("move layer on wall 1"));
    bench.changes.undo();
    QTRY_COMPARE(bench.value("window.x", LayerTab).toInt(), 0);
    QTRY_COMPARE(bench.control<QDoubleSpinBox>("window.x", LayerTab)->value(), 0.0);
}

void tst_PanelDetails::otherClientsChangeIsShown()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    QCOMPARE(box->value(), 100.0);
    QVERIFY(
        resultOf(bench.wall->call(&Control::Layer::writeOpacity, {{DetailsBench::layerId(), 12}})));
    QTRY_COMPARE(box->value(), 12.0);
    QVERIFY(!bench.changes.canUndo());
}

void tst_PanelDetails::textBeingTypedStays()
{
    DetailsBench bench;
    auto *const line = bench.control<QLineEdit>("general.name", LayerTab);
    bench.view->activateWindow();
    line->setFocus();
    QTRY_VERIFY(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral(" left"));
    QVERIFY(
        resultOf(bench.wall->call(&Control::Layer::writeOpacity, {{DetailsBench::layerId(), 12}})));
    QTRY_COMPARE(bench.value("opacity", LayerTab).toInt(), 12);
    QCOMPARE(line->text(), QStringLiteral("Layer 1 left"));
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(bench.value("general.name", LayerTab).toString(), QStringLiteral("Layer 1 left"));
}

void tst_PanelDetails::wheelOverAControlWithoutFocusChangesNothing()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    box->clearFocus();
    const QPointF centre = box->rect().center();
    QWheelEvent wheel(centre, box->mapToGlobal(centre.toPoint()), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    QCOMPARE(box->value(), 100.0);
}

void tst_PanelDetails::longValuesAreShownInSeveralLines()
{
    DetailsBench bench;
    auto *const size = bench.control<QLabel>("mosaic.window", ScreenTab);
    const auto hasItsHeight = [size] {
        return size->height() >= size->heightForWidth(size->width());
    };
    for (const int width : {450, 330, 300}) {
        bench.view->resize(width, 300);
        QTRY_VERIFY2(hasItsHeight(), qPrintable(QString::number(width)));
    }
    size->setText(QStringLiteral("3840 × 1080 pixels ").repeated(4));
    bench.selection.setScreens({{2, 2}});
    QCOMPARE(size->text(), QStringLiteral("3712 × 2032 pixels"));
    QTRY_VERIFY(hasItsHeight());
}

void tst_PanelDetails::tabOfTheLatestSelectionIsShown()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    QCOMPARE(tabs->currentIndex(), int(LayerTab));
    bench.selection.setInterface(Selection::InterfaceId{1, 1, 0});
    QCOMPARE(tabs->currentIndex(), int(InputTab));
    bench.selection.setScreens({{2, 2}});
    QCOMPARE(tabs->currentIndex(), int(ScreenTab));
    QVERIFY(!tabs->isTabEnabled(LayerTab));
    bench.selection.setDevice(nullptr);
    for (int tab = LayerTab; tab <= DeviceTab; ++tab)
        QVERIFY(!tabs->isTabEnabled(tab));
}

void tst_PanelDetails::tabStaysWhenAnotherObjectAppearsAgain()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    bench.selection.setFile(Selection::FileId{3, 2});
    bench.selection.setInterface(Selection::InterfaceId{1, 1, 0});
    QCOMPARE(tabs->currentIndex(), int(InputTab));
    bench.createImage(3);
    QTRY_VERIFY(tabs->isTabEnabled(FileTab));
    QCOMPARE(tabs->currentIndex(), int(InputTab));
}

void tst_PanelDetails::tabOfAnObjectThatAppearsAgainReturns()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    bench.createImage(3);
    QTRY_VERIFY(bench.image(3));
    bench.selection.setFile(Selection::FileId{3, 2});
    QCOMPARE(tabs->currentIndex(), int(FileTab));
    QVERIFY(resultOf(bench.wall->call(&Control::File::writeDeleteFiles,
                                      {ProtoModel::File::s_DeleteFile{{3, 2}}})));
    QTRY_COMPARE(tabs->currentIndex(), int(ScreenTab));
    bench.createImage(3);
    QTRY_COMPARE(tabs->currentIndex(), int(FileTab));
}

void tst_PanelDetails::propertiesOfALostDeviceCannotBeEdited()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    QVERIFY(box->isEnabled());
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!box->isEnabled());
    QCOMPARE(box->value(), 100.0);
    QVERIFY(bench.execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(box->isEnabled());
}

void tst_PanelDetails::tabKeyVisitsTheControlsInTheirOrder()
{
    DetailsBench bench;
    auto *const name = bench.control<QLineEdit>("general.name", LayerTab);
    bench.view->activateWindow();
    name->setFocus();
    QTRY_VERIFY(name->hasFocus());
    QStringList visited;
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(visited.join(QLatin1Char(' ')),
             QStringLiteral(
                 "source.general window.x window.y window.width window.height zorder opacity"));
}

QTEST_MAIN(tst_PanelDetails)
#include "tst_paneldetails.moc"
