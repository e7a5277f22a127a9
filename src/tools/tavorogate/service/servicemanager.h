#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

namespace Tavoro::Gate {

/// Reports to systemd that the program is ready, that it still runs, and what it does. Without
/// systemd nothing happens.
class ServiceManager : public QObject {
    Q_OBJECT

public:
    ServiceManager();

    /// The program has started. From now on, the event loop resets systemd's watchdog.
    void reportReady();
    /// The program ends.
    void reportStopping();
    /// The words that "systemctl status" shows.
    void reportStatus(const QString &status);

private:
    QTimer m_watchdog;
    QString m_status;
};

} // namespace Tavoro::Gate
