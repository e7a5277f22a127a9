// The places of the screens on the canvas.

#include <tavoropanel/canvas/screenplacement.h>

#include <QTest>

using namespace Tavoro::Panel;

namespace {

using Rects = std::vector<QRectF>;
constexpr ScreenMargins margins{100, 40};

} // namespace

Q_DECLARE_METATYPE(Rects)

class tst_CanvasPlacement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void screensKeepTheirLayout_data();
    void screensKeepTheirLayout();
    void overlappingScreensAreArrangedInRows();
    void manyEqualScreensFillSeveralColumns();
    void headersBelongToTheBounds();
    void noScreensHaveNoBounds();
};

void tst_CanvasPlacement::screensKeepTheirLayout_data()
{
    QTest::addColumn<Rects>("screens");
    QTest::addColumn<Rects>("placed");

    // clang-format off
    QTest::newRow("none")             << Rects{}                                                 << Rects{};
    QTest::newRow("one")              << Rects{{500, 700, 1920, 1080}}                           << Rects{{0, 100, 1920, 1080}};
    QTest::newRow("side by side")     << Rects{{0, 0, 1920, 1080}, {1920, 0, 1920, 1080}}        << Rects{{0, 100, 1920, 1080}, {1960, 100, 1920, 1080}};
    QTest::newRow("below each other") << Rects{{0, 0, 1920, 1080}, {0, 1080, 1920, 1080}}        << Rects{{0, 100, 1920, 1080}, {0, 1320, 1920, 1080}};
    QTest::newRow("in any order")     << Rects{{1920, 0, 1920, 1080}, {-80, 0, 1920, 1080}}      << Rects{{2040, 100, 1920, 1080}, {0, 100, 1920, 1080}};
    QTest::newRow("apart")            << Rects{{0, 0, 1920, 1080}, {3000, 2000, 1920, 1080}}     << Rects{{0, 100, 1920, 1080}, {3040, 2240, 1920, 1080}};
    // clang-format on
}

void tst_CanvasPlacement::screensKeepTheirLayout()
{
    QFETCH(const Rects, screens);
    QTEST(placedScreens(screens, margins), "placed");
}

void tst_CanvasPlacement::overlappingScreensAreArrangedInRows()
{
    const Rects screens{
        {0, 0, 3840, 1080}, {0, 0, 3712, 2032}, {0, 0, 1920, 1080}, {0, 0, 1920, 1080}};
    const Rects placed = placedScreens(screens, margins);
    QCOMPARE(placed,
             (Rects{{0, 100, 3840, 1080},
                    {0, 1320, 3712, 2032},
                    {0, 3492, 1920, 1080},
                    {1960, 3492, 1920, 1080}}));
}

void tst_CanvasPlacement::manyEqualScreensFillSeveralColumns()
{
    const Rects placed = placedScreens(Rects(9, QRectF(0, 0, 1920, 1080)), margins);
    QCOMPARE(placed[1], QRectF(1960, 100, 1920, 1080));
    QCOMPARE(placed[2], QRectF(0, 1320, 1920, 1080));
    QCOMPARE(placed[8], QRectF(0, 4980, 1920, 1080));
}

void tst_CanvasPlacement::headersBelongToTheBounds()
{
    QCOMPARE(placedBounds({{0, 0, 1920, 1080}}, margins), QRectF(0, 0, 1920, 1180));
}

void tst_CanvasPlacement::noScreensHaveNoBounds()
{
    QVERIFY(placedBounds({}, margins).isEmpty());
}

QTEST_APPLESS_MAIN(tst_CanvasPlacement)
#include "tst_canvasplacement.moc"
