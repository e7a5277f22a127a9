#pragma once

#include "jsondiff.h"

#include <tavorooperations/scope.h>

#include <QJsonObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// An object that differs between two setups.
struct SetupChange {
    enum Kind {
        Changed,
        New,
        Gone
    };

    Operations::ScopeKind scope = Operations::ScopeKind::Device;
    Kind kind = Changed;
    QJsonObject present; ///< The record on the device; empty if the object is New.
    QJsonObject wanted; ///< The record in the document; empty if the object is Gone.
    std::vector<Difference> differences; ///< Of a Changed object, without those that no write sets.

    /// "screen 1 (type 1): freeze 0 -> 1".
    QString text() const;
    /// In the form of the changes that watch shows.
    QJsonObject toJson() const;
};

/// Reads the present setup of a device, in the form of the document. False with the reason in
/// \a error if a read fails.
bool readSetup(const std::shared_ptr<BizModel::Device> &device, QJsonObject &setup, QString &error);

/// Reads the document that sync wrote, perhaps edited. Its objects may lack keys: these keep their
/// values. False with the reason in \a fault if it is not one.
bool parseSetup(const QByteArray &text, QJsonObject &setup, QString &fault);

/// What a device with the setup \a present has to change to have the setup \a wanted. A list that
/// \a wanted does not have stays as it is. Interfaces and files that only one of them has are left
/// out: no write creates them. \a fault names a key that the device does not know.
std::vector<SetupChange> compareSetups(const QJsonObject &present, const QJsonObject &wanted,
                                       QString &fault);

} // namespace Tavoro::Ctl
