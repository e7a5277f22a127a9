#pragma once

#include <QFile>
#include <QIODevice>
#include <QSaveFile>
#include <QString>

#include <memory>
#include <string>

namespace Tavoro::SessionInternal {

/// Where a transfer to the device gets the content. On the thread of the lane.
class ContentSource {
public:
    virtual ~ContentSource() = default;
    /// False with the reason in \a error if the content cannot be read.
    virtual bool open(QString &error) = 0;
    /// In bytes; after open().
    virtual qint64 size() const = 0;
    /// Reads the next \a size bytes.
    virtual bool read(std::string &piece, qint64 size, QString &error) = 0;
};

/// Where a transfer from the device puts the content. On the thread of the lane.
class ContentTarget {
public:
    virtual ~ContentTarget() = default;
    virtual bool open(QString &error) = 0;
    virtual bool write(const std::string &piece, QString &error) = 0;
    /// The content is complete. Without this call the target stays as it was, if it is a file.
    virtual bool commit(QString &error) = 0;
};

std::unique_ptr<ContentSource> sourceOf(std::string content);
/// The content from the position of \a device to its end. A closed device is opened.
std::unique_ptr<ContentSource> sourceOf(std::shared_ptr<QIODevice> device);
std::unique_ptr<ContentSource> sourceAt(const QString &path);

/// Appends to \a content.
std::unique_ptr<ContentTarget> targetOf(std::string &content);
/// Writes at the position of \a device. A closed device is opened, and emptied.
std::unique_ptr<ContentTarget> targetOf(std::shared_ptr<QIODevice> device);
/// Replaces the file at \a path when the content is complete.
std::unique_ptr<ContentTarget> targetAt(const QString &path);

} // namespace Tavoro::SessionInternal
