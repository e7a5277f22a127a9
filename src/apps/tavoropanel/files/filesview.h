#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The images on the selected device.
class FilesView : public QWidget {
    Q_OBJECT

public:
    FilesView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
              QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
