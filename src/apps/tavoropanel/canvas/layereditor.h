#pragma once

#include "shownvalue.h"
#include "stacking.h"

#include <tavorocontrol/proto/layer.h>
#include <tavorosession/outcome.h>

#include <QObject>
#include <QRect>

namespace Tavoro::Panel {

class Changes;
class LayerItem;
class Messages;
class ScreenItem;
class Selection;

/// Sends what the operator changes on layers to the selected device. Nothing here blocks: an item
/// shows the new value at once, and what the device holds when the outcome is known.
class LayerEditor : public QObject {
    Q_OBJECT

public:
    LayerEditor(Selection &selection, Messages &messages, Changes &changes, QObject *parent);

    /// True if the device accepts changes of this layer now. Otherwise reports the reason in the
    /// messages.
    bool canEdit(const LayerItem &layer);

    /// Moves or resizes a layer. While it is dragged, at most one value is under way, and the last
    /// one always arrives.
    void setWindow(LayerItem &layer, const QRect &window);
    /// Ends a series of setWindow(), which is one step of undo.
    void finishWindow(const LayerItem &layer);

    /// Sets the opacity in percent, limited to 0 to 100.
    void setOpacity(LayerItem &layer, int percent);
    /// Ends a series of setOpacity().
    void finishOpacity(const LayerItem &layer);

    /// Shows another source on a layer; its crops stay.
    void setSource(const LayerItem &layer, const ProtoModel::Layer::s_SourceGeneral &source);
    /// Moves a layer among those of its scene that are not backgrounds.
    void restack(const ScreenItem &screen, const LayerItem &layer, StackingMove move);

Q_SIGNALS:
    /// The device did not accept a window: the item shows what the device holds.
    void windowFailed(Tavoro::Panel::LayerItem *layer);

private:
    template <class Value>
    bool follow(LayerItem &layer, ShownValue<Value> &value, quint64 number, const Outcome &outcome);
    QString keyOf(const char *property, const LayerItem &layer) const;

    Selection &m_selection;
    Messages &m_messages;
    Changes &m_changes;
};

} // namespace Tavoro::Panel
