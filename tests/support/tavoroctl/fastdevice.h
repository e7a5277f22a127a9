#pragma once

#include "toolbench.h"

/// Base class of tests that run the tool on a device with two inputs and three outputs, whose clock
/// is fast.
class FastDevice {
protected:
    static constexpr int fast = 5000; ///< Percent.

    /// Starts a device whose clock runs at \a speed percent.
    void useDevice(int speed = fast)
    {
        Tavoro::Sim::SimOptions options;
        options.inputs = 2;
        options.outputs = 3;
        options.clockSpeed = speed;
        m_bench = std::make_unique<ToolBench>(options);
    }
    QByteArray read(const QByteArray &operation, const QByteArrayList &filters = {}) const
    {
        return m_bench->run("call", QByteArrayList{operation} + filters).output;
    }

    const QByteArray name = R"({"general":{"name":"Main hall","status":1}})";
    std::unique_ptr<ToolBench> m_bench;
};
