#include "slowfile.h"

#include <tavorocontrol/savefile.h>

#include <QDeadlineTimer>
#include <QFile>

#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int piecesOfABatch = 200;
constexpr int bytesOfAPiece = 100 * 1024; // more than a pipe holds
constexpr int bytesOfASip = 512; // small, so that the writer advances slowly
constexpr int patience = 60000; // in ms; then the test fails
/// With this pause the batch takes 40 s: a thread that is late stops the writer in time all the
/// same.
constexpr std::chrono::milliseconds pauseAfterASip(1);

int openPipe(const QByteArray &path)
{
    mkfifo(path.constData(), S_IRUSR | S_IWUSR);
    return open(path.constData(),
                O_RDONLY | O_NONBLOCK | O_CLOEXEC); // the writer may open it later
}

std::string piece(int index)
{
    return std::string(bytesOfAPiece, static_cast<char>('a' + index % 26));
}

/// False if neither bytes nor the end arrived.
bool waitForBytes(int descriptor)
{
    pollfd state{descriptor, POLLIN, 0};
    return poll(&state, 1, patience) > 0;
}

} // namespace

SlowFile::SlowFile(const QString &path)
    : m_path(QFile::encodeName(path)), m_readEnd(openPipe(m_path))
{ }

SlowFile::~SlowFile()
{
    if (m_thread.joinable())
        m_thread.join();
    close(m_readEnd);
}

bool SlowFile::fill(Tavoro::Control::SaveFile &file)
{
    for (int i = 0; i < piecesOfABatch; ++i)
        file.append(piece(i));
    QString error;
    if (!file.startWrite(QFile::decodeName(m_path), error))
        return false;
    return waitForBytes(m_readEnd);
}

void SlowFile::drainFromNowOn()
{
    m_thread = std::thread([this] { drain(Pace::Slow); });
}

void SlowFile::drainOnce(std::function<bool()> condition, Pace pace)
{
    m_thread = std::thread([this, pace, condition = std::move(condition)] {
        const QDeadlineTimer end(patience);
        while (!condition() && !end.hasExpired())
            std::this_thread::yield();
        drain(pace);
    });
}

void SlowFile::drain(Pace pace)
{
    char sip[bytesOfASip];
    while (waitForBytes(m_readEnd)) {
        const auto got = read(m_readEnd, sip, sizeof sip);
        m_isClosed = got <= 0;
        if (m_isClosed)
            return;
        m_drained.append(sip, static_cast<int>(got));
        if (pace == Pace::Slow)
            std::this_thread::sleep_for(pauseAfterASip);
    }
}

QByteArray SlowFile::drained()
{
    m_thread.join();
    return m_drained;
}

QByteArray SlowFile::batch()
{
    static const QByteArray whole = [] {
        QByteArray all;
        for (int i = 0; i < piecesOfABatch; ++i)
            all += QByteArray::fromStdString(piece(i));
        return all;
    }();
    return whole;
}

int SlowFile::pieceSize()
{
    return bytesOfAPiece;
}
