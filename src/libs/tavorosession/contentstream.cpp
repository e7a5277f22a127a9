#include "contentstream_p.h"
#include "texts_p.h"

#include <QFileDevice>

#include <cstddef>
#include <utility>

namespace Tavoro::SessionInternal {

namespace {

// clang-format off
constexpr char cannotRead[]  = QT_TRANSLATE_NOOP("Tavoro::DeviceFiles", "the content could not be read (%1)");
constexpr char cannotWrite[] = QT_TRANSLATE_NOOP("Tavoro::DeviceFiles", "the content could not be written (%1)");
constexpr char noLength[]    = QT_TRANSLATE_NOOP("Tavoro::DeviceFiles", "the length of the content is not known");
// clang-format on

QString fault(const char *text, const QIODevice &device)
{
    return FilesTexts::tr(text).arg(device.errorString());
}

class MemorySource : public ContentSource {
public:
    explicit MemorySource(std::string content) : m_content(std::move(content)) { }
    bool open(QString &) override { return true; }
    qint64 size() const override { return static_cast<qint64>(m_content.size()); }
    bool read(std::string &piece, qint64 size, QString &) override
    {
        piece.assign(m_content, m_position, static_cast<std::size_t>(size));
        m_position += piece.size();
        return true;
    }

private:
    const std::string m_content;
    std::size_t m_position = 0;
};

class DeviceSource : public ContentSource {
public:
    explicit DeviceSource(std::shared_ptr<QIODevice> device) : m_device(std::move(device)) { }

    bool open(QString &error) override
    {
        if (!m_device->isOpen() && !m_device->open(QIODevice::ReadOnly)) {
            error = fault(cannotRead, *m_device);
            return false;
        }
        if (m_device->isSequential()) {
            error = FilesTexts::tr(noLength);
            return false;
        }
        m_size = m_device->size() - m_device->pos();
        return true;
    }
    qint64 size() const override { return m_size; }
    bool read(std::string &piece, qint64 size, QString &error) override
    {
        piece.resize(static_cast<std::size_t>(size));
        if (m_device->read(piece.data(), size) == size)
            return true;
        error = fault(cannotRead, *m_device);
        return false;
    }

private:
    const std::shared_ptr<QIODevice> m_device;
    qint64 m_size = 0;
};

class MemoryTarget : public ContentTarget {
public:
    explicit MemoryTarget(std::string &content) : m_content(content) { }
    bool open(QString &) override { return true; }
    bool write(const std::string &piece, QString &) override
    {
        m_content += piece;
        return true;
    }
    bool commit(QString &) override { return true; }

private:
    std::string &m_content;
};

bool writeTo(QIODevice &device, const std::string &piece, QString &error)
{
    const auto size = static_cast<qint64>(piece.size());
    if (device.write(piece.data(), size) == size)
        return true;
    error = fault(cannotWrite, device);
    return false;
}

class DeviceTarget : public ContentTarget {
public:
    explicit DeviceTarget(std::shared_ptr<QIODevice> device) : m_device(std::move(device)) { }

    bool open(QString &error) override
    {
        if (m_device->isOpen() || m_device->open(QIODevice::WriteOnly))
            return true;
        error = fault(cannotWrite, *m_device);
        return false;
    }
    bool write(const std::string &piece, QString &error) override
    {
        return writeTo(*m_device, piece, error);
    }
    bool commit(QString &error) override
    {
        auto *const file = qobject_cast<QFileDevice *>(m_device.get());
        if (!file || file->flush())
            return true;
        error = fault(cannotWrite, *m_device);
        return false;
    }

private:
    const std::shared_ptr<QIODevice> m_device;
};

class SaveTarget : public ContentTarget {
public:
    explicit SaveTarget(const QString &path) : m_path(path) { }

    bool open(QString &error) override
    {
        m_file = std::make_unique<QSaveFile>(m_path);
        return m_file->open(QIODevice::WriteOnly) || fail(error);
    }
    bool write(const std::string &piece, QString &error) override
    {
        return writeTo(*m_file, piece, error);
    }
    bool commit(QString &error) override { return m_file->commit() || fail(error); }

private:
    bool fail(QString &error) const
    {
        error = fault(cannotWrite, *m_file);
        return false;
    }

    const QString m_path;
    std::unique_ptr<QSaveFile> m_file;
};

} // namespace

std::unique_ptr<ContentSource> sourceOf(std::string content)
{
    return std::make_unique<MemorySource>(std::move(content));
}

std::unique_ptr<ContentSource> sourceOf(std::shared_ptr<QIODevice> device)
{
    return std::make_unique<DeviceSource>(std::move(device));
}

std::unique_ptr<ContentSource> sourceAt(const QString &path)
{
    return sourceOf(std::make_shared<QFile>(path));
}

std::unique_ptr<ContentTarget> targetOf(std::string &content)
{
    return std::make_unique<MemoryTarget>(content);
}

std::unique_ptr<ContentTarget> targetOf(std::shared_ptr<QIODevice> device)
{
    return std::make_unique<DeviceTarget>(std::move(device));
}

std::unique_ptr<ContentTarget> targetAt(const QString &path)
{
    return std::make_unique<SaveTarget>(path);
}

} // namespace Tavoro::SessionInternal
