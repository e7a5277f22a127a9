// What the canvas shows of a device.
#include <support/tavoropanel/canvasbench.h>

#include <tavorocontrol/screen.h>

#include <QImage>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void previewIsLeftOfTheProgramme();
    void layersAreInPlaceAndInOrder();
    void layerShowsSourceAndFormat();
    void textOfAPartlyHiddenLayerIsVisible();
    void layerShowsItsConditions();
    void lostSignalIsShown();
    void newFormatOfASourceIsShown();
    void frozenAndFadedProgrammesAreNamed();
    void previewIsNotFrozen();
    void frozenProgrammeLooksDifferent_data();
    void frozenProgrammeLooksDifferent();
    void allScreensFitTheView_data();
    void allScreensFitTheView();
    void zoomIsLimited();
    void canvasWithoutDeviceSaysSo();
    void lostDeviceIsShownAsLastKnown();
    void selectedLayerIsDescribed();
    void paletteChangesTheColours();

private:
    CanvasBench &bench() { return *m_bench; }
    template <class Record>
    bool write(bool (Control::Layer::*operation)(const std::vector<Record> &, QString &),
               const Record &record)
    {
        return bool(resultOf(bench().wall->call(operation, std::vector<Record>{record})));
    }
    ScreenItem &screen(int index) { return *bench().view.canvas().screens().at(index); }
    /// The picture of the first programme, without its title.
    QImage programme();

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasView::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->view.canvas().screens().size(), 4);
}

QImage tst_CanvasView::programme()
{
    const ScreenItem &item = screen(2);
    const QRect area =
        bench().view.mapFromScene(item.mapRectToScene(item.screenRect())).boundingRect();
    return bench().view.viewport()->grab(area).toImage();
}

void tst_CanvasView::previewIsLeftOfTheProgramme()
{
    for (int row = 0; row < 2; ++row) {
        const ScreenItem &preview = screen(row);
        const ScreenItem &programme = screen(row + 2);
        QCOMPARE(preview.scene(), Scene::Preview);
        QCOMPARE(programme.scene(), Scene::Programme);
        QVERIFY(isSame(preview.id(), programme.id()));
        QCOMPARE(preview.pos().y(), programme.pos().y());
        QVERIFY(preview.sceneBoundingRect().right() < programme.sceneBoundingRect().left());
        QCOMPARE(preview.sceneName(), QStringLiteral("Preview"));
        QCOMPARE(programme.sceneName(), QStringLiteral("Programme"));
    }
    QCOMPARE(screen(0).size(), QSize(3840, 1080));
    QCOMPARE(screen(1).size(), QSize(3712, 2032));
    QCOMPARE(screen(0).name(), QStringLiteral("Main"));
}

void tst_CanvasView::layersAreInPlaceAndInOrder()
{
    QList<QRectF> places;
    const auto layers = screen(0).layers();
    for (LayerItem *const layer : layers)
        places << screen(0).mapRectFromItem(layer, layer->boundingRect());
    QCOMPARE(
        places,
        (QList<QRectF>{
            {0, 0, 3840, 1080}, {0, 0, 1280, 1080}, {1280, 0, 1280, 1080}, {2560, 0, 1280, 1080}}));
    for (int row = 1; row < layers.size(); ++row)
        QVERIFY(layers[row - 1]->zValue() < layers[row]->zValue());
}

void tst_CanvasView::layerShowsSourceAndFormat()
{
    QCOMPARE(bench().item(2).face().lines(),
             (QStringList{QStringLiteral("Input 6"), QStringLiteral("1920×1080p60"),
                          QStringLiteral("Layer 2")}));
}

void tst_CanvasView::textOfAPartlyHiddenLayerIsVisible()
{
    QVERIFY(write(&Control::Layer::writeWindow,
                  ProtoModel::Layer::s_LayerWindow{CanvasBench::id(1), {-300, -200, 1280, 1080}}));
    QTRY_COMPARE(bench().shown(1), QRect(-300, -200, 1280, 1080));
    bench().view.grab();
    const QRectF area = screen(0).mapRectToScene(screen(0).screenRect());
    const QRect visible = bench().view.mapFromScene(area).boundingRect();
    QVERIFY(!bench().item(1).textArea().isEmpty());
    QVERIFY(visible.contains(bench().item(1).textArea().toRect()));
}

void tst_CanvasView::layerShowsItsConditions()
{
    ProtoModel::Layer::s_LayerGeneral general{CanvasBench::id(2), {}};
    general.general.name = "Speaker";
    general.general.isFreeze = 1;
    QVERIFY(write(&Control::Layer::writeGeneral, general));
    QVERIFY(write(&Control::Layer::writeOpacity,
                  ProtoModel::Layer::s_LayerOpacity{CanvasBench::id(2), 40}));
    ProtoModel::Layer::s_LayerColor color{CanvasBench::id(2), {}};
    color.testColor.enable = 1;
    QVERIFY(write(&Control::Layer::writeColor, color));
    QTRY_COMPARE(bench().item(2).face().lines(),
                 (QStringList{QStringLiteral("Input 6"), QStringLiteral("1920×1080p60"),
                              QStringLiteral("Frozen · Test colour · Opacity 40 %"),
                              QStringLiteral("Speaker")}));
}

void tst_CanvasView::lostSignalIsShown()
{
    QVERIFY(bench().execute(QStringLiteral("cable 2 2")));
    QTRY_COMPARE(bench().item(2).face().lines(),
                 (QStringList{QStringLiteral("Input 6"), QStringLiteral("No signal"),
                              QStringLiteral("Layer 2")}));
}

