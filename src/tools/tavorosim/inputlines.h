#pragma once

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>

#include <functional>

namespace Tavoro::Sim {

/// Serves standard input line by line. Never waits for the rest of a line: all the device stands
/// still meanwhile. The last line needs no end.
class InputLines {
public:
    /// Serves a line; false when there is to be no other one.
    using Serve = std::function<bool(const QString &line)>;

    explicit InputLines(Serve serve);

private:
    void read();
    void serveLines();

    const Serve m_serve;
    QByteArray m_rest; ///< What has come of a line.
    QSocketNotifier m_notifier;
};

} // namespace Tavoro::Sim
