#include <tavorocontrol/proto/auxiliary.h>

#include <support/proto/recordtest.h>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"Auxiliary::s_AuxiliaryOpt",          probe<Auxiliary::s_AuxiliaryOpt>()},
        {"Auxiliary::s_CutoutPoint",           probe<Auxiliary::s_CutoutPoint>()},
        {"Auxiliary::s_CutoutPos",             probe<Auxiliary::s_CutoutPos>()},
        {"Auxiliary::s_DeviceTime",            probe<Auxiliary::s_DeviceTime>()},
        {"Auxiliary::s_DeviceProcessDetail",   probe<Auxiliary::s_DeviceProcessDetail>()},
        {"Auxiliary::s_DeviceProcess",         probe<Auxiliary::s_DeviceProcess>()},
        {"Auxiliary::s_SelfCheckItem",         probe<Auxiliary::s_SelfCheckItem>()},
        {"Auxiliary::s_SelfCheckPart",         probe<Auxiliary::s_SelfCheckPart>()},
        {"Auxiliary::s_DeviceSelfCheckDetail", probe<Auxiliary::s_DeviceSelfCheckDetail>()},
        {"Auxiliary::s_VersionSection",        probe<Auxiliary::s_VersionSection>()},
        {"Auxiliary::s_VersionPart",           probe<Auxiliary::s_VersionPart>()},
        {"Auxiliary::s_DeviceVersion",         probe<Auxiliary::s_DeviceVersion>()},
        {"Auxiliary::s_UpgradeSection",        probe<Auxiliary::s_UpgradeSection>()},
        {"Auxiliary::s_UpgradePart",           probe<Auxiliary::s_UpgradePart>()},
        {"Auxiliary::s_UpgradeDetail",         probe<Auxiliary::s_UpgradeDetail>()},
        {"Auxiliary::s_UpgradeSubSections",    probe<Auxiliary::s_UpgradeSubSections>()},
        {"Auxiliary::s_UpgradeSectionPercent", probe<Auxiliary::s_UpgradeSectionPercent>()},
        {"Auxiliary::s_UpgradePartPercent",    probe<Auxiliary::s_UpgradePartPercent>()},
        {"Auxiliary::s_UpgradePercent",        probe<Auxiliary::s_UpgradePercent>()},
        {"Auxiliary::s_SourceLossConnector",   probe<Auxiliary::s_SourceLossConnector>()},
        {"Auxiliary::s_SourceLossStat",        probe<Auxiliary::s_SourceLossStat>()},
    };
    // clang-format on
}

} // namespace

class tst_AuxiliaryRecords : public RecordTest {
    Q_OBJECT

public:
    tst_AuxiliaryRecords() : RecordTest({"Auxiliary"}, records()) { }

private Q_SLOTS:
    void selfCheckItemWithoutNameIsADash();
    void versionPartWithoutVersionIsNA();
    void numberTooLargeForAByteIsReducedToItsLowByte();
    void upgradeWithoutPartsWritesAnEmptyArray();
    void modelHas16BitsInTheSelfCheckAnd32InTheVersions();
};

void tst_AuxiliaryRecords::selfCheckItemWithoutNameIsADash()
{
    const auto item = decoded<Auxiliary::s_SelfCheckItem>(R"({"sequence":1,"value":"3.3 V"})");
    QCOMPARE(item.name, std::string("-"));
    QCOMPARE(item.value, std::string("3.3 V"));
}

void tst_AuxiliaryRecords::versionPartWithoutVersionIsNA()
{
    const auto part = decoded<Auxiliary::s_VersionPart>(R"({"slotId":1,"brief":"core"})");
    QCOMPARE(part.version, std::string("N/A"));
    QCOMPARE(part.brief, std::string("core"));
}

void tst_AuxiliaryRecords::numberTooLargeForAByteIsReducedToItsLowByte()
{
    const auto process =
        decoded<Auxiliary::s_DeviceProcess>(R"({"status":256,"totalProcess":300})");
    QCOMPARE(process.status, quint8(0));
    QCOMPARE(process.totalProcess, quint8(44));
}

void tst_AuxiliaryRecords::upgradeWithoutPartsWritesAnEmptyArray()
{
    QCOMPARE(encoded(Auxiliary::s_UpgradeDetail()),
             QByteArray(R"({"upgradeType":0,"filePath":"","reboot":0,)"
                        R"("deleteUpgradeFile":0,"parts":[]})"));
}

void tst_AuxiliaryRecords::modelHas16BitsInTheSelfCheckAnd32InTheVersions()
{
    const QByteArray json = R"({"modelId":96001})"; // 0x17701
    QCOMPARE(decoded<Auxiliary::s_SelfCheckPart>(json).modelId, quint16(0x7701));
    QCOMPARE(decoded<Auxiliary::s_VersionPart>(json).modelId, 0x17701u);
}

QTEST_GUILESS_MAIN(tst_AuxiliaryRecords)
#include "tst_auxiliaryrecords.moc"
