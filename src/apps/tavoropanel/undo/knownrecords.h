#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Panel {

/// The kinds of objects whose changes can be undone.
enum class RecordKind : int {
    Device,
    Interface,
    Screen,
    Layer,
    File,
};

/// An object of a device, by the keys that its write records have.
struct RecordId {
    const BizModel::Device *device = nullptr; ///< Only compared.
    RecordKind kind = RecordKind::Device;
    QString identity; ///< The keys as JSON.

    bool operator==(const RecordId &other) const
    {
        return device == other.device && kind == other.kind && identity == other.identity;
    }
};

/// The keys of a record that identify its object.
QJsonObject identityIn(RecordKind kind, const QJsonObject &record);

/// The records of a device as far as the program knows them: those of the device model, with what
/// was written since the model was read.
class KnownRecords {
public:
    /// The record of an object; empty if the device does not have it.
    QJsonObject record(const BizModel::Device &device, RecordKind kind,
                       const QJsonObject &identity) const;
    /// The records of all layers.
    std::vector<QJsonObject> layers(const BizModel::Device &device) const;

    /// Notes the keys of a write record, which the model does not have yet.
    void note(const BizModel::Device &device, RecordKind kind, const QJsonObject &written,
              quint64 write);
    /// Forgets what a write noted: it failed, or the model has its values.
    void forget(quint64 write);

private:
    struct Noted {
        quint64 write;
        RecordId id;
        QJsonObject values;
    };

    std::vector<Noted> m_noted; ///< In the order of the writes.
};

} // namespace Tavoro::Panel
