#pragma once

#include "simulatedsync.h"
#include <support/common/resources.h>
#include <support/tavorobizmodel/journal.h>
#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storetext.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <functional>

/// The visible effects of one operation.
struct Shown {
    bool ok = false;
    QString error = QStringLiteral("text from before");
    QStringList warnings; ///< In the log, without the device's name and the tag.
    QStringList statusBar; ///< Also message boxes and calls of callbacks.
    std::chrono::milliseconds time{0};
    quint64 timeouts = 0; ///< Requests that timed out.
};

/// Injects faults into a simulated device, which is in the model and in an open store, and checks
/// what must hold after every fault:
///
/// - every call returns at most half a second after its timeout,
/// - when the fault is lifted the device answers again, on the same connection or on a new one,
/// - the process has no more descriptors and threads than before,
/// - the model and the stored rows are unchanged, or completely replaced by new ones.
///
/// The checks use the macros of Qt Test: check QTest::currentTestFailed() after them.
class FaultBench {
public:
    /// The device has a file of 1000 bytes. No request takes longer than \a requestTime.
    explicit FaultBench(std::chrono::milliseconds requestTime);

    /// Remembers the present content of model and store for the checks below.
    void remember();

    void addFault(const QString &rule);
    /// Runs \a operation, which returns its result and its error text.
    Shown run(const std::function<bool(QString &error)> &operation);

    /// The fault was injected as often as its rule says.
    void checkFaultStruck();
    /// The call returned in time.
    void checkTime(const Shown &shown) const;
    /// Ends the faults. If \a isLost is true, the connection has ended: waits for a new one.
    void lift(bool isLost);
    /// The next exchange succeeds.
    void checkNextExchange();
    void checkResources() const;
    /// Model and store have their remembered content.
    void checkModelIsUnchanged() const;
    /// The remembered rows of one kind.
    QStringList rowsBefore(int kind) const;
    void checkModelHolds(const QStringList &rows) const;
    /// The store kept its remembered rows until the last synchronisation had ended. It has the rows
    /// of the model after the save, and either of the two before it.
    void checkStoreFollowed() const;

    /// Synchronises the device without waiting for the save that follows. Records the stored rows
    /// meanwhile.
    bool readDevice();
    /// Waits for that save.
    bool awaitSave() const;
    bool synchronise();

    std::shared_ptr<Tavoro::BizModel::Device> device() const { return sync.connection.model; }

    Journal journal;
    SimulatedSync sync;

private:
    QStringList modelRows() const;
    QStringList storedRows() const;

    const std::chrono::milliseconds m_requestTime;
    QTemporaryDir m_folder;
    StoredModel m_store;
    QStringList m_rowsBefore; ///< The remembered rows of model and store.
    QList<QStringList> m_storedMeanwhile; ///< The stored rows at each text of the status bar.
    std::unique_ptr<StoreSignals>
        m_storeSignals; ///< The signals since the last synchronisation began.
    Resources m_resourcesBefore{};
    quint64 m_connections = 0; ///< Connections of the channel when the last fault was added.
};
