#pragma once

#include <support/tavorosession/sessionbench.h>

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

/// A simulated device, a session, and what the parts of the panel are made with.
class PanelBench : public SessionBench {
public:
    using LayerId = Tavoro::Panel::Selection::LayerId;

    /// As fastOptions(), but with the usual time for a request: no request ends early because the
    /// machine stands still.
    static Options patientOptions()
    {
        Options options = fastOptions();
        options.channel.maxRequestTime = Options().channel.maxRequestTime;
        return options;
    }

    explicit PanelBench(const Options &options = patientOptions(),
                        const Tavoro::Sim::SimOptions &device = smallDevice())
        : SessionBench(options, device),
          selection(*session),
          changes(messages),
          actions(selection, changes)
    { }
    ~PanelBench() { selection.setDevice(nullptr); }

    /// Opens the device, waits until it is ready, and selects it.
    bool openSelected()
    {
        if (!openReady())
            return false;
        selection.setDevice(wall);
        return true;
    }
    std::shared_ptr<Tavoro::BizModel::Device> model() const { return wall->device(); }

    /// The identity of a layer of an ordinary screen; number 0 is its background.
    static LayerId layerId(quint8 number = 1,
                           Tavoro::Panel::Scene scene = Tavoro::Panel::Scene::Preview,
                           quint8 screen = 1)
    {
        LayerId layer;
        layer.screenId = screen;
        layer.screenType = 1;
        layer.layerId = number;
        layer.layerType = number == 0 ? 2 : 1;
        layer.sceneType = static_cast<int>(scene);
        return layer;
    }
    /// Whether there is a message of this severity that contains this text.
    bool hasMessage(Tavoro::Panel::Severity severity, const char *part = "") const
    {
        for (int row = 0; row < messages.rowCount(); ++row) {
            const auto &message = messages.message(row);
            if (message.severity == severity && message.text.contains(QLatin1String(part)))
                return true;
        }
        return false;
    }

    Tavoro::Panel::Selection selection;
    Tavoro::Panel::Messages messages;
    Tavoro::Panel::Changes changes;
    Tavoro::Panel::Actions actions;
};
