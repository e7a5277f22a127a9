#include "metricsfile.h"

#include <QLoggingCategory>
#include <QSaveFile>

#include <utility>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(metricsLog, "tavoro.gate.metrics")

bool replaceFile(const QString &fileName, const QByteArray &text, QString &error)
{
    QSaveFile file(fileName);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    error = file.errorString();
    return isWritten;
}

} // namespace

MetricsFile::MetricsFile(QString fileName, std::function<QByteArray()> text)
    : m_fileName(std::move(fileName)), m_text(std::move(text))
{
    connect(&m_timer, &QTimer::timeout, this, &MetricsFile::write);
    if (!m_fileName.isEmpty())
        m_timer.start(10000);
}

void MetricsFile::write()
{
    if (m_fileName.isEmpty())
        return;
    QString error;
    const bool hasFailed = !replaceFile(m_fileName, m_text(), error);
    if (hasFailed && !m_hasFailed)
        qCWarning(metricsLog, "Could not write the counters to %s: %s.", qUtf8Printable(m_fileName),
                  qUtf8Printable(error));
    m_hasFailed = hasFailed;
}

} // namespace Tavoro::Gate
