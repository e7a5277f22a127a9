#pragma once

#include "recordtree.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Peer {

/// QJsonDocument: reads and writes by its tree. The input is a QByteArray made before the
/// measurement.
class QtJson {
public:
    template <class Value>
    static void decode(const QByteArray &text, Value &value)
    {
        const QJsonDocument document = QJsonDocument::fromJson(text);
        if constexpr (ajson::IsVector<Value>::value)
            read(document.array(), value);
        else
            read(document.object(), value);
    }

    template <class Value>
    static QByteArray encode(const Value &value)
    {
        return document(tree(value)).toJson(QJsonDocument::Compact);
    }

private:
    static QJsonDocument document(const QJsonArray &array) { return QJsonDocument(array); }
    static QJsonDocument document(const QJsonObject &object) { return QJsonDocument(object); }

    template <class Value>
    static void read(const QJsonValue &json, Value &value)
    {
        if constexpr (ajson::IsVector<Value>::value) {
            const QJsonArray array = json.toArray();
            for (const QJsonValue &element : array)
                read(element, value.emplace_back());
        } else if constexpr (ajson::HasFields<Value>::value) {
            readFields(json.toObject(), value, typename ajson::RecordFields<Value>::Indices());
        } else if constexpr (std::is_same_v<Value, std::string>) {
            value = json.toString().toStdString();
        } else {
            value = static_cast<Value>(static_cast<std::int64_t>(json.toDouble()));
        }
    }

    template <class Record, std::size_t... I>
    static void readFields(const QJsonObject &object, Record &record, std::index_sequence<I...>)
    {
        record.visitFields(
            [&object](auto &...members) { (..., read(object.value(name<Record, I>()), members)); });
    }

    template <class Value>
    static auto tree(const Value &value)
    {
        if constexpr (ajson::IsVector<Value>::value) {
            QJsonArray array;
            for (const auto &element : value)
                array.append(tree(element));
            return array;
        } else if constexpr (ajson::HasFields<Value>::value) {
            return object(value, typename ajson::RecordFields<Value>::Indices());
        } else if constexpr (std::is_same_v<Value, std::string>) {
            return QString::fromStdString(value);
        } else {
            return static_cast<qint64>(value);
        }
    }

    template <class Record, std::size_t... I>
    static QJsonObject object(const Record &record, std::index_sequence<I...>)
    {
        QJsonObject object;
        record.visitFields([&object](const auto &...members) {
            (..., object.insert(name<Record, I>(), tree(members)));
        });
        return object;
    }

    template <class Record, std::size_t I>
    static QLatin1String name()
    {
        constexpr std::string_view name = ajson::RecordFields<Record>::list[I];
        return QLatin1String(name.data(), static_cast<int>(name.size()));
    }
};

} // namespace Peer
