// Presets that a session saves, applies, renames, moves and deletes.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/screen.h>

using namespace Tavoro;

namespace {

constexpr ProtoModel::s_ScreenId screen{1, 1};
constexpr ProtoModel::s_FileIdentity preset{3, BizModel::Enum::File::ScreenPreset};
constexpr ProtoModel::s_FileIdentity elsewhere{4, BizModel::Enum::File::ScreenPreset};

} // namespace

class tst_PresetCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void savedPresetIsInTheModel();
    void appliedPresetRestoresItsScreen();
    void renamedPresetStaysTheSameObject();
    void movedPresetHasTheNewIdentity();
    void removedPresetLeavesTheModel();
    void missingPresetIsRefused();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    std::shared_ptr<BizModel::File> file(const ProtoModel::s_FileIdentity &id)
    {
        const auto type = static_cast<BizModel::Enum::File::FileType>(id.fileType);
        return wall().device()->findFile(type, id.fileId).lock();
    }
    bool succeeds(const PendingCall<Outcome> &call)
    {
        return resultOf(call) && resultOf(wall().modelUpdate());
    }
    bool freeze(qint32 value)
    {
        ProtoModel::Screen::s_Freeze record;
        record.screenId = screen.screenId;
        record.screenType = screen.screenType;
        record.freeze = value;
        return succeeds(wall().call(&Control::Screen::writeFreeze, {record}));
    }
    int frozen() { return wall().device()->findScreen(1, 1).lock()->detail().freeze; }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_PresetCalls::init()
{
    m_bench = std::make_unique<SessionBench>();
    QVERIFY(m_bench->openReady());
    QVERIFY(succeeds(wall().files().savePreset(preset, "day", {screen})));
}

void tst_PresetCalls::savedPresetIsInTheModel()
{
    QVERIFY(file(preset));
    QCOMPARE(file(preset)->listEntry().general.name, std::string("day"));
}

void tst_PresetCalls::appliedPresetRestoresItsScreen()
{
    QVERIFY(freeze(1));
    QCOMPARE(frozen(), 1);
    QVERIFY(succeeds(wall().files().applyPreset(preset)));
    QCOMPARE(frozen(), 0);
}

void tst_PresetCalls::renamedPresetStaysTheSameObject()
{
    const auto before = file(preset);
    QVERIFY(succeeds(wall().files().rename(preset, "night")));
    QCOMPARE(file(preset), before);
    QCOMPARE(before->listEntry().general.name, std::string("night"));
}

void tst_PresetCalls::movedPresetHasTheNewIdentity()
{
    QVERIFY(succeeds(wall().files().move(preset, elsewhere, "day")));
    QVERIFY(!file(preset));
    QVERIFY(file(elsewhere));
}

void tst_PresetCalls::removedPresetLeavesTheModel()
{
    QVERIFY(succeeds(wall().files().remove(preset)));
    QVERIFY(!file(preset));
}

void tst_PresetCalls::missingPresetIsRefused()
{
    const Outcome outcome = resultOf(wall().files().applyPreset(elsewhere));
    QCOMPARE(int(outcome.kind()), int(Outcome::Refused));
    QCOMPARE(
        outcome.text(),
        QStringLiteral("wall 1: preset apply information was refused: the device does not have "
                       "this object."));
}

QTEST_GUILESS_MAIN(tst_PresetCalls)
#include "tst_presetcalls.moc"
