#pragma once

#include <tavorooperations/export.h>
#include <tavorooperations/operation.h>
#include <tavorooperations/scope.h>

#include <QJsonObject>
#include <QString>

#include <optional>

namespace Tavoro::Operations {

/// The operation that writes one key of an object, for editors that handle keys in general.
///
/// A value. All members may be called on any thread; none blocks.
class TAVOROOPERATIONS_EXPORT KeyWrite {
public:
    /// \cond
    KeyWrite(const Operation &operation, const QString &key, const QString &writtenKey);
    /// \endcond

    /// The operation: Screen.writeFreeze for the key "freeze" of screens.
    Operation operation() const { return m_operation; }
    /// The argument of the operation. \a record has the keys of the object's identity, none for a
    /// device, and the key with its value:
    /// \code
    /// {"screenId":0,"screenType":1,"freeze":1}
    /// \endcode
    QString argument(const QJsonObject &record) const;

private:
    Operation m_operation;
    QString m_key;
    QString m_writtenKey; ///< Empty if the value of the key is the whole argument.
};

/// The operation that writes nothing but \a key of the objects of \a kind; nothing if there is
/// none. \a key is a key of the record that the read of the kind returns, such as "freeze" of a
/// screen. Where several operations write the key, the first one of all().
TAVOROOPERATIONS_EXPORT std::optional<KeyWrite> findWrite(ScopeKind kind, const QString &key);

} // namespace Tavoro::Operations
