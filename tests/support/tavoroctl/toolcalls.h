#pragma once

#include "toolbench.h"

/// Base class of tests that run the tool with a simulated device.
class ToolCalls {
protected:
    using Run = ToolRun;

    static Run run(const QByteArrayList &arguments, const QByteArray &input = {})
    {
        return ToolBench::run(arguments, input);
    }
    Run call(const QByteArrayList &words) const { return m_bench->run("call", words); }
    QByteArray host() const { return m_bench->host(); }

    std::unique_ptr<ToolBench> m_bench;
};
