#include <tavorossproxy/wirecapture.h>

#include "logging_p.h"
#include <tavorossproxy/io/capturefile_p.h>

#include <mutex>
#include <utility>

namespace Tavoro::SSProxy {

namespace {

struct RunningCapture {
    std::mutex mutex;
    std::shared_ptr<Internal::CaptureFile> file; // guarded by mutex
};

/// Never destroyed: channels may be opened until the process ends.
RunningCapture &running()
{
    static auto *const running = new RunningCapture;
    return *running;
}

void run(std::shared_ptr<Internal::CaptureFile> file)
{
    {
        const std::lock_guard<std::mutex> lock(running().mutex);
        running().file.swap(file);
    }
    if (file)
        file->close();
}

bool isRunning()
{
    const std::lock_guard<std::mutex> lock(running().mutex);
    return running().file != nullptr;
}

/// A capture that the application started continues.
void startCaptureFromEnvironment()
{
    if (isRunning())
        return;
    const QString path = qEnvironmentVariable("TAVORO_CAPTURE");
    QString error;
    if (!path.isEmpty() && !startWireCapture(path, error))
        qCWarning(Internal::channelLog).noquote() << error;
}

} // namespace

bool startWireCapture(const QString &path, QString &error)
{
    stopWireCapture();
    auto file = std::make_shared<Internal::CaptureFile>(path);
    if (!file->open(error))
        return false;
    run(std::move(file));
    return true;
}

void stopWireCapture()
{
    run(nullptr);
}

std::shared_ptr<Internal::CaptureFile> Internal::CaptureFile::running()
{
    static std::once_flag environmentRead;
    std::call_once(environmentRead, startCaptureFromEnvironment);
    const std::lock_guard<std::mutex> lock(SSProxy::running().mutex);
    return SSProxy::running().file;
}

} // namespace Tavoro::SSProxy
