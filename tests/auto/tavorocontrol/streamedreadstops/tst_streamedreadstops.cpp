#include <support/common/markingtranslator.h>
#include <support/tavorocontrol/streampath.h>
#include <support/tavorocontrol/streamreasons.h>

#include <QtTest>

#include <thread>

/// Streamed reads that end early: by a cancel, or because control or the connection is lost.
class tst_StreamedReadStops : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cancelledStateIsCheckedFirst();
    void cancelledStateStaysUntilItIsCleared();
    void reasonsAreTranslated();

    void changesDuringTheOnlyPacketHaveNoEffect_data();
    void changesDuringTheOnlyPacketHaveNoEffect();
    void controlLostBetweenPacketsStopsBeforeTheNextRequest();
    void cancelBetweenPacketsStopsBeforeTheNextRequest();
    void controlIsCheckedBeforeTheCancelledState();
    void firstPacketChecksOfflineBeforeControl();
    void furtherPacketsCheckControlBeforeOffline();
    void cancelFromAnotherThreadDropsThePacketInFlight();
};

void tst_StreamedReadStops::cancelledStateIsCheckedFirst()
{
    StreamPath path;
    path.make(IsCancelled);
    const QStringList lines{QStringLiteral(R"(warning: "Operation has been cancelled.")"),
                            streamedCall(false, 0, {}, QString::fromLatin1(cancelled.words))};
    const auto verifyStopped = [&](const StreamPath::Request &request) {
        const auto outcome = path.stream(request);
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.lines, lines);
    };
    verifyStopped(exportRequest());
    verifyStopped(nullptr);
    path.make(GoesOffline);
    verifyStopped(exportRequest());
    path.device.removeChannel();
    verifyStopped(exportRequest());
    path.device.model.reset();
    verifyStopped(exportRequest());
    QVERIFY(path.device.channel->sent().empty());
}

void tst_StreamedReadStops::cancelledStateStaysUntilItIsCleared()
{
    StreamPath path;
    path.helper.setCancelledState(true);
    QVERIFY(!path.stream(exportRequest()).ok);
    QVERIFY(!path.stream(exportRequest()).ok);
    QVERIFY(path.device.channel->sent().empty());
    path.helper.setCancelledState(false);
    QVERIFY(path.stream(exportRequest()).ok);
}

void tst_StreamedReadStops::reasonsAreTranslated()
{
    MarkingTranslator translator("Tavoro::Control::ControlHelper");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    StreamPath path;
    path.make(ControlIsLost);
    QCOMPARE(path.stream(exportRequest()).lines.mid(1),
             (QStringList{QStringLiteral(R"(warning: "<The device is controlled by others.>")"),
                          streamedCall(false, 0, {},
                                       QStringLiteral("<The device is controlled by others.>"))}));
    path.make(IsCancelled);
    QCOMPARE(path.stream(exportRequest()).lines,
             (QStringList{
                 QStringLiteral(R"(warning: "<Operation has been cancelled.>")"),
                 streamedCall(false, 0, {}, QStringLiteral("<Operation has been cancelled.>"))}));
}

void tst_StreamedReadStops::changesDuringTheOnlyPacketHaveNoEffect_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("control lost") << int(ControlIsLost);
    QTest::newRow("cancelled") << int(IsCancelled);
    QTest::newRow("offline") << int(GoesOffline);
}

void tst_StreamedReadStops::changesDuringTheOnlyPacketHaveNoEffect()
{
    QFETCH(const int, change);
    StreamPath path;
    auto only = packet("all", 1, 0);
    only.before = [&] {
        path.make(Change(change));
    };
    path.answer({only});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.last(), streamedCall(true, 1, "all"));
}

void tst_StreamedReadStops::controlLostBetweenPacketsStopsBeforeTheNextRequest()
{
    StreamPath path;
    path.answer({one()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &) {
            path.make(ControlIsLost);
        });
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.mid(2),
             (QStringList{QStringLiteral(R"(warning: "The device is controlled by others.")"),
                          streamedCall(false, third, {}, QString::fromLatin1(controlled.words))}));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(1));
}

void tst_StreamedReadStops::cancelBetweenPacketsStopsBeforeTheNextRequest()
{
    StreamPath path;
    path.answer({one(), two()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double progress, const std::string &, QString &) {
            if (progress > 0.5)
                path.make(IsCancelled);
        });
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.last(),
             streamedCall(false, twoThirds, {}, QString::fromLatin1(cancelled.words)));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(2));
}

void tst_StreamedReadStops::controlIsCheckedBeforeTheCancelledState()
{
    for (int inFlight = 0; inFlight < 2; ++inFlight) {
        StreamPath path;
        Answers answers{one(), two()};
        answers[inFlight].before = [&path] {
            path.make(IsCancelled);
            path.make(ControlIsLost);
        };
        path.answer(answers);
        const auto outcome = path.stream(exportRequest());
        QCOMPARE(outcome.lines.last(),
                 streamedCall(false, third, {}, QString::fromLatin1(controlled.words)));
    }
}

void tst_StreamedReadStops::firstPacketChecksOfflineBeforeControl()
{
    StreamPath path;
    path.make(GoesOffline);
    path.make(ControlIsLost);
    QCOMPARE(path.stream(exportRequest()).lines.last(),
             streamedCall(false, 0, {}, sentence(offline.words)));
}

void tst_StreamedReadStops::furtherPacketsCheckControlBeforeOffline()
{
    StreamPath path;
    path.answer({one()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &) {
            path.make(GoesOffline);
            path.make(ControlIsLost);
        });
    QCOMPARE(outcome.lines.last(),
             streamedCall(false, third, {}, QString::fromLatin1(controlled.words)));
}

void tst_StreamedReadStops::cancelFromAnotherThreadDropsThePacketInFlight()
{
    StreamPath path;
    auto second = two();
    second.before = [&path] {
        std::thread([&path] { path.helper.setCancelledState(true); }).join();
    };
    path.answer({one(), second, three()});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(!outcome.ok);
    QCOMPARE(
        callbackLines(outcome.lines),
        packetCalls(1) << streamedCall(false, third, {}, QString::fromLatin1(cancelled.words)));
    QVERIFY(outcome.lines.filter(QStringLiteral("status bar ")).isEmpty());
    QCOMPARE(path.device.channel->sent().size(), std::size_t(2));
}

QTEST_GUILESS_MAIN(tst_StreamedReadStops)
#include "tst_streamedreadstops.moc"
