#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>

namespace Tavoro::Gate {

/// A file with a JSON object, as a list of values with their places in the file.
class ConfigText {
public:
    struct Value {
        QString key; ///< "broker.port" for the member "port" of the object "broker".
        QJsonValue value;
    };

    /// False if the file cannot be read, or does not contain a JSON object; \a error then names the
    /// file, the line and the reason.
    bool read(const QString &fileName, QString &error);

    /// The values in the order of their keys. The members of an object are values of their own if
    /// its key is one of \a groups.
    QList<Value> values(const QStringList &groups) const;
    /// The beginning of a message about a key: "gate.json, line 3: ".
    QString place(const QString &key) const;

private:
    QString placeOf(int offset) const;
    static void collect(const QString &prefix, const QJsonObject &object, const QStringList &groups,
                        QList<Value> &values);

    QString m_fileName;
    QByteArray m_text;
    QJsonObject m_object;
};

} // namespace Tavoro::Gate
