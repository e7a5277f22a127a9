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

/// What one operation showed to everybody.
struct Shown {
    bool ok = false;
    QString error = QStringLiteral("text from before");
    QStringList warnings; ///< Of the log, without the device's name and the tag.
    QStringList statusBar; ///< And the calls of callbacks.
    std::chrono::milliseconds time{0};
    quint64 timeouts = 0; ///< Requests that ended by their time.
};

/// A simulated device with faults on request, in the model and in an open store, and
/// the checks of what must hold after every fault:
///
/// - every caller is back within its timeout and half a second,
/// - the device serves again when the fault is lifted, on the same connection or on a new one,
/// - descriptors and threads are as many as before,
/// - the model and the stored rows are those of before, or whole new ones.
///
/// The checks are test functions of Qt Test: check QTest::currentTestFailed() after them.
class FaultBench {
public:
    /// The device has a file of 1000 bytes. No request takes longer than \a requestTime.
    explicit FaultBench(std::chrono::milliseconds requestTime);

    /// What model and store hold now is what they have to hold.
    void remember();

    void addFault(const QString &rule);
    /// Runs \a operation, which returns its result and its error text.
    Shown run(const std::function<bool(QString &error)> &operation);

    /// The rule was used as often as it says.
    void checkFaultStruck();
    /// The caller waited no longer than it may.
    void checkTime(const Shown &shown) const;
    /// Ends the faults. \a isLost: the connection has ended, and a new one is waited for.
    void lift(bool isLost);
    /// The next exchange succeeds.
    void checkNextExchange();
    void checkResources() const;
    /// Model and store hold what they held when the bench remembered it.
    void checkModelIsUnchanged() const;
    /// Of the rows that model and store held then those of a kind.
    QStringList rowsBefore(int kind) const;
    void checkModelHolds(const QStringList &rows) const;
    /// The store held what it held then until the last synchronisation had ended, holds that or
    /// what the model holds now, and the latter when the save is through.
    void checkStoreFollowed() const;

    /// A synchronisation, without the save that follows it. Looks at the store meanwhile.
    bool readDevice();
    /// Waits for that save, which no caller does.
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
    QStringList m_rowsBefore; ///< Of model and store.
    QList<QStringList> m_storedMeanwhile; ///< At each line of the status bar.
    std::unique_ptr<StoreSignals> m_storeSignals; ///< Since the last synchronisation began.
    Resources m_resourcesBefore{};
    quint64 m_connections = 0; ///< At the last fault.
};
