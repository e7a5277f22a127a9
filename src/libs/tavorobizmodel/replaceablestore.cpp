#include "replaceablestore_p.h"

#include "logging_p.h"

#include <tavorobizmodel/devicelist.h>

namespace Tavoro::BizModel {

bool ReplaceableStore::open(const QString &fileName, DeviceStore::Loaded &loaded, QString &error)
{
    m_fileName = fileName;
    StoreOutcome outcome = m_store.open(fileName, error);
    if (outcome == StoreOutcome::Done)
        outcome = m_store.load(loaded, error);
    if (outcome != StoreOutcome::Done)
        loaded = {};
    reportQuarantined(loaded.quarantined);
    return outcome == StoreOutcome::Done
        || (outcome == StoreOutcome::Damaged && replaceFile(error));
}

bool ReplaceableStore::run(const Step &step, QString &error, bool &isNewFile)
{
    auto outcome = StoreOutcome::Done;
    isNewFile = !m_store.isOpen(); // an earlier step could not replace the damaged file
    if (isNewFile)
        outcome = m_store.open(m_fileName, error);
    if (outcome == StoreOutcome::Done)
        outcome = step(m_store, error);
    if (outcome == StoreOutcome::Damaged && replaceFile(error)) {
        isNewFile = true;
        outcome = step(m_store, error);
    }
    isNewFile = isNewFile && m_store.isOpen();
    return outcome == StoreOutcome::Done;
}

/// Renames the damaged file, for the reason in \a error, and creates a new one. After a failure the
/// store is closed, and the next step tries to open it again.
bool ReplaceableStore::replaceFile(QString &error)
{
    m_store.close();
    const QString kept = StoreDatabase::quarantine(m_fileName);
    if (kept.isEmpty())
        return false;
    qCWarning(modelLog) << "The store of devices is damaged:" << error << "Kept as" << kept;
    Q_EMIT DeviceList::instance()->signalDeviceStoreQuarantined(m_fileName, kept);
    return m_store.open(m_fileName, error) == StoreOutcome::Done;
}

void ReplaceableStore::reportQuarantined(const QStringList &rows) const
{
    for (const QString &row : rows) {
        qCWarning(modelLog) << "A row in the store of devices is damaged and was quarantined:"
                            << row;
        Q_EMIT DeviceList::instance()->signalStoredRecordQuarantined(m_fileName, row);
    }
}

} // namespace Tavoro::BizModel
