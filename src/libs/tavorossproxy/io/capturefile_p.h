#pragma once

#include <tavorowire/captureencoder.h>

#include <QElapsedTimer>
#include <QFile>

#include <memory>
#include <mutex>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

/// The file of a capture. Any thread.
class CaptureFile {
public:
    explicit CaptureFile(const QString &path);

    /// Creates the file and writes its heading. Returns false, with a sentence in \a error, on
    /// failure.
    bool open(QString &error);
    void close();
    /// Returns a number for a further channel, from 1.
    int addChannel();
    /// Appends an event. If it cannot be written, logs that and ends the capture.
    void write(int channel, Wire::CaptureEvent event, std::string_view bytes = {});

    /// Returns the running capture, or null.
    static std::shared_ptr<CaptureFile> running();

private:
    std::mutex m_mutex; // guards what follows
    QFile m_file;
    const std::unique_ptr<Wire::CaptureEncoder> m_encoder;
    QElapsedTimer m_clock;
    int m_channels = 0;
};

} // namespace Tavoro::SSProxy::Internal
