#pragma once

#include "sessionbench.h"

#include <QTemporaryDir>

#include <memory>
#include <string>

inline constexpr quint32 packetSize = 4000;
inline constexpr int packets = 25;

/// A content of several packets; \a seed makes contents differ.
inline std::string content(char seed = 'a')
{
    std::string bytes(std::size_t(packetSize) * (packets - 1) + 10, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251 + std::size_t(seed));
    return bytes;
}

inline Tavoro::ProtoModel::File::s_FileInfo fileInfo(qint32 id = 7)
{
    Tavoro::ProtoModel::File::s_FileInfo file;
    file.fileType = 2;
    file.fileId = id;
    file.general.name = "picture";
    return file;
}

/// Base class of tests that send files to a simulated device and fetch them.
class TransferCalls {
protected:
    void openDevice()
    {
        Tavoro::Sim::SimOptions device = SessionBench::smallDevice();
        device.packetSize = packetSize;
        m_bench = std::make_unique<SessionBench>(SessionBench::fastOptions(), device);
        QVERIFY(m_bench->openReady());
    }
    Tavoro::DeviceSession &wall() { return *m_bench->wall; }
    Tavoro::DeviceFiles files() { return wall().files(); }
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    std::string onDevice(qint32 id = 7)
    {
        const auto answer = resultOf(files().fetch({id, 2}));
        return answer ? answer.record() : answer.text().toStdString();
    }

    std::unique_ptr<SessionBench> m_bench;
    QTemporaryDir m_folder;
};
