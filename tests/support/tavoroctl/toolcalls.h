#pragma once

#include "toolbench.h"

/// A base of tests that run the tool on the device of their bench.
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
