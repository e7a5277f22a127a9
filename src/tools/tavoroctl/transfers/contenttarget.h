#pragma once

#include <QFileDevice>
#include <QString>

#include <memory>
#include <string>

namespace Tavoro::Ctl {

/// Receives the content of a fetched file.
///
/// A regular file appears under its name when it is complete: commit() replaces the one that was
/// there, and without it nothing changes. A device, a FIFO or the standard output receives the
/// content as it arrives.
class ContentTarget {
public:
    /// \a path is "-" for standard output.
    explicit ContentTarget(const QString &path);

    /// For messages and the progress bar.
    QString name() const;
    bool isStandardOutput() const { return m_path == QLatin1String("-"); }

    /// Opens the target. For a FIFO blocks until it has a reader.
    bool open(QString &error);
    /// Writes all of \a bytes. Blocks while a FIFO is full.
    bool write(const std::string &bytes, QString &error);
    bool commit(QString &error);
    /// Whether a write has failed.
    bool hasFailed() const { return m_device->error() != QFileDevice::NoError; }

private:
    bool openDevice();
    QString fault() const;

    const QString m_path;
    std::unique_ptr<QFileDevice> m_device;
};

} // namespace Tavoro::Ctl
