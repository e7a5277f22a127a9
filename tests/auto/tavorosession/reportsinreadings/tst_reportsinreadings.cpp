// A report that arrives during a reading is newer than what was read before it.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/interface.h>
#include <tavorocontrol/interface.h>

using namespace Tavoro;

class tst_ReportsInReadings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<SessionBench>();
        QVERIFY(m_bench->openReady());
        const auto input = interface();
        connect(input.get(), &BizModel::Interface::interfaceChanged, this,
                [this] { m_seen << interface()->detail().colorDepths.actualColorDepth; });
    }
    void cleanup()
    {
        m_seen.clear();
        m_bench.reset();
    }

    void readingOfTheDeviceKeepsTheReport();
    void readAfterAWriteKeepsTheReport();
    void valuesWithoutAReportFollowAllTheSame();
    void stormOfReportsDelaysNoModelUpdateForever();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    std::shared_ptr<BizModel::Interface> interface()
    {
        return wall().device()->interfaces().first().lock();
    }
    bool setDepth(int bits)
    {
        const auto id = interface()->interfaceId();
        return m_bench->execute(
            QStringLiteral("depth %1 %2 %3").arg(id.slotId).arg(id.connectorId).arg(bits));
    }
    PendingCall<Outcome> writeMapping(int value)
    {
        ProtoModel::Interface::s_FormatMapping mapping;
        static_cast<ProtoModel::s_InterfaceID &>(mapping) = interface()->interfaceId();
        mapping.formatMapping = static_cast<decltype(mapping.formatMapping)>(value);
        return wall().call(&Control::Interface::writeInterfaceFormatMapping, {mapping});
    }

    std::unique_ptr<SessionBench> m_bench;
    QList<int> m_seen; ///< The depths that the model had.
};

void tst_ReportsInReadings::readingOfTheDeviceKeepsTheReport()
{
    QVERIFY(m_bench->addFault("hold,code=0x1300,count=1"));
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults()); // the interfaces were read
    QVERIFY(setDepth(12));
    QTRY_COMPARE(m_seen, QList<int>{12});
    QCOMPARE(int(wall().state().kind), int(DeviceState::Reading));
    QVERIFY(m_bench->releaseAnswers());
    QTRY_VERIFY(wall().isReady());
    QVERIFY(resultOf(wall().modelUpdate()));
    QCOMPARE(m_seen, QList<int>{12});
}

void tst_ReportsInReadings::readAfterAWriteKeepsTheReport()
{
    QVERIFY(m_bench->addFault("hold,code=0x1200,count=1"));
    QVERIFY(resultOf(writeMapping(3)));
    QTRY_VERIFY(!m_bench->hasFaults()); // the answer was made, and is held
    QVERIFY(setDepth(12));
    QTRY_COMPARE(m_seen, QList<int>{12});
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(wall().modelUpdate()));
    for (const int depth : qAsConst(m_seen))
        QCOMPARE(depth, 12);
    QCOMPARE(int(interface()->detail().formatMapping), 3);
}

/// The reading leaves the interfaces as they are, since a report was newer: they are read again.
void tst_ReportsInReadings::valuesWithoutAReportFollowAllTheSame()
{
    QVERIFY(m_bench->addFault("hold,code=0x1300,count=1"));
    QVERIFY(resultOf(writeMapping(5)));
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(setDepth(12));
    QTRY_COMPARE(m_seen.value(0), 12);
    QVERIFY(m_bench->addFault("hold,code=0x1200,count=1"));
    QVERIFY(m_bench->releaseAnswers());
    const auto update = wall().modelUpdate();
    QTRY_VERIFY(wall().isReady());
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(Heartbeat().waitForBeats());
    QVERIFY(!update.future().isFinished());
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(update));
    QCOMPARE(int(interface()->detail().formatMapping), 5);
    QTRY_COMPARE(int(interface()->detail().colorDepths.actualColorDepth), 12);
}

void tst_ReportsInReadings::stormOfReportsDelaysNoModelUpdateForever()
{
    QTimer storm;
    int depth = 0;
    connect(&storm, &QTimer::timeout, this, [&] { setDepth(8 + 2 * (++depth % 3)); });
    storm.start(0);
    QVERIFY(resultOf(writeMapping(4)));
    QVERIFY(resultOf(wall().modelUpdate()));
    QCOMPARE(int(interface()->detail().formatMapping), 4);
    storm.stop();
    QVERIFY(setDepth(12));
    // A read that began before the report may still bring an older depth, which is read again.
    QVERIFY(resultOf(wall().modelUpdate()));
    QTRY_COMPARE(int(interface()->detail().colorDepths.actualColorDepth), 12);
}

QTEST_GUILESS_MAIN(tst_ReportsInReadings)
#include "tst_reportsinreadings.moc"
