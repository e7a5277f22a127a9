#include "gateprocess.h"

#include "mosquittobroker.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <csignal>

namespace {

constexpr int patience = 60000; ///< Milliseconds.

} // namespace

GateProcess::GateProcess(const MosquittoBroker &broker, quint16 devicePort, const QString &name,
                         int leaseSeconds)
    : m_name(name)
{
    const QJsonObject config{
        {QStringLiteral("name"), name},
        {QStringLiteral("broker"),
         QJsonObject{{QStringLiteral("host"), QStringLiteral("127.0.0.1")},
                     {QStringLiteral("port"), broker.port()}}},
        {QStringLiteral("devices"), QJsonArray{QStringLiteral("127.0.0.1:%1").arg(devicePort)}},
        {QStringLiteral("leaseSeconds"), leaseSeconds}};
    const QString fileName = name + QStringLiteral(".json");
    broker.writeFile(fileName, QJsonDocument(config).toJson());
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral(TAVOROGATE),
                    {QStringLiteral("--config"), broker.folder() + QLatin1Char('/') + fileName});
    if (!m_process.waitForStarted())
        qFatal("%s", qUtf8Printable(m_process.errorString()));
}

GateProcess::~GateProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

void GateProcess::signal(int number) const
{
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

bool GateProcess::waitForEnd()
{
    return m_process.waitForFinished(patience);
}

bool GateProcess::waitForLog(const QByteArray &text, int count)
{
    return QTest::qWaitFor([&] { return this->count(text) >= count; }, patience);
}
