// A stream over a real socket. Everything runs on one thread, so the test decides when the stream
// sees what happened on the network.

#include <tavorossproxy/io/tcpstream_p.h>

#include <support/common/messagecatcher.h>
#include <support/common/patience.h>

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <memory>

using namespace Tavoro::SSProxy::Internal;

namespace {

/// The events of a stream.
struct ReceivedEvents final : ByteStream::Events {
    void streamOpened(const std::string &) override { ++opened; }
    void streamReceived(std::string_view bytes) override { received += bytes; }
    void streamBatchEnded() override { }
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
    void endOfTheConnectionIsReportedOnce();
    void lossFoundWhileSendingIsReportedOnce();
    void lossIsNotReportedFromWithinWrite();
    void writesToALostConnectionLogNothing();
    void closedStreamEmitsNoEvents();
    void destroyedStreamEmitsNoEvents();

private:
    /// Ends the connection at the other end, and writes until the stream's socket has noticed. No
    /// events are processed meanwhile.
    void sendIntoALostConnection();

    std::unique_ptr<QTcpServer> m_server;
    std::unique_ptr<QTcpSocket> m_peer;
    ReceivedEvents m_events;
    std::unique_ptr<TcpStream> m_stream;
};

void tst_TcpStream::init()
{
    m_events = {};
    m_server = std::make_unique<QTcpServer>();
    QVERIFY(m_server->listen(QHostAddress::LocalHost));
    m_stream = std::make_unique<TcpStream>(QStringLiteral("127.0.0.1"), m_server->serverPort());
    m_stream->open(m_events);
    QTRY_VERIFY(m_server->hasPendingConnections());
    m_peer.reset(m_server->nextPendingConnection());
    m_peer->setParent(nullptr);
    QTRY_COMPARE(m_events.opened, 1);
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
    QTRY_COMPARE(m_events.received, std::string("and back"));
}

void tst_TcpStream::endOfTheConnectionIsReportedOnce()
{
    m_peer->abort();
    QTRY_COMPARE(m_events.closed, 1);
    QCoreApplication::processEvents();
    QCOMPARE(m_events.closed, 1);
}

void tst_TcpStream::lossFoundWhileSendingIsReportedOnce()
{
    sendIntoALostConnection();
    QTRY_COMPARE(m_events.closed, 1);
    QVERIFY(!m_events.why.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(m_events.closed, 1);

    m_stream->open(m_events);
    QTRY_COMPARE(m_events.opened, 2);
}

void tst_TcpStream::lossIsNotReportedFromWithinWrite()
{
    sendIntoALostConnection();
    QCOMPARE(m_events.closed, 0);
}

void tst_TcpStream::writesToALostConnectionLogNothing()
{
    const MessageCatcher catcher;
    sendIntoALostConnection();
    QTRY_COMPARE(m_events.closed, 1);
    sendIntoALostConnection(); // the stream has no socket any more
    QVERIFY2(catcher.messages().isEmpty(), qPrintable(catcher.messages().value(0).text));
}

void tst_TcpStream::closedStreamEmitsNoEvents()
{
    sendIntoALostConnection();
    m_stream->close();
    QCoreApplication::processEvents();
    QCOMPARE(m_events.closed, 0);
}

/// AddressSanitizer reports a delayed call that would still use the stream.
void tst_TcpStream::destroyedStreamEmitsNoEvents()
{
    sendIntoALostConnection();
    m_stream.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_events.closed, 0);
}

QTEST_GUILESS_MAIN(tst_TcpStream)
#include "tst_tcpstream.moc"
