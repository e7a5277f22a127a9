#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

namespace Tavoro::Gate {

/// Writes the counters to a file every ten seconds, for the textfile collector of a node exporter.
/// The file is replaced as a whole.
class MetricsFile : public QObject {
    Q_OBJECT

public:
    /// \a text makes the content. Writes nothing if \a fileName is empty.
    MetricsFile(QString fileName, std::function<QByteArray()> text);

    /// Writes the file now. A failure is logged once.
    void write();

private:
    const QString m_fileName;
    const std::function<QByteArray()> m_text;
    QTimer m_timer;
    bool m_hasFailed = false;
};

} // namespace Tavoro::Gate