void tst_CanvasView::newFormatOfASourceIsShown()
{
    QVERIFY(bench().execute(QStringLiteral("timing 2 2 3840 2160 50")));
    QTRY_COMPARE(bench().item(2).face().format, QStringLiteral("3840×2160p50"));
}

void tst_CanvasView::frozenAndFadedProgrammesAreNamed()
{
    ProtoModel::Screen::s_Freeze freeze;
    ProtoModel::Screen::s_FTB fade;
    freeze.screenId = fade.screenId = 1;
    freeze.screenType = fade.screenType = 1;
    freeze.freeze = 1;
    fade.FTB.enable = 1;
    QCOMPARE(screen(2).conditions(), QStringList());
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeFreeze, {freeze})));
    QTRY_COMPARE(screen(2).conditions(), QStringList{QStringLiteral("Frozen")});
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeFTB, {fade})));
    QTRY_COMPARE(screen(2).conditions(),
                 (QStringList{QStringLiteral("Frozen"), QStringLiteral("Faded to black")}));
}

void tst_CanvasView::previewIsNotFrozen()
{
    ProtoModel::Screen::s_Freeze freeze;
    freeze.screenId = 1;
    freeze.screenType = 1;
    freeze.freeze = 1;
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeFreeze, {freeze})));
    QTRY_COMPARE(screen(2).conditions().size(), 1);
    QCOMPARE(screen(0).conditions(), QStringList());
}

void tst_CanvasView::frozenProgrammeLooksDifferent_data()
{
    QTest::addColumn<bool>("isFaded");
    QTest::newRow("frozen") << false;
    QTest::newRow("faded") << true;
}

void tst_CanvasView::frozenProgrammeLooksDifferent()
{
    QFETCH(const bool, isFaded);
    const QImage before = programme();
    const QPoint point(before.width() / 4, before.height() * 3 / 4);
    ProtoModel::Screen::s_Freeze freeze;
    ProtoModel::Screen::s_FTB fade;
    freeze.screenId = fade.screenId = 1;
    freeze.screenType = fade.screenType = 1;
    freeze.freeze = 1;
    fade.FTB.enable = 1;
    if (isFaded)
        QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeFTB, {fade})));
    else
        QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeFreeze, {freeze})));
    QTRY_VERIFY(!screen(2).conditions().isEmpty());
    const QImage after = programme();
    QCOMPARE(after.size(), before.size());
    if (isFaded)
        QVERIFY(after.pixelColor(point).lightness() < before.pixelColor(point).lightness() / 2);
    else
        QVERIFY(after.pixelColor(point).lightness() > before.pixelColor(point).lightness());
}

void tst_CanvasView::allScreensFitTheView_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1600, 500);
    QTest::newRow("high") << QSize(700, 900);
    QTest::newRow("small") << QSize(320, 180);
}

void tst_CanvasView::allScreensFitTheView()
{
    QFETCH(const QSize, size);
    bench().view.resize(size);
    QCoreApplication::processEvents();
    const auto screens = bench().view.canvas().screens();
    for (const ScreenItem *const item : screens) {
        const QRect shown = bench().view.mapFromScene(item->sceneBoundingRect()).boundingRect();
        QVERIFY2(bench().view.viewport()->rect().adjusted(-2, -2, 2, 2).contains(shown),
                 qPrintable(item->name()));
    }
}

void tst_CanvasView::zoomIsLimited()
{
    for (int step = 0; step < 60; ++step)
        bench().view.zoomIn();
    QCOMPARE(bench().view.scale(), 4.0);
    for (int step = 0; step < 60; ++step)
        bench().view.zoomOut();
    QVERIFY(bench().view.scale() > 0.01);
}

void tst_CanvasView::canvasWithoutDeviceSaysSo()
{
    bench().selection.setDevice(nullptr);
    QCOMPARE(bench().view.accessibleDescription(),
             QStringLiteral("Select a device to see its screens."));
    bench().view.grab();
}

void tst_CanvasView::lostDeviceIsShownAsLastKnown()
{
    QVERIFY(bench().execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(bench().wall->state().kind, DeviceState::Lost);
    QCOMPARE(bench().view.canvas().screens().size(), 4);
    QTRY_COMPARE(bench().view.accessibleDescription(),
                 QStringLiteral("Not connected. This is the last known state of the device. No "
                                "layer is selected."));
    bench().view.grab();
}

void tst_CanvasView::selectedLayerIsDescribed()
{
    QCOMPARE(bench().view.accessibleName(), QStringLiteral("Canvas"));
    QCOMPARE(bench().view.accessibleDescription(), QStringLiteral("No layer is selected."));
    bench().selection.setLayer(CanvasBench::id(2));
    QCOMPARE(bench().view.accessibleDescription(),
             QStringLiteral("Preview, Main, Layer 2: Input 6, 1920×1080p60, 1280 × 1080 at 1280, "
                            "0"));
}

void tst_CanvasView::paletteChangesTheColours()
{
    const auto corner = [&] {
        return bench().view.viewport()->grab(QRect(0, 0, 1, 1)).toImage().pixelColor(0, 0);
    };
    QPalette dark = bench().view.palette();
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    bench().view.setPalette(dark);
    QVERIFY(corner().lightness() < 60);
    QPalette light = dark;
    light.setColor(QPalette::Window, QColor(240, 240, 240));
    light.setColor(QPalette::WindowText, Qt::black);
    bench().view.setPalette(light);
    QVERIFY(corner().lightness() > 180);
}

QTEST_MAIN(tst_CanvasView)
#include "tst_canvasview.moc"
