#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

/// The committed schema of the records, as a program in another language would use it.
class RecordSchema {
public:
    /// Reads docs/schema/records.json; isValid() is false when that fails.
    RecordSchema();

    bool isValid() const { return !m_definitions.isEmpty(); }
    bool contains(const QByteArray &record) const;

    /// Types of the fields in wire order: u8, i32, string, record, list and so on; "?" for a type
    /// that is none of these.
    QByteArray fieldTypes(const QByteArray &record) const;

    /// The value of each field in a text.
    enum class Choice {
        Default,
        Minimum, ///< Strings are "text", lists have one element.
        Maximum,
        BeyondMaximum, ///< As Minimum, but integers are one more than their maximum.
    };
    /// The text of a record, made from the schema alone.
    QByteArray text(const QByteArray &record, Choice choice) const;

    /// Why \a json is not valid as the record; empty when it is.
    QString error(const QByteArray &record, const QByteArray &json) const;

private:
    QJsonObject definition(const QByteArray &record) const;
    QJsonObject resolved(const QJsonObject &schema) const;
    QByteArray valueText(const QJsonObject &schema, Choice choice) const;
    QByteArray objectText(const QJsonObject &definition, Choice choice) const;
    QString valueError(const QJsonObject &schema, const QJsonValue &value) const;
    QString objectError(const QJsonObject &definition, const QJsonObject &object) const;

    QJsonObject m_definitions;
};
