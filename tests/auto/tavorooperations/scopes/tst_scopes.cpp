// The scopes of writes: what they contain, how they are read, and which writes name them.

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>
#include <tavorooperations/operation.h>

#include <QTest>

#include <algorithm>

using namespace Tavoro;
using namespace Tavoro::Operations;
using ProtoModel::s_ScreenId;

class tst_Scopes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scopeIsReadWithItsFilters_data();
    void scopeIsReadWithItsFilters();
    void scopeContainsItsParts();
    void filtersNeverSelectAnotherObject();
    void readsAreCombined();
    void everyPermutationIsReadAlike();

    void takeChangesTheLayersOfItsScreens();
    void layersAreChangedInTheirScene();
    void deletedScreenLosesItsLayers();
    void movedFileHasTwoIdentities();
    void removalOfAllLayersNamesTheScreen();
    void interfacesAreNamedOneByOne();
    void resetChangesEverything();
    void clockReadsAndTransfersChangeNothing();
    void preparedCallNamesTheSameScopes();
};

namespace {

constexpr s_ScreenId screen1{1, 2};
constexpr s_ScreenId screen2{7, 1};

} // namespace

Q_DECLARE_METATYPE(Tavoro::Operations::Scope)

void tst_Scopes::scopeIsReadWithItsFilters_data()
{
    QTest::addColumn<Scope>("scope");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("arguments");
    // clang-format off
    QTest::newRow("device")          << Scope::device()                << "Device.readDetails"    << "";
    QTest::newRow("interfaces")      << Scope::interfaces()            << "Interface.readDetails" << "0 -1";
    QTest::newRow("one interface")   << Scope::interface({1, 2, 0})    << "Interface.readDetails" << "0 -1";
    QTest::newRow("files")           << Scope::files()                 << "File.readDetails"      << "-1 -1";
    QTest::newRow("files of a type") << Scope::filesOf(6)              << "File.readDetails"      << "6 -1";
    QTest::newRow("one file")        << Scope::file({9, 6})            << "File.readDetails"      << "6 9";
    QTest::newRow("screens")         << Scope::screens()               << "Screen.readDetails"    << "-1 0 -1";
    QTest::newRow("one screen")      << Scope::screen(screen1)         << "Screen.readDetails"    << "1 2 -1";
    QTest::newRow("layers")          << Scope::layers()                << "Layer.readDetails"     << "-1 -1 -1 -1";
    QTest::newRow("of a screen")     << Scope::layersOf(screen1)       << "Layer.readDetails"     << "1 2 -1 -1";
    QTest::newRow("of a scene")      << Scope::layersOf(screen1, 4)    << "Layer.readDetails"     << "1 2 4 -1";
    // clang-format on
}

void tst_Scopes::scopeIsReadWithItsFilters()
{
    QFETCH(Scope, scope);
    QTEST(scope.readOperation(), "operation");
    QTEST(scope.readArguments().join(QLatin1Char(' ')), "arguments");
    QCOMPARE(scope.filters().size(), find(scope.readOperation())->arguments().size());
}

void tst_Scopes::scopeContainsItsParts()
{
    QVERIFY(Scope::layers().contains(Scope::layersOf(screen1, 2)));
    QVERIFY(Scope::layersOf(screen1).contains(Scope::layersOf(screen1, 2)));
    QVERIFY(Scope::layersOf(screen1, 2).contains(Scope::layersOf(screen1, 2)));
    QVERIFY(!Scope::layersOf(screen1, 2).contains(Scope::layersOf(screen1)));
    QVERIFY(!Scope::layersOf(screen1, 2).contains(Scope::layersOf(screen1, 4)));
    QVERIFY(!Scope::layersOf(screen1).contains(Scope::layersOf(screen2)));
    QVERIFY(!Scope::layersOf(screen1).contains(Scope::screen(screen1)));
    QVERIFY(!Scope::screens().contains(Scope::layers()));
    QVERIFY(Scope::filesOf(6).contains(Scope::file({9, 6})));
    QVERIFY(Scope::device().contains(Scope::device()));
}

void tst_Scopes::filtersNeverSelectAnotherObject()
{
    // One byte travels, and 255 selects all: a file 256 must not be read as file 0.
    QCOMPARE(Scope::file({256, 6}).readArguments().join(QLatin1Char(' ')), QStringLiteral("6 -1"));
    QCOMPARE(Scope::file({255, 300}).readArguments().join(QLatin1Char(' ')),
             QStringLiteral("-1 -1"));
    QCOMPARE(Scope::screen({255, 1}).readArguments().join(QLatin1Char(' ')),
             QStringLiteral("-1 1 -1"));
    QCOMPARE(Scope::layersOf({1, -3}, 257).readArguments().join(QLatin1Char(' ')),
             QStringLiteral("1 -1 -1 -1"));
}

