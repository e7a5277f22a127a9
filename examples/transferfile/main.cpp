// Sends a file to a device, where it becomes the logo 1, with its progress on the standard error.
// Cancels the transfer if it takes longer than SECONDS: transferfile HOST PORT FILE SECONDS

#include <tavorobizmodel/enums.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTextStream>
#include <QTimer>

using namespace Tavoro;

namespace {

void finish(const QString &text, int exitCode)
{
    QTextStream(stdout) << text << '\n';
    QCoreApplication::exit(exitCode);
}

void send(DeviceSession *device, const QString &path, double seconds)
{
    ProtoModel::File::s_FileInfo file;
    file.fileType = BizModel::Enum::File::Logo;
    file.fileId = 1;
    file.general.name = QFileInfo(path).fileName().toStdString();

    const PendingTransfer transfer = device->files().sendFrom(file, path);
    transfer.onProgress(device, [](const TransferProgress &now) {
        QTextStream(stderr) << int(100 * now.share()) << " %\n";
    });
    transfer.then(device, [](const Outcome &outcome) { finish(outcome.text(), outcome ? 0 : 1); });
    QTimer::singleShot(int(1000 * seconds), device, [transfer] { transfer.cancel(); });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); // no line per request
    const QStringList words = application.arguments();

    Session session;
    DeviceSession *const device = session.open(words.value(1), words.value(2).toUShort());
    QObject::connect(device, &DeviceSession::stateChanged, device, [device, words] {
        if (device->isReady())
            send(device, words.value(3), words.value(4).toDouble());
    });
    QObject::connect(device, &DeviceSession::stateDetailsChanged, device,
                     [device] { finish(device->stateText(), 1); });
    return application.exec();
}
