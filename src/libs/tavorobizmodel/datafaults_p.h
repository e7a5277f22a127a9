#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>

#include <QString>
#include <QStringList>

namespace Tavoro::BizModel {

/// The faults in the data that a device sent, one sentence each.
class DataFaults {
public:
    /// Several records have the same identity. \a object names it.
    void addDuplicate(const QString &object);
    /// A screen has an output that the device does not have.
    void addMissingOutput(const ProtoModel::s_ScreenId &screen,
                          const ProtoModel::s_InterfaceID &output);
    /// A layer is on a screen that the device does not have.
    void addMissingScreen(const ProtoModel::Layer::s_LayerIdentity &layer);
    /// Returns true if there are no faults. Otherwise returns false, with the first few sentences
    /// in \a error.
    bool report(QString &error) const;

private:
    void add(const QString &sentence);

    QStringList m_sentences; // the first few
    int m_count = 0;
};

} // namespace Tavoro::BizModel
