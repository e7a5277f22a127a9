#pragma once

#include "devicestore_p.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace Tavoro::BizModel {

/// A store whose file is replaced when it is damaged: the damaged one gets another name, and a new
/// one is created. Reports that, and damaged rows, by the signals of DeviceList. Used by one
/// thread.
class ReplaceableStore {
public:
    /// Opens the file and loads the devices in it. Returns false with the reason in \a error when
    /// there is no usable file.
    bool open(const QString &fileName, DeviceStore::Loaded &loaded, QString &error);
    void close() { m_store.close(); }

    using Step = std::function<StoreOutcome(DeviceStore &, QString &error)>;
    /// Runs \a step on the open store, and again on a new file if the file turns out to be damaged.
    /// Returns false with the reason in \a error. \a isNewFile: the file holds nothing but what the
    /// step wrote.
    bool run(const Step &step, QString &error, bool &isNewFile);

private:
    bool replaceFile(QString &error);
    void reportSetAside(const QStringList &rows) const;

    DeviceStore m_store;
    QString m_fileName;
};

} // namespace Tavoro::BizModel
