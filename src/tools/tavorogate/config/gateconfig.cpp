#include "gateconfig.h"

#include "configtext.h"

#include <tavoroctl/arguments/host.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/nearest.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonValue>
#include <QSysInfo>

#include <algorithm>
#include <iterator>

namespace Tavoro::Gate {

namespace {

/// Applies a value. Returns what the value must be if it is not valid.
using Setter = QString (*)(GateConfig &config, const QJsonValue &value);

struct KeyRow {
    const char *key;
    Setter set;
};

QString setText(QString &text, const QJsonValue &value)
{
    text = value.toString();
    return text.isEmpty() ? QStringLiteral("a text that is not empty") : QString();
}

QString setNumber(int &number, const QJsonValue &value, int minimum, int maximum)
{
    number = value.toInt(minimum - 1);
    return number < minimum || number > maximum
        ? QStringLiteral("a whole number from %1 to %2").arg(minimum).arg(maximum)
        : QString();
}

QString setFlag(bool &flag, const QJsonValue &value)
{
    flag = value.toBool();
    return value.isBool() ? QString() : QStringLiteral("true or false");
}

/// A name that is one level of a topic.
QString setName(GateConfig &config, const QJsonValue &value)
{
    config.name = value.toString();
    const bool isLevel = !config.name.isEmpty() && !config.name.contains(QLatin1Char('/'))
        && !config.name.contains(QLatin1Char('+')) && !config.name.contains(QLatin1Char('#'));
    return isLevel ? QString()
                   : QStringLiteral("a text without the characters / + #, and not empty");
}

QString setPort(GateConfig &config, const QJsonValue &value)
{
    int port = 0;
    QString fault = setNumber(port, value, 1, 65535);
    config.broker.port = static_cast<quint16>(port);
    return fault;
}

/// Opens the file that the value names.
QString openFile(QFile &file, const QJsonValue &value)
{
    file.setFileName(value.toString());
    if (!value.isString())
        return QStringLiteral("the name of a file");
    if (QFileInfo(file).isDir())
        return QStringLiteral("a file, but %1 is a directory").arg(file.fileName());
    return file.open(QIODevice::ReadOnly)
        ? QString()
        : QStringLiteral("a file that can be read: %1").arg(file.errorString());
}

QString setPasswordFile(GateConfig &config, const QJsonValue &value)
{
    QFile file;
    QString fault = openFile(file, value);
    if (fault.isEmpty())
        config.broker.password = file.readAll().trimmed();
    return fault;
}

QString setReadable(QString &name, const QJsonValue &value)
{
    QFile file;
    name = value.toString();
    return openFile(file, value);
}

QString setDevices(GateConfig &config, const QJsonValue &value)
{
    QString expected = QStringLiteral("a list of addresses, each \"HOST\" or \"HOST:PORT\"");
    if (!value.isArray())
        return expected;
    const QJsonArray addresses = value.toArray();
    int number = 0;
    for (const QJsonValue address : addresses) {
        const auto host = Ctl::parseHost(address.toString());
        ++number;
        if (!host)
            return QStringLiteral("%1, but entry %2 is %3")
                .arg(expected)
                .arg(number)
                .arg(Operations::jsonText(address));
        config.devices.append({host->name, host->port});
    }
    return {};
}

// clang-format off
constexpr KeyRow keyRows[] = {
    {"name",                   setName},
    {"broker.host",            [](GateConfig &config, const QJsonValue &value) { return setText(config.broker.host, value); }},
    {"broker.port",            setPort},
    {"broker.user",            [](GateConfig &config, const QJsonValue &value) { return setText(config.broker.user, value); }},
    {"broker.passwordFile",    setPasswordFile},
    {"broker.keepAlive",       [](GateConfig &config, const QJsonValue &value) { return setNumber(config.broker.keepAliveSeconds, value, 5, 65535); }},
    {"broker.tls.authorities", [](GateConfig &config, const QJsonValue &value) { return setReadable(config.broker.tls.authorities, value); }},
    {"broker.tls.certificate", [](GateConfig &config, const QJsonValue &value) { return setReadable(config.broker.tls.certificate, value); }},
    {"broker.tls.key",         [](GateConfig &config, const QJsonValue &value) { return setReadable(config.broker.tls.key, value); }},
    {"devices",                setDevices},
    {"discovery",              [](GateConfig &config, const QJsonValue &value) { return setFlag(config.usesDiscovery, value); }},
    {"controlIdleSeconds",     [](GateConfig &config, const QJsonValue &value) { return setNumber(config.controlIdleSeconds, value, 1, 3600); }},
    {"leaseSeconds",           [](GateConfig &config, const QJsonValue &value) { return setNumber(config.leaseSeconds, value, 0, 3600); }},
    {"calls.requireUser",      [](GateConfig &config, const QJsonValue &value) { return setFlag(config.calls.requiresUser, value); }},
    {"metricsFile",            [](GateConfig &config, const QJsonValue &value) { return setText(config.metricsFile, value); }},
};
// clang-format on

/// The keys of objects that have keys of their own.
const QStringList groups{QStringLiteral("broker"), QStringLiteral("broker.tls"),
                         QStringLiteral("calls")};

QStringList knownKeys()
{
    QStringList keys = groups;
    for (const KeyRow &row : keyRows)
        keys += QLatin1String(row.key);
    return keys;
}

QString setValue(GateConfig &config, const ConfigText::Value &value)
{
    if (groups.contains(value.key))
        return QStringLiteral("\"%1\" must be an object, but it is %2")
            .arg(value.key, Operations::jsonText(value.value));
    const auto *const row =
        std::find_if(std::begin(keyRows), std::end(keyRows),
                     [&](const KeyRow &each) { return value.key == QLatin1String(each.key); });
    if (row == std::end(keyRows))
        return QStringLiteral("unknown key \"%1\"%2")
            .arg(value.key, Operations::suggestion(value.key, knownKeys()));
    const QString expected = row->set(config, value.value);
    return expected.isEmpty() ? QString()
                              : QStringLiteral("\"%1\" must be %2").arg(value.key, expected);
}

/// What is wrong with values that are valid one by one.
QString contradiction(const GateConfig &config)
{
    if (config.devices.isEmpty() && !config.usesDiscovery)
        return QStringLiteral("there is nothing to do: set \"devices\" or \"discovery\"");
    if (config.broker.tls.certificate.isEmpty() != config.broker.tls.key.isEmpty())
        return QStringLiteral("set \"broker.tls.certificate\" and \"broker.tls.key\" together");
    return {};
}

} // namespace

std::optional<GateConfig> readConfig(const QString &fileName, QString &error)
{
    GateConfig config;
    config.name = QSysInfo::machineHostName();
    ConfigText text;
    if (!text.read(fileName, error))
        return {};
    const auto values = text.values(groups);
    for (const ConfigText::Value &value : values) {
        const QString fault = setValue(config, value);
        if (!fault.isEmpty()) {
            error = text.place(value.key) + fault;
            return {};
        }
    }
    const QString fault = contradiction(config);
    if (!fault.isEmpty()) {
        error = fileName + QStringLiteral(": ") + fault;
        return {};
    }
    config.broker.clientId = QStringLiteral("tavorogate-") + config.name;
    return config;
}

} // namespace Tavoro::Gate
