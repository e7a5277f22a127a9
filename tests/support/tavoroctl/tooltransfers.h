#pragma once

#include "toolbench.h"

#include <QTest>

/// The content of a file with \a length bytes.
inline QByteArray bytes(int length)
{
    QByteArray content(length, '\0');
    for (int i = 0; i < length; ++i)
        content[i] = static_cast<char>(i * 7 + i / 251);
    return content;
}

/// Base class of tests that transfer files between the tool and a simulated device.
class ToolTransfers {
protected:
    /// Sets up a device whose file "image" (type 0, ID 1) takes seconds to fetch.
    void useSlowDevice()
    {
        Tavoro::Sim::SimOptions options;
        options.packetSize = 1024;
        options.latencyMilliseconds = 20;
        m_bench = std::make_unique<ToolBench>(options);
        const QByteArray image = R"([{"fileId":1,"fileType":0,"general":{"name":"image"},)"
                                 R"("source":{"id":65792,"type":1,"zoomRatio":4}}])";
        QCOMPARE(m_bench->run("call", {"File.writeCreateImageFile", image}).exitCode, 0);
    }

    std::unique_ptr<ToolBench> m_bench;
};
