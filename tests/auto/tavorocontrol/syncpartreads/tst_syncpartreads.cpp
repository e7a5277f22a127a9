#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <QtTest>

using namespace Tavoro;
using Control::SyncDeviceTask;
using WeakDevice = std::weak_ptr<BizModel::Device>;
using WeakScreen = std::weak_ptr<BizModel::Screen>;

/// The reads of single kinds of objects, which a run does not use.
class tst_SyncPartReads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesOfOneTypeAreRead_data();
    void filesOfOneTypeAreRead();
    void presetsOfBothTypesAreGathered();
    void secondTypeOfPresetsWaitsForTheFirst();
    void layersOfEveryScreenAreGathered();
    void firstFailedScreenEndsTheReadOfLayers();
    void previewIsNotReadIfTheProgrammeFails();
    void layersOfAMissingScreenOrDeviceAreNotRead();
    void contentsOfAMissingDeviceAreNotRead();
};

namespace {

// The reads are private. An explicit instantiation of a template may name them.
template <class Tag, typename Tag::Member member>
struct Opened {
    friend typename Tag::Member open(Tag) { return member; }
};

struct OfDevice {
    using Member = bool (SyncDeviceTask::*)(WeakDevice);
};
struct OfScreen {
    using Member = bool (SyncDeviceTask::*)(WeakDevice, WeakScreen, QString &);
};

// clang-format off
struct Backgrounds  : OfDevice { friend Member open(Backgrounds); };
struct Logos        : OfDevice { friend Member open(Logos); };
struct Presets      : OfDevice { friend Member open(Presets); };
struct Contents     : OfDevice { friend Member open(Contents); };
struct Layers       : OfDevice { friend Member open(Layers); };
struct ScreenLayers : OfScreen { friend Member open(ScreenLayers); };

template struct Opened<Backgrounds,  &SyncDeviceTask::readBKGDetail>;
template struct Opened<Logos,        &SyncDeviceTask::readLogoDetail>;
template struct Opened<Presets,      &SyncDeviceTask::readPresetDetail>;
template struct Opened<Contents,     &SyncDeviceTask::readFileBinary>;
template struct Opened<Layers,       &SyncDeviceTask::readLayerDetail>;
template struct Opened<ScreenLayers, &SyncDeviceTask::readLayerDetail>;
// clang-format on

/// A task whose device has the screens 1 of type 1, 3 of type 3 and 9 of type 4.
struct PartReads : Synchronised {
    PartReads()
    {
        std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens(3);
        const std::pair<quint8, int> identities[] = {{1, 1}, {3, 3}, {9, 4}};
        for (std::size_t i = 0; i < screens.size(); ++i) {
            screens[i].screenId = identities[i].first;
            screens[i].screenType = identities[i].second;
        }
        QString ignored;
        device.model->initModelData(screens, ignored);
    }

    template <class Tag>
    bool read(Tag tag)
    {
        return (task.*open(tag))(device.model);
    }
};

} // namespace

void tst_SyncPartReads::filesOfOneTypeAreRead_data()
{
    QTest::addColumn<bool>("isLogo");
    QTest::addColumn<QString>("request");

    QTest::newRow("backgrounds") << false << QStringLiteral("1 fa00 00ff0000");
    QTest::newRow("logos") << true << QStringLiteral("1 fa00 02ff0000");
}

void tst_SyncPartReads::filesOfOneTypeAreRead()
{
    QFETCH(const bool, isLogo);
    QFETCH(const QString, request);
    PartReads it;
    QVERIFY(isLogo ? it.read(Logos()) : it.read(Backgrounds()));
    QCOMPARE(it.asked(), QStringList(request));
    QCOMPARE(it.task.fileDetail().size(), std::size_t(2));
}

void tst_SyncPartReads::presetsOfBothTypesAreGathered()
{
    PartReads it;
    QVERIFY(it.read(Presets()));
    QCOMPARE(it.asked(), textLines({"1 fa00 06ff0000", "1 fa00 08ff0000"}));
    QCOMPARE(it.task.fileDetail().size(), std::size_t(4));
}

void tst_SyncPartReads::secondTypeOfPresetsWaitsForTheFirst()
{
    PartReads it;
    it.channel->reply(0xFA00, ScriptedAnswer::refusal(5));
    QVERIFY(!it.read(Presets()));
    QCOMPARE(it.asked(), textLines({"1 fa00 06ff0000"}));
    QCOMPARE(it.task.errorMsg(),
             QStringLiteral("Get file detail information failed: hardware error:5 ."));
}

// For each screen the programme, then the preview.
void tst_SyncPartReads::layersOfEveryScreenAreGathered()
{
    PartReads it;
    QVERIFY(it.read(Layers()));
    QCOMPARE(it.asked(),
             textLines({"1 1400 ff040101", "1 1400 ff020101", "1 1400 ff040303", "1 1400 ff020303",
                        "1 1400 ff040409", "1 1400 ff020409"}));
    QCOMPARE(it.task.layerDetail().size(), std::size_t(6));
}

void tst_SyncPartReads::firstFailedScreenEndsTheReadOfLayers()
{
    PartReads it;
    it.channel->reply(0xFA00, ScriptedAnswer::refusal(5));
    QVERIFY(!it.read(Logos())); // sets an error text
    it.channel->reply(0x1400, ScriptedAnswer::refusal(6));
    QVERIFY(!it.read(Layers()));
    QCOMPARE(it.asked().mid(1), textLines({"1 1400 ff040101"}));
    QCOMPARE(it.task.errorMsg(),
             QStringLiteral("Get file detail information failed: hardware error:5 ."
                            "Get layer detail information failed: hardware error:6 ."));
}

void tst_SyncPartReads::previewIsNotReadIfTheProgrammeFails()
{
    PartReads it;
    it.channel->reply(0x1400, ScriptedAnswer::refusal(6));
    QString error;
    QVERIFY(!(it.task.*open(ScreenLayers()))(it.device.model, it.device.model->findScreen(3, 3),
                                             error));
    QCOMPARE(it.asked(), textLines({"1 1400 ff040303"}));
    QCOMPARE(error, QStringLiteral("Get layer detail information failed: hardware error:6 ."));
    QCOMPARE(it.task.errorMsg(), QString());
}

void tst_SyncPartReads::layersOfAMissingScreenOrDeviceAreNotRead()
{
    PartReads it;
    QString error;
    QVERIFY(!(it.task.*open(ScreenLayers()))(it.device.model, WeakScreen(), error));
    QVERIFY(!(it.task.*open(Layers()))(WeakDevice()));
    QCOMPARE(error, QString());
    QVERIFY(it.asked().isEmpty());
}

void tst_SyncPartReads::contentsOfAMissingDeviceAreNotRead()
{
    PartReads it;
    QVERIFY(it.read(Logos()));
    QVERIFY(!(it.task.*open(Contents()))(WeakDevice()));
    QCOMPARE(it.asked().size(), 1);
    QVERIFY(it.read(Contents()));
    QCOMPARE(it.asked().size(), 3);
}

QTEST_GUILESS_MAIN(tst_SyncPartReads)
#include "tst_syncpartreads.moc"
