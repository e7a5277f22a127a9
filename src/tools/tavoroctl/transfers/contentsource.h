#pragma once

#include <QFile>
#include <QString>

#include <memory>
#include <string>

namespace Tavoro::Ctl {

/// The content of a file that is to be sent, with what has to be announced of it.
class ContentSource {
public:
    /// \a path is "-" for standard input.
    explicit ContentSource(const QString &path) : m_path(path) { }

    /// For messages.
    QString name() const;
    /// The name of the file on the device unless another one is given: the last part of the path,
    /// and "stdin" for standard input.
    QString fileName() const;

    /// Opens the content and measures it. What cannot be read twice, such as a pipe, is read to its
    /// end into a temporary file first.
    bool open(QString &error);

    /// In bytes.
    qint32 length() const { return m_length; }
    /// CRC-32 of the content.
    quint32 checksum() const { return m_checksum; }

    /// The next bytes, at most \a most.
    std::string read(qint64 most) { return m_content->read(most).toStdString(); }

private:
    bool isStandardInput() const { return m_path == QLatin1String("-"); }
    /// Reads \a from to its end. Writes what it reads into \a copy unless that is null.
    bool measure(QFile &from, QFile *copy, QString &error);
    QString fault(const QFile &file) const;

    const QString m_path;
    std::unique_ptr<QFile> m_content;
    qint32 m_length = 0;
    quint32 m_checksum = 0;
};

} // namespace Tavoro::Ctl
