#pragma once

#include "variant_p.h"

#include <tavorobizmodel/enums.h>
#include <tavoromodels/edithandler.h>

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {
class Device;
class Interface;
} // namespace Tavoro::BizModel

namespace Tavoro::Models {

using ObjectList = std::vector<std::shared_ptr<QObject>>;

/// The values of a row at one time, by the index of their role.
class RowValues {
public:
    virtual ~RowValues() = default;
    virtual QVariant value(int index) const = 0;
};

/// What an ObjectModel shows: the objects of its rows, and their values.
class RowSource {
public:
    virtual ~RowSource() = default;

    virtual ObjectKind kind() const = 0;
    /// The names of the roles. The first ones are the keys of the record.
    virtual std::vector<QByteArray> roles() const = 0;
    virtual int keyCount() const = 0;
    /// The objects, in the order of the rows.
    virtual ObjectList objects() const = 0;
    virtual std::shared_ptr<const RowValues> values(const QObject &object) const = 0;
    /// Calls \a changed on the thread of \a context when the object signals a change.
    virtual QMetaObject::Connection connectTo(const QObject &object, const QObject *context,
                                              std::function<void()> changed) const = 0;
    virtual std::shared_ptr<BizModel::Device> deviceOf(const QObject &object) const = 0;
    /// The record that writes \a value to a key of the object.
    virtual QJsonObject writeRecord(const QObject &object, const QString &key,
                                    const QVariant &value) const = 0;
};

/// What a ContentsModel shows.
class ContentsSource : public RowSource {
public:
    /// Returns true for a part of the device on which rows depend. For \c Interfaces they also
    /// depend on each interface, see dependents().
    virtual bool dependsOn(BizModel::Enum::Device::DataPart part) const;
    /// The objects whose values depend on an interface.
    virtual ObjectList dependents(const BizModel::Interface &interface) const;

    std::weak_ptr<BizModel::Device> device;
};

/// A role that is not a key of the record.
template <class Object, class Record>
struct ReadyMadeRole {
    const char *name;
    QVariant (*value)(const Object &object, const Record &record);
};

/// The values of an object: its record, and those of the ready-made roles.
template <class Record>
class RecordValues : public RowValues {
public:
    RecordValues(Record record, std::vector<QVariant> readyMade)
        : m_record(std::move(record)), m_readyMade(std::move(readyMade))
    { }

    QVariant value(int index) const override
    {
        constexpr int keyCount = static_cast<int>(ajson::RecordFields<Record>::count);
        return index < keyCount ? fieldVariant(m_record, index)
                                : m_readyMade[static_cast<std::size_t>(index - keyCount)];
    }

private:
    const Record m_record;
    const std::vector<QVariant> m_readyMade;
};

/// A source whose rows are objects of one class with one record.
///
/// \a Base is the class of the source, \a Traits says what is specific to the class of objects:
/// \c Object and \c Record, \c kind, \c roles (an array of ReadyMadeRole), \c record(), \c changed
/// (the signal), \c device() and \c identity().
template <class Base, class Traits>
class RecordSource : public Base {
public:
    using Object = typename Traits::Object;
    using Record = typename Traits::Record;
    using Fields = ajson::RecordFields<Record>;

    ObjectKind kind() const override { return Traits::kind; }
    int keyCount() const override { return static_cast<int>(Fields::count); }

    std::vector<QByteArray> roles() const override
    {
        std::vector<QByteArray> names;
        for (std::size_t i = 0; i < Fields::count; ++i)
            names.push_back(keyOf(Fields::list[i]).toLatin1());
        for (const auto &role : Traits::roles)
            names.emplace_back(role.name);
        return names;
    }

    std::shared_ptr<const RowValues> values(const QObject &qobject) const override
    {
        const auto &object = static_cast<const Object &>(qobject);
        Record record = Traits::record(object);
        std::vector<QVariant> readyMade;
        for (const auto &role : Traits::roles)
            readyMade.push_back(role.value(object, record));
        return std::make_shared<RecordValues<Record>>(std::move(record), std::move(readyMade));
    }

    QMetaObject::Connection connectTo(const QObject &object, const QObject *context,
                                      std::function<void()> changed) const override
    {
        return QObject::connect(static_cast<const Object *>(&object), Traits::changed, context,
                                [changed = std::move(changed)] { changed(); });
    }

    std::shared_ptr<BizModel::Device> deviceOf(const QObject &object) const override
    {
        return Traits::device(static_cast<const Object &>(object));
    }

    QJsonObject writeRecord(const QObject &object, const QString &key,
                            const QVariant &value) const override
    {
        QVariantMap record = Traits::identity(static_cast<const Object &>(object), key);
        record.insert(key, value);
        return QJsonObject::fromVariantMap(record);
    }
};

/// Returns the objects of \a list that still exist.
template <class List>
ObjectList lockAll(const List &list)
{
    ObjectList objects;
    for (const auto &weak : list) {
        if (auto object = weak.lock())
            objects.push_back(std::move(object));
    }
    return objects;
}

} // namespace Tavoro::Models
