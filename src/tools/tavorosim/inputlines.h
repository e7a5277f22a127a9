#pragma once

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>

#include <functional>

namespace Tavoro::Sim {

/// Serves standard input line by line. Never blocks on a partial line, which would stop the
/// device. The last line needs no line break.
class InputLines {
public:
    /// Serves a line; false if it is the last one.
    using Serve = std::function<bool(const QString &line)>;

    explicit InputLines(Serve serve);

private:
    void read();
    void serveLines();

    const Serve m_serve;
    QByteArray m_rest; ///< The partial line.
    QSocketNotifier m_notifier;
};

} // namespace Tavoro::Sim
