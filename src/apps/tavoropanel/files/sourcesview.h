#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The inputs of the selected device.
class SourcesView : public QWidget {
    Q_OBJECT

public:
    SourcesView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
