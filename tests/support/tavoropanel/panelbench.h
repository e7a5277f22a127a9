#pragma once

#include <support/tavorosession/sessionbench.h>

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

/// A simulated device, a session, and what the parts of the panel are made with.
class PanelBench : public SessionBench {
public:
    explicit PanelBench(const Options &options = fastOptions(),
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

    Tavoro::Panel::Selection selection;
    Tavoro::Panel::Messages messages;
    Tavoro::Panel::Changes changes;
    Tavoro::Panel::Actions actions;
};