void tst_Scopes::readsAreCombined()
{
    const std::vector<Scope> reads =
        readsFor({Scope::layersOf(screen2, 4), Scope::layersOf(screen1, 2), Scope::screen(screen1),
                  Scope::interface({1, 1, 0}), Scope::interface({1, 2, 0}),
                  Scope::layersOf(screen1), Scope::screen(screen1), Scope::device()});
    QCOMPARE(reads,
             (std::vector{Scope::device(), Scope::interfaces(), Scope::screen(screen1),
                          Scope::layersOf(screen2, 4), Scope::layersOf(screen1)}));
    QVERIFY(readsFor({}).empty());
}

void tst_Scopes::everyPermutationIsReadAlike()
{
    std::vector<Scope> scopes{Scope::files(), Scope::file({1, 2}), Scope::layersOf(screen1, 2),
                              Scope::layersOf(screen1), Scope::screens()};
    std::sort(scopes.begin(), scopes.end());
    const std::vector<Scope> expected{Scope::files(), Scope::screens(), Scope::layersOf(screen1)};
    do {
        QCOMPARE(readsFor(scopes), expected);
    } while (std::next_permutation(scopes.begin(), scopes.end()));
}

void tst_Scopes::takeChangesTheLayersOfItsScreens()
{
    const std::vector<ProtoModel::Screen::s_SwitchEffect> effects{{screen1, {}}, {screen2, {}}};
    QCOMPARE(changedBy(&Control::Screen::writeTake, effects),
             (std::vector{Scope::layersOf(screen1), Scope::layersOf(screen2)}));
    QCOMPARE(changedBy(&Control::Screen::writeSwitchEffect, effects),
             (std::vector{Scope::screen(screen1), Scope::screen(screen2)}));
}

void tst_Scopes::layersAreChangedInTheirScene()
{
    ProtoModel::Layer::s_LayerOpacity record;
    record.layerIdenti.screenId = 1;
    record.layerIdenti.screenType = 2;
    record.layerIdenti.layerId = 9;
    record.layerIdenti.sceneType = 4;
    QCOMPARE(changedBy(&Control::Layer::writeOpacity, std::vector{record}),
             std::vector{Scope::layersOf(screen1, 4)});
}

void tst_Scopes::deletedScreenLosesItsLayers()
{
    QCOMPARE(changedBy(&Control::Screen::writeScreenDeleted, std::vector{screen1}),
             (std::vector{Scope::screen(screen1), Scope::layersOf(screen1)}));
}

void tst_Scopes::movedFileHasTwoIdentities()
{
    ProtoModel::File::s_ModifyFileInfo record;
    record.fileId = 3;
    record.fileType = 0;
    record.desFileId = 4;
    record.desFileType = 2;
    QCOMPARE(changedBy(&Control::File::writeFilesInfo, std::vector{record}),
             (std::vector{Scope::file({3, 0}), Scope::file({4, 2})}));
}

void tst_Scopes::removalOfAllLayersNamesTheScreen()
{
    QCOMPARE(changedBy(&Control::Layer::writeRemovedAll, quint8(1), quint8(2)),
             std::vector{Scope::layersOf(screen1)});
}

void tst_Scopes::interfacesAreNamedOneByOne()
{
    const std::vector<ProtoModel::Interface::s_FormatMapping> list{{{1, 2, 3}, 0}, {{4, 5, 0}, 1}};
    QCOMPARE(changedBy(&Control::Interface::writeInterfaceFormatMapping, list),
             (std::vector{Scope::interface({1, 2, 3}), Scope::interface({4, 5, 0})}));
}

void tst_Scopes::resetChangesEverything()
{
    QCOMPARE(
        changedBy(&Control::Auxiliary::writeFactoryType, ProtoModel::Auxiliary::s_AuxiliaryOpt{}),
        (std::vector{Scope::device(), Scope::interfaces(), Scope::files(), Scope::screens(),
                     Scope::layers()}));
}

void tst_Scopes::clockReadsAndTransfersChangeNothing()
{
    QVERIFY(changedBy(&Control::Auxiliary::setDeviceTime, ProtoModel::Auxiliary::s_DeviceTime{})
                .empty());
    QVERIFY(changedBy(&Control::Auxiliary::saveDeviceData).empty());
    QVERIFY(changedBy(&Control::Device::readOutputMapping, ProtoModel::Device::s_InterfaceMapping{})
                .empty());
    // Not in the table: its caller knows the file.
    QVERIFY(changedBy(&Control::File::importFileBinary, ProtoModel::s_FileIdentity{}, std::string())
                .empty());
}

void tst_Scopes::preparedCallNamesTheSameScopes()
{
    const PreparedCall take = find(QStringLiteral("Screen.writeTake"))
                                  ->prepare({QStringLiteral(R"([{"screenId":1,"screenType":2}])")},
                                            MissingKeys::SentAsDefaults);
    QCOMPARE(take.changes, std::vector{Scope::layersOf(screen1)});
    const PreparedCall removal = find(QStringLiteral("Layer.writeRemovedAll"))
                                     ->prepare({QStringLiteral("1"), QStringLiteral("2")});
    QCOMPARE(removal.changes, std::vector{Scope::layersOf(screen1)});
}

QTEST_GUILESS_MAIN(tst_Scopes)
#include "tst_scopes.moc"
