#include "deviceoperations.h"

#include <support/proto/recordjson.h>
#include <support/tavorocontrol/requestpath.h>

#include <tavorobizmodel/device.h>

#include <QtTest>

#include <algorithm>
#include <iterator>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::Device;

class tst_Device : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operationsSucceed_data();
    void operationsSucceed();
    void refusedOperationsFail_data();
    void refusedOperationsFail();
    void withNoChannelDecodingReadsFailAndWritesSucceed_data();
    void withNoChannelDecodingReadsFailAndWritesSucceed();
    void operationsOfAGoneDeviceFail_data();
    void operationsOfAGoneDeviceFail();

    void decodeFailureIsNeitherLoggedNorShown();
    void readsOfADeviceLostInFlightFail();
    void missingKeysKeepTheirDefaults();
    void readSubcardDetailPassesTheModelsText();
    void timeoutOfSubcardModeIsOverridden();

    void sharedDevicesKnowThemselves();
};

namespace {

constexpr auto emptyBodyText =
    "Decode json failed: error at line :0 col :0 msg:read object must start with {!";

/// One call of one operation, and its outcome.
struct Called {
    Called(RequestPath &path, const OperationRow &row)
    {
        Control::Device device(path.device.model, nullptr);
        ok = row.call(device, path.device.model.get(), seen, error);
        lines = path.takeLines();
    }

    bool ok;
    std::string seen;
    QString error = QStringLiteral("text from before");
    QStringList lines;
};

void addOperationRows()
{
    QTest::addColumn<const OperationRow *>("row");
    for (const OperationRow &row : operationRows)
        QTest::newRow(row.name) << &row;
}

const OperationRow &operationRow(const char *name)
{
    return *std::find_if(std::begin(operationRows), std::end(operationRows),
                         [&](const OperationRow &row) { return qstrcmp(row.name, name) == 0; });
}

QString sentence(const OperationRow &row, const char *reason)
{
    return QStringLiteral("%1 %2 failed: %3 .")
        .arg(row.type == 1 ? QStringLiteral("Get") : QStringLiteral("Set"),
             QString::fromLatin1(row.label), QString::fromLatin1(reason));
}

} // namespace

Q_DECLARE_METATYPE(const OperationRow *)

void tst_Device::operationsSucceed_data()
{
    addOperationRows();
}

void tst_Device::operationsSucceed()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    auto &timeouts = path.device.model->deviceConfig().timeouts;
    timeouts.clear();
    timeouts.append(std::make_shared<BizModel::s_CommandTimeout>(
        BizModel::s_CommandTimeout{quint16(row->code >> 8), quint16(row->code & 0xFF), 777}));
    path.device.channel->answerBody(row->answer);

    const Called called(path, *row);
    QVERIFY(called.ok);
    QCOMPARE(called.error, QStringLiteral("text from before"));
    QCOMPARE(QString::fromStdString(called.seen), QString::fromLatin1(row->seen));
    QCOMPARE(called.lines.last(),
             QStringLiteral("status bar 0 for 5000 ms: %1 %2 successfully.")
                 .arg(row->type == 1 ? QStringLiteral("Get") : QStringLiteral("Set"),
                      QString::fromLatin1(row->label)));

    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(1));
    const char head[18] = {0,
                           0,
                           char(row->type),
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           char(row->code & 0xFF),
                           char(row->code >> 8)};
    QCOMPARE(QByteArray::fromStdString(sent[0].headBytes(18, 35)).toHex(),
             QByteArray(head, sizeof head).toHex());
    QCOMPARE(QString::fromStdString(sent[0].body), QString::fromLatin1(row->body));
    QCOMPARE(sent[0].timeout, 777);
}

void tst_Device::refusedOperationsFail_data()
{
    addOperationRows();
}

void tst_Device::refusedOperationsFail()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::refusal(5));
    const Called called(path, *row);
    QVERIFY(!called.ok);
    QCOMPARE(called.error, sentence(*row, "hardware error:5"));
    const bool saysMore = row->kind == (Decodes | LocksFirst);
    QCOMPARE(called.lines.contains(QStringLiteral("warning: Failed to SendSyncRequest")), saysMore);
    QCOMPARE(called.lines.size(), saysMore ? 4 : 3); // request, failure, status bar
}

void tst_Device::withNoChannelDecodingReadsFailAndWritesSucceed_data()
{
    addOperationRows();
}

