#pragma once

#include "toolcalls.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <functional>

/// Changes the value at \a path, such as "screens/0/general/name", by \a change.
inline QJsonValue changedAt(const QJsonValue &value, QStringList path,
                            const std::function<QJsonValue(const QJsonValue &)> &change)
{
    if (path.isEmpty())
        return change(value);
    const QString step = path.takeFirst();
    if (value.isArray()) {
        QJsonArray list = value.toArray();
        list[step.toInt()] = changedAt(list.at(step.toInt()), path, change);
        return list;
    }
    QJsonObject object = value.toObject();
    object.insert(step, changedAt(object.value(step), path, change));
    return object;
}

/// Replaces the value at \a path.
inline QJsonObject with(const QJsonObject &setup, const char *path, const QJsonValue &value)
{
    return changedAt(setup, QString::fromLatin1(path).split(QLatin1Char('/')),
                     [&](const QJsonValue &) { return value; })
        .toObject();
}

/// Base class of tests that read and write the setup of a simulated device with one file.
class SetupCalls : protected ToolCalls {
protected:
    void startDevice()
    {
        m_bench = std::make_unique<ToolBench>();
        const QByteArray file = m_bench->makeFile("nine", "123456789");
        QCOMPARE(m_bench->run("push", {file}).exitCode, 0);
    }
    QJsonObject sync() const
    {
        return QJsonDocument::fromJson(m_bench->run("sync", {"--json"}).output).object();
    }
    Run runWith(const QByteArray &command, const QJsonObject &document,
                const QByteArrayList &options = {}) const
    {
        const QByteArray path = m_bench->makeFile("setup.json", QJsonDocument(document).toJson());
        return m_bench->run(command, QByteArrayList{path} + options);
    }
};
