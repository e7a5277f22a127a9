#include <support/tavorocontrol/writetests.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/preset.h>

#include <QtTest>

using Tavoro::Control::Preset;
using Tavoro::ProtoModel::Preset::s_PresetPlay;

static_assert(std::is_base_of_v<QObject, Preset>);
static_assert(std::is_constructible_v<Preset, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);

namespace {

const std::vector<WriteRow<Preset>> &presetWrites()
{
    static const std::vector<WriteRow<Preset>> rows{byReference<s_PresetPlay>(
        "presetApply", &Preset::presetApply, 0x1501, {{{3, 6}, 1}, {{4, 8}, 2}},
        R"([{"fileId":3,"fileType":6,"applyType":1},{"fileId":4,"fileType":8,"applyType":2}])")};
    return rows;
}

} // namespace

class tst_Preset : public ListWriteTests {
    Q_OBJECT

public:
    tst_Preset() : ListWriteTests(checked(presetWrites())) { }

private Q_SLOTS:
    void failureNamesTheCommand();
    void applyDoesNotChangeTheModel();
};

void tst_Preset::failureNamesTheCommand()
{
    Controlled<Preset> it;
    it.device.model.reset();
    QVERIFY(!it.control.presetApply({}, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Set preset apply information failed: invalid device model data ."));
}

void tst_Preset::applyDoesNotChangeTheModel()
{
    Controlled<Preset> it;
    std::vector<Tavoro::ProtoModel::Screen::s_ScreenFullDetail> screens(1);
    QVERIFY(it.device.model->initModelData(screens, it.error));
    const auto screen = it.device.model->findScreen(screens[0].screenType, screens[0].screenId);
    const QSignalSpy screenChanges(screen.lock().get(), &Tavoro::BizModel::Screen::screenChanged);
    const QSignalSpy deviceChanges(it.device.model.get(),
                                   &Tavoro::BizModel::Device::deviceDataChanged);
    QVERIFY(presetWrites().front().write(it.control, it.error));
    QCOMPARE(screenChanges.size(), 0);
    QCOMPARE(deviceChanges.size(), 0);
    QCOMPARE(it.device.model->deviceDetail().presetApplyType, quint8(0)); // a different key
}

QTEST_GUILESS_MAIN(tst_Preset)
#include "tst_preset.moc"
