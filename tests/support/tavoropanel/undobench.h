#pragma once

#include <support/tavorooperations/devicesnapshot.h>
#include <support/tavoropanel/panelbench.h>

#include <tavorobizmodel/layer.h>
#include <tavorocontrol/layer.h>
#include <tavorooperations/jsontext.h>

#include <QTest>

/// Changes of a simulated device that are undone and redone.
class UndoBench : public PanelBench {
public:
    using PanelBench::PanelBench;

    int modelOpacity() const { return model()->findLayer(layerId()).lock()->detail().opacity; }
    /// Writes an opacity and waits until the device has it.
    bool setOpacity(int percent)
    {
        return bool(resultOf(
            changes.call(*wall, &Tavoro::Control::Layer::writeOpacity, {{layerId(), percent}})));
    }
    /// Carries out a write that is not a change, and waits until the model has it.
    void prepare(const Tavoro::Panel::Write &write)
    {
        const Tavoro::Outcome outcome = resultOf(
            wall->callByName(write.operation, {Tavoro::Operations::jsonText(write.argument)}));
        if (!outcome || !resultOf(wall->modelUpdate()))
            qFatal("%s", qUtf8Printable(outcome.text()));
    }
    /// Undoes or redoes, and waits until that has ended.
    bool wait()
    {
        return QTest::qWaitFor([this] { return !changes.isMoving(); }, 60000);
    }
    bool undo()
    {
        changes.undo();
        return wait();
    }
    bool redo()
    {
        changes.redo();
        return wait();
    }
    DeviceSnapshot snapshot()
    {
        DeviceSnapshot read;
        QString error;
        if (!read.read(model(), error))
            qFatal("%s", qUtf8Printable(error));
        return read;
    }
};
