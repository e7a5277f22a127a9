#pragma once

#include <QProcess>

#include <string>

namespace Latency {

/// Answers frames on bare blocking sockets until the client disconnects: each \a requestSize bytes
/// by \a answerSize bytes. Prints its port first. Returns the exit status of the process.
int serveBare(int requestSize, int answerSize);

/// The client's end of a bare blocking connection to a process that runs serveBare(). Frames of the
/// same sizes as those of an exchange travel over it, without any library code.
class BarePeer {
public:
    /// \a arguments make this program run serveBare().
    BarePeer(const QStringList &arguments, int requestSize, int answerSize);
    ~BarePeer();
    BarePeer(const BarePeer &) = delete;
    BarePeer &operator=(const BarePeer &) = delete;

    /// Sends one frame and waits for its answer.
    void exchange();

private:
    QProcess m_process;
    int m_socket = -1;
    std::string m_request;
    std::string m_answer;
};

} // namespace Latency