void tst_Device::withNoChannelDecodingReadsFailAndWritesSucceed()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.removeChannel();
    const Called called(path, *row);
    const bool decodes = row->kind & Decodes;
    QCOMPARE(called.ok, !decodes);
    QCOMPARE(called.error, QString::fromLatin1(decodes ? emptyBodyText : "text from before"));
    QVERIFY(called.lines.filter(QStringLiteral("status bar")).isEmpty());
}

void tst_Device::operationsOfAGoneDeviceFail_data()
{
    addOperationRows();
}

void tst_Device::operationsOfAGoneDeviceFail()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.model.reset();
    const Called called(path, *row);
    QVERIFY(!called.ok);
    if (row->kind & LocksFirst) {
        QCOMPARE(called.error, QStringLiteral("text from before"));
        QCOMPARE(called.lines, textLines({"warning: The device object is empty."}));
    } else {
        QCOMPARE(called.error, sentence(*row, "invalid device model data"));
        QCOMPARE(called.lines.size(), 2);
    }
    QVERIFY(path.device.channel->sent().empty());
}

void tst_Device::decodeFailureIsNeitherLoggedNorShown()
{
    for (const OperationRow &row : operationRows) {
        if (!(row.kind & Decodes))
            continue;
        RequestPath path;
        path.device.channel->answerBody("[]");
        const Called called(path, row);
        QVERIFY(!called.ok);
        QCOMPARE(called.error,
                 QStringLiteral("Decode json failed: "
                                "error at line :0 col :1 msg:read object must start with {!"));
        QCOMPARE(called.lines.size(), 3); // request, answer, status bar
        QCOMPARE(called.lines.last(),
                 QStringLiteral("status bar 0 for 5000 ms: Get %1 successfully.")
                     .arg(QString::fromLatin1(row.label)));
    }
}

void tst_Device::readsOfADeviceLostInFlightFail()
{
    for (const char *name : {"readDetails", "readDeviceDetails", "readSubcardDetail"}) {
        RequestPath path;
        auto answer = ScriptedAnswer::packet(detailBody);
        answer.before = [&path] {
            path.device.model.reset();
        };
        path.device.channel->answer(answer);
        Control::Device device(path.device.model, nullptr);
        std::string seen;
        QString error = QStringLiteral("text from before");
        QVERIFY2(!operationRow(name).call(device, nullptr, seen, error), name);
        QCOMPARE(error, QStringLiteral("text from before"));
    }
}

void tst_Device::missingKeysKeepTheirDefaults()
{
    RequestPath path;
    path.device.channel->answerBody(R"({"swap":1,"networks":[{"index":2}]})");
    Control::Device device(path.device.model, nullptr);
    s_DeviceDetail detail;
    QString error;
    QVERIFY(device.readDetails(detail, error));
    QCOMPARE(int(detail.swap), 1);
    QCOMPARE(detail.general.name, std::string("N/A"));
    QVERIFY(detail.powers.empty());
    QCOMPARE(json(detail.networks),
             std::string(R"([{"index":2,"MAC":"","dhcp":0,"ip":"192.168.0.10",)"
                         R"("subnetMask":"255.255.255.0","gateway":"192.168.0.1"}])"));
}

void tst_Device::readSubcardDetailPassesTheModelsText()
{
    RequestPath path;
    path.device.channel->answerBody(R"({"subcards":[]})");
    s_subcards reported;
    reported.subcards.resize(1);
    QString modelsText;
    QVERIFY(!path.device.model->updateSlotModelData(reported, {}, modelsText));
    QString error;
    QVERIFY(!Control::Device(path.device.model, nullptr).readSubcardDetail(reported, error));
    QCOMPARE(error, modelsText);
    QVERIFY(!error.isEmpty());
}

void tst_Device::timeoutOfSubcardModeIsOverridden()
{
    RequestPath path;
    auto &config = path.device.model->deviceConfig();
    config.timeouts.clear();
    config.defaultTimeout = 1234;
    QVERIFY(Called(path, operationRow("writeSubcardMode")).ok);
    QCOMPARE(path.device.channel->sent().front().timeout, 1234);
}

void tst_Device::sharedDevicesKnowThemselves()
{
    const auto device =
        std::make_shared<Control::Device>(std::weak_ptr<BizModel::Device>(), nullptr);
    QCOMPARE(device->shared_from_this(), device);
}

QTEST_GUILESS_MAIN(tst_Device)
#include "tst_device.moc"
