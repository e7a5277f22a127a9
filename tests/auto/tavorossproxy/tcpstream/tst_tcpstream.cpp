// A stream over a real socket, on one thread: the test decides when it gets to see what has
// happened on the network.

#include <tavorossproxy/io/tcpstream_p.h>

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <memory>

using namespace Tavoro::SSProxy::Internal;

namespace {

/// Counts what a stream tells.
struct Told final : ByteStream::Events {
    void streamOpened(const std::string &) override { ++opened; }
    void streamReceived(std::string_view bytes) override { received += bytes; }
    void streamDrained() override { }
    void streamClosed(const QString &reason) override
    {
        ++closed;
        why = reason;
    }

    int opened = 0;
    int closed = 0;
    std::string received;
    QString why;
};

} // namespace

class tst_TcpStream : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void bytesTravelBothWays();
    void endOfTheConnectionIsToldOnce();
    void lossThatSendingMeetsFirstIsToldOnce();
    void lossIsNotToldWithinTheCallThatMeetsIt();
    void closedStreamTellsNothing();
    void streamThatIsGoneTellsNothing();

private:
    /// Ends the connection at the other end, and sends until the stream's end has noticed. No event
    /// is handled meanwhile.
    void sendIntoALostConnection();

    std::unique_ptr<QTcpServer> m_server;
    std::unique_ptr<QTcpSocket> m_peer;
    Told m_told;
    std::unique_ptr<TcpStream> m_stream;
};

void tst_TcpStream::init()
{
    m_told = {};
    m_server = std::make_unique<QTcpServer>();
    QVERIFY(m_server->listen(QHostAddress::LocalHost));
    m_stream = std::make_unique<TcpStream>(QStringLiteral("127.0.0.1"), m_server->serverPort());
    m_stream->open(m_told);
    QTRY_VERIFY(m_server->hasPendingConnections());
    m_peer.reset(m_server->nextPendingConnection());
    m_peer->setParent(nullptr);
    QTRY_COMPARE(m_told.opened, 1);
}

void tst_TcpStream::cleanup()
{
    m_stream.reset();
    m_peer.reset();
    m_server.reset();
}

void tst_TcpStream::sendIntoALostConnection()
{
    m_peer->abort();
    for (int i = 0; i < 100; ++i)
        m_stream->write("bytes");
}

void tst_TcpStream::bytesTravelBothWays()
{
    m_stream->write("there");
    QTRY_COMPARE(m_peer->bytesAvailable(), qint64(5));
    m_peer->write("and back");
    QTRY_COMPARE(m_told.received, std::string("and back"));
}

void tst_TcpStream::endOfTheConnectionIsToldOnce()
{
    m_peer->abort();
    QTRY_COMPARE(m_told.closed, 1);
    QCoreApplication::processEvents();
    QCOMPARE(m_told.closed, 1);
}

void tst_TcpStream::lossThatSendingMeetsFirstIsToldOnce()
{
    sendIntoALostConnection();
    QTRY_COMPARE(m_told.closed, 1);
    QVERIFY(!m_told.why.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(m_told.closed, 1);

    m_stream->open(m_told);
    QTRY_COMPARE(m_told.opened, 2);
}

void tst_TcpStream::lossIsNotToldWithinTheCallThatMeetsIt()
{
    sendIntoALostConnection();
    QCOMPARE(m_told.closed, 0);
}

void tst_TcpStream::closedStreamTellsNothing()
{
    sendIntoALostConnection();
    m_stream->close();
    QCoreApplication::processEvents();
    QCOMPARE(m_told.closed, 0);
}

/// AddressSanitizer sees whether anything is left that would still look at the stream.
void tst_TcpStream::streamThatIsGoneTellsNothing()
{
    sendIntoALostConnection();
    m_stream.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_told.closed, 0);
}

QTEST_GUILESS_MAIN(tst_TcpStream)
#include "tst_tcpstream.moc"
