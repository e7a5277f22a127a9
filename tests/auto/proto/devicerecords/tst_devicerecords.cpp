#include <tavorocontrol/proto/device.h>

#include <support/proto/recordtest.h>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"Device::s_GeneralBody",                 probe<Device::s_GeneralBody>()},
        {"Device::s_General",                     probe<Device::s_General>()},
        {"Device::s_ConnectorBody",               probe<Device::s_ConnectorBody>()},
        {"Device::s_subcardBody",                 probe<Device::s_subcardBody>()},
        {"Device::s_subcards",                    probe<Device::s_subcards>()},
        {"Device::s_GenlockBody",                 probe<Device::s_GenlockBody>()},
        {"Device::s_Genlock",                     probe<Device::s_Genlock>()},
        {"Device::s_GenlockSignalBody",           probe<Device::s_GenlockSignalBody>()},
        {"Device::s_GenlockSignal",               probe<Device::s_GenlockSignal>()},
        {"Device::s_PowerBody",                   probe<Device::s_PowerBody>()},
        {"Device::s_Powers",                      probe<Device::s_Powers>()},
        {"Device::s_NetworkBody",                 probe<Device::s_NetworkBody>()},
        {"Device::s_Networks",                    probe<Device::s_Networks>()},
        {"Device::s_swap",                        probe<Device::s_swap>()},
        {"Device::s_InterfaceMappingTestPattern", probe<Device::s_InterfaceMappingTestPattern>()},
        {"Device::s_InterfaceMappingGeneral",     probe<Device::s_InterfaceMappingGeneral>()},
        {"Device::s_InterfaceMapping",            probe<Device::s_InterfaceMapping>()},
        {"Device::s_DynamicRangConversion",       probe<Device::s_DynamicRangConversion>()},
        {"Device::s_DeviceGroupInfoBody",         probe<Device::s_DeviceGroupInfoBody>()},
        {"Device::s_DeviceGroupInfos",            probe<Device::s_DeviceGroupInfos>()},
        {"Device::s_Relation",                    probe<Device::s_Relation>()},
        {"Device::s_InterfaceRelationBody",       probe<Device::s_InterfaceRelationBody>()},
        {"Device::s_InterfaceRelation",           probe<Device::s_InterfaceRelation>()},
        {"Device::s_DeviceZelk",                  probe<Device::s_DeviceZelk>()},
        {"Device::s_PresetApplyType",             probe<Device::s_PresetApplyType>()},
        {"Device::s_DeviceDetail",                probe<Device::s_DeviceDetail>()},
    };
    // clang-format on
}

/// A part of the detail of a device: its default text, and another text.
struct DetailPart {
    const char *key;
    const char *atDefault;
    const char *full;
};

// clang-format off
const DetailPart detailParts[] = {
    {"general",               R"({"name":"N/A","status":0})",               R"({"name":"box","status":1})"},
    {"swap",                  "0",                                          "1"},
    {"genlock",               R"({"type":0,"interfaceId":0})",              R"({"type":2,"interfaceId":3})"},
    {"genlockSignal",         R"({"extSignalIn":0,"status":0})",            R"({"extSignalIn":4,"status":5})"},
    {"powers",                "[]",                                         R"([{"powerId":6,"iSignal":7,"status":8}])"},
    {"subcards",              "[]",
     R"([{"slotId":9,"modelId":10,"boardId":11,"cardType":12,"online":1,"connectors":[]}])"},
    {"networks",              "[]",
     R"([{"index":1,"MAC":"00-01","dhcp":1,"ip":"10.0.0.2","subnetMask":"255.0.0.0","gateway":"10.0.0.1"}])"},
    {"dynamicRangConversion", R"({"enable":0,"type":0})",                   R"({"enable":1,"type":13})"},
    {"interfaceMapping",
     R"({"general":{"type":0},"testPattern":{"enable":0,"type":0,"bright":0,"grid":0,"speed":0,"gridLineWidth":0,"gridType":0}})",
     R"({"general":{"type":1},"testPattern":{"enable":1,"type":2,"bright":3,"grid":4,"speed":5,"gridLineWidth":6,"gridType":7}})"},
    {"groupInfos",            "[]",                                         R"([{"groupName":"stage","groupId":"A"}])"},
    {"zeLKEnable",            "0",                                          "1"},
    {"interfaceRelation",     R"({"enable":0,"relation":[]})",
     R"({"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":3}]})"},
    {"presetApplyType",       "0",                                          "1"},
};
// clang-format on

QByteArray keyAndValue(const DetailPart &part, const char *value)
{
    return '"' + QByteArray(part.key) + "\":" + value;
}

} // namespace

class tst_DeviceRecords : public RecordTest {
    Q_OBJECT

public:
    tst_DeviceRecords() : RecordTest({"Device"}, records()) { }

private Q_SLOTS:
    void missingPartOfTheDetailKeepsItsDefault_data();
    void missingPartOfTheDetailKeepsItsDefault();
    void swapIsWrittenUnderItsOnlyKey();
    void detailHoldsTheInnerRecords();
    void defaultNetworkHasTheFactoryAddresses();
};

void tst_DeviceRecords::missingPartOfTheDetailKeepsItsDefault_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<QByteArray>("completed");
    for (const auto &missing : detailParts) {
        QByteArrayList received;
        QByteArrayList completed;
        for (const auto &part : detailParts) {
            const bool isMissing = &part == &missing;
            completed << keyAndValue(part, isMissing ? part.atDefault : part.full);
            if (!isMissing)
                received << keyAndValue(part, part.full);
        }
        QTest::newRow(missing.key)
            << '{' + received.join(',') + '}' << '{' + completed.join(',') + '}';
    }
}

void tst_DeviceRecords::missingPartOfTheDetailKeepsItsDefault()
{
    QFETCH(QByteArray, received);
    QFETCH(QByteArray, completed);
    QCOMPARE(encoded(decoded<Device::s_DeviceDetail>(received)), completed);
}

void tst_DeviceRecords::swapIsWrittenUnderItsOnlyKey()
{
    Device::s_swap record;
    record.swap = 1;
    QCOMPARE(encoded(record), QByteArray(R"({"swap":1})"));
}

void tst_DeviceRecords::detailHoldsTheInnerRecords()
{
    const auto detail = decoded<Device::s_DeviceDetail>(
        R"({"general":{"name":"box","status":1},"interfaceRelation":{"enable":1,"relation":[{"type":4}]}})");
    QCOMPARE(detail.general.name, std::string("box"));
    QCOMPARE(detail.general.status, 1);
    QCOMPARE(detail.interfaceRelation.enable, 1);
    QCOMPARE(detail.interfaceRelation.relation.size(), std::size_t(1));
    QCOMPARE(detail.interfaceRelation.relation[0].type, 4);
}

void tst_DeviceRecords::defaultNetworkHasTheFactoryAddresses()
{
    const auto record = decoded<Device::s_Networks>(R"({"networks":[{"index":2}]})");
    QCOMPARE(record.networks.size(), std::size_t(1));
    const auto &network = record.networks[0];
    QCOMPARE(network.ip, std::string("192.168.0.10"));
    QCOMPARE(network.subnetMask, std::string("255.255.255.0"));
    QCOMPARE(network.gateway, std::string("192.168.0.1"));
}

QTEST_GUILESS_MAIN(tst_DeviceRecords)
#include "tst_devicerecords.moc"
