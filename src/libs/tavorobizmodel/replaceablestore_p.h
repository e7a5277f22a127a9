#pragma once

#include "devicestore_p.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace Tavoro::BizModel {

/// A store that replaces a damaged file: renames it and creates a new one. Reports this, and
/// damaged rows, by the signals of DeviceList. Used by one thread.
class ReplaceableStore {
public:
    /// Opens the file and loads the devices in it. Returns false, with the reason in \a error, if
    /// no file can be used.
    bool open(const QString &fileName, DeviceStore::Loaded &loaded, QString &error);
    void close() { m_store.close(); }

    using Step = std::function<StoreOutcome(DeviceStore &, QString &error)>;
    /// Runs \a step on the open store, and again on a new file if the file turns out to be damaged.
    /// Returns false, with the reason in \a error, on failure. \a isNewFile is set to true if the
    /// file is new and holds only what the step wrote.
    bool run(const Step &step, QString &error, bool &isNewFile);

private:
    bool replaceFile(QString &error);
    void reportQuarantined(const QStringList &rows) const;

    DeviceStore m_store;
    QString m_fileName;
};

} // namespace Tavoro::BizModel
