#include <support/tavorocontrol/requestpath.h>

#include <QtTest>

using namespace Tavoro;

namespace {

using Rows = std::vector<BizModel::s_CommandTimeout>;

std::vector<int> timeoutsOf(const std::vector<SentRequest> &sent)
{
    std::vector<int> timeouts;
    for (const SentRequest &request : sent)
        timeouts.push_back(request.timeout);
    return timeouts;
}

void setTimeouts(BizModel::Device &model, quint32 defaultTimeout,
                 const std::vector<BizModel::s_CommandTimeout> &rows)
{
    auto &config = model.deviceConfig();
    config.defaultTimeout = defaultTimeout;
    config.timeouts.clear();
    for (const auto &row : rows)
        config.timeouts.append(std::make_shared<BizModel::s_CommandTimeout>(row));
}

} // namespace

Q_DECLARE_METATYPE(Tavoro::BizModel::s_CommandTimeout)

class tst_RequestTimeouts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void timeoutComesFromTheTable_data();
    void timeoutComesFromTheTable();
    void emptyEntriesAreSkipped();
    void timeoutIsSetWithoutAChannel();
    void furtherPacketsHaveTheConstructorsTimeout();
};

void tst_RequestTimeouts::timeoutComesFromTheTable_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<int>("timeout");

    // clang-format off
    QTest::newRow("no entry: default")             << Rows{}                                           << 4321;
    QTest::newRow("entry")                         << Rows{{0x11, 0x07, 250}}                          << 250;
    QTest::newRow("entry of another function")     << Rows{{0x11, 0x08, 250}}                          << 4321;
    QTest::newRow("entry of another base")         << Rows{{0x12, 0x07, 250}}                          << 4321;
    QTest::newRow("codes are compared whole")      << Rows{{0x111, 0x07, 250}, {0x11, 0x107, 250}}     << 4321;
    QTest::newRow("first match wins")              << Rows{{0x12, 0x07, 1}, {0x11, 0x07, 2}, {0x11, 0x07, 3}} << 2;
    QTest::newRow("longer than a channel can take") << Rows{{0x11, 0x07, 0xFFFFFFFF}}                  << 0x7FFFFFFF;
    // clang-format on
}

void tst_RequestTimeouts::timeoutComesFromTheTable()
{
    QFETCH(const Rows, rows);
    QFETCH(const int, timeout);
    RequestPath path;
    setTimeouts(*path.device.model, 4321, rows);
    const auto reading = RequestPath::request(1, 0x1107);
    const auto writing = RequestPath::request(2, 0x1107, "abcd");
    reading->setTimeout(20000); // overridden
    writing->setTimeout(20000);
    QVERIFY(path.read(reading).ok);
    QVERIFY(path.write(writing).ok);
    QCOMPARE(timeoutsOf(path.device.channel->sent()), (std::vector<int>{timeout, timeout}));
}

void tst_RequestTimeouts::emptyEntriesAreSkipped()
{
    RequestPath path;
    setTimeouts(*path.device.model, 4321, {{0x11, 0x07, 250}});
    path.device.model->deviceConfig().timeouts.prepend(nullptr);
    const auto request = RequestPath::request(1, 0x1107);
    QVERIFY(path.read(request).ok);
    QCOMPARE(request->timeout(), 250);
}

void tst_RequestTimeouts::timeoutIsSetWithoutAChannel()
{
    RequestPath path;
    path.device.removeChannel();
    setTimeouts(*path.device.model, 4321, {});
    const auto request = RequestPath::request(1, 0x1100);
    QVERIFY(path.read(request).ok);
    QCOMPARE(request->timeout(), 4321);
}

void tst_RequestTimeouts::furtherPacketsHaveTheConstructorsTimeout()
{
    RequestPath path;
    setTimeouts(*path.device.model, 4321, {});
    path.device.channel->info.maxPacketSize = 4;
    const int fresh = SSProxy::DeviceRequestCommand().timeout();
    QVERIFY(fresh != 4321);

    path.device.channel->answer(ScriptedAnswer::packet("a", 3, 0));
    QVERIFY(path.read(RequestPath::request(1, 0x1100)).ok);
    QVERIFY(path.write(RequestPath::request(2, 0x1107, "abcdefgh")).ok);
    QCOMPARE(timeoutsOf(path.device.channel->sent()),
             (std::vector<int>{4321, fresh, fresh, /* split write: */ fresh, fresh}));
}

QTEST_GUILESS_MAIN(tst_RequestTimeouts)
#include "tst_requesttimeouts.moc"
