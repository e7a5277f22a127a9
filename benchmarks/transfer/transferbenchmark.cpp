// How fast a file travels over loopback, beside two bare sockets that move the same bytes in the
// same packets and wait for each answer as well.
//
//   bareRead       a request of a head is answered by a head and a packet, until all is there
//   streamedRead   File::readBinary with a callback that drops the packets
//   wholeRead      File::readBinary into a string
//   bareWrite      a head and a packet are answered by a head
//   import         File::importFileBinary of a string
//
// transferbenchmark [MEBIBYTES [FOLDER]]: the length of the file, 512 unless told; the folder in
// which the simulated device keeps it. Each line of the output is a workload, its rate in MiB per
// second, and the ratio to the bare sockets. The device runs in the same process on its own thread.

#include <tavorobizmodel/device.h>
#include <tavorocontrol/file.h>
#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <future>
#include <string>
#include <thread>

using namespace Tavoro;

namespace {

constexpr int headSize = 36;
constexpr int packetSize = 64 * 1024;
constexpr int patience = 30000; ///< Milliseconds.
constexpr int fileType = 2;
constexpr int fileId = 1;

[[noreturn]] void fail(const QString &why)
{
    std::fprintf(stderr, "transferbenchmark: %s\n", qUtf8Printable(why));
    std::exit(1);
}

/// Takes \a size bytes off the socket as soon as they are there.
void take(QTcpSocket &socket, QByteArray &buffer, int size)
{
    buffer.resize(size);
    for (int done = 0; done < size;) {
        if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(patience))
            fail(socket.errorString());
        done += static_cast<int>(socket.read(buffer.data() + done, size - done));
    }
}

void put(QTcpSocket &socket, const QByteArray &bytes)
{
    socket.write(bytes);
    while (socket.bytesToWrite() > 0)
        socket.waitForBytesWritten(patience);
}

/// Two connected sockets, each on a thread of its own: one asks, the other answers, \a count times.
void exchangeBare(qint64 count, int requestSize, int answerSize)
{
    std::promise<quint16> port;
    std::thread device([&] {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        port.set_value(server.serverPort());
        if (!server.waitForNewConnection(patience))
            fail(server.errorString());
        QTcpSocket *const socket = server.nextPendingConnection();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        const QByteArray answer(answerSize, 'a');
        QByteArray request;
        for (qint64 i = 0; i < count; ++i) {
            take(*socket, request, requestSize);
            put(*socket, answer);
        }
    });
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port.get_future().get());
    if (!socket.waitForConnected(patience))
        fail(socket.errorString());
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const QByteArray request(requestSize, 'r');
    QByteArray answer;
    for (qint64 i = 0; i < count; ++i) {
        put(socket, request);
        take(socket, answer, answerSize);
    }
    device.join();
}

/// A simulated device and the way to its files.
class Bench {
public:
    explicit Bench(const QString &folder) : m_simulator(options(folder))
    {
        QString error;
        if (!m_simulator.start(error))
            fail(error);
        m_channel = SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), m_simulator.port());
        if (!m_channel->waitUntilReady(patience, error))
            fail(error);
        SSProxy::DeviceManager::instance()->addDeviceChannel(m_channel);
        const ProtoModel::DeviceBaseInfo info = m_channel->deviceBaseInfo();
        m_model->updateDeviceBaseInfo(info);
        m_model->setIPAddress(QString::fromStdString(info.ip));
    }
    ~Bench()
    {
        m_channel->stopChannel();
        SSProxy::DeviceManager::instance()->removeDeviceChannel(m_channel);
    }
    Bench(const Bench &) = delete;
    Bench &operator=(const Bench &) = delete;

    std::weak_ptr<BizModel::Device> model() const { return m_model; }

private:
    static Sim::SimOptions options(const QString &folder)
    {
        Sim::SimOptions wanted;
        wanted.packetSize = packetSize;
        wanted.filesFolder = folder;
        return wanted;
    }

    Sim::SimulatedDevice m_simulator;
    std::shared_ptr<SSProxy::NetworkChannel> m_channel;
    std::shared_ptr<BizModel::Device> m_model = std::make_shared<BizModel::Device>(1, nullptr);
};

/// Runs one workload and prints its row. Returns the rate.
double measure(const char *name, qint64 length, double bareRate, const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    const double rate =
        static_cast<double>(length) / (1 << 20) / (static_cast<double>(timer.nsecsElapsed()) / 1e9);
    std::printf("%-13s %8.0f MiB/s %6.2f\n", name, rate, bareRate > 0 ? rate / bareRate : 1.0);
    std::fflush(stdout);
    return rate;
}

void require(bool ok, const QString &error)
{
    if (!ok)
        fail(error);
}

void importFile(Control::File &file, const std::string &content)
{
    ProtoModel::File::s_FileInfo info;
    info.fileType = fileType;
    info.fileId = fileId;
    info.size.length = static_cast<qint32>(content.size());
    QString error;
    require(file.importFile({info}, error), error);
    require(file.importFileBinary({fileId, fileType}, content, error), error);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    const QStringList arguments = QCoreApplication::arguments();
    const int mebibytes = arguments.value(1, QStringLiteral("512")).toInt();
    const QTemporaryDir own;
    if (mebibytes < 1 || mebibytes > 1024)
        fail(QStringLiteral("between 1 and 1024 MiB"));
    const qint64 length = qint64{mebibytes} << 20;
    const qint64 count = length / packetSize;

    Bench bench(arguments.value(2, own.path()));
    Control::File file(bench.model(), nullptr);
    std::string content(static_cast<std::size_t>(length), 'x');
    const double bareWrite = measure("bareWrite", length, 0,
                                     [&] { exchangeBare(count, headSize + packetSize, headSize); });
    measure("import", length, bareWrite, [&] { importFile(file, content); });
    const double bareRead = measure("bareRead", length, 0,
                                    [&] { exchangeBare(count, headSize, headSize + packetSize); });
    measure("streamedRead", length, bareRead, [&] {
        const auto drop = [](bool ok, double, const std::string &, QString &error) {
            require(ok, error);
        };
        require(file.readBinary(fileType, fileId, drop), QStringLiteral("not read"));
    });
    content.clear();
    measure("wholeRead", length, bareRead, [&] {
        QString error;
        require(file.readBinary(fileType, fileId, content, error), error);
    });
    require(static_cast<qint64>(content.size()) == length, QStringLiteral("not the same length"));
    return 0;
}
