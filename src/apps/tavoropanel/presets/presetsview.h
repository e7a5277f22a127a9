#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The presets of the selected device.
class PresetsView : public QWidget {
    Q_OBJECT

public:
    PresetsView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
