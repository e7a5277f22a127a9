#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The properties of what is selected.
class DetailsView : public QWidget {
    Q_OBJECT

public:
    DetailsView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
