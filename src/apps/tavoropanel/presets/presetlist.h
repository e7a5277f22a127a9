#pragma once

#include <tavoropanel/files/filelist.h>

namespace Tavoro::Panel {

/// Presets as a wall of pictures. A click or Return applies a preset, F2 renames it, Delete asks to
/// delete it, and the right mouse button shows a menu.
class PresetList : public FileList {
    Q_OBJECT

public:
    explicit PresetList(QWidget *parent = nullptr);

Q_SIGNALS:
    void applyRequested(const QModelIndex &preset);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;
};

} // namespace Tavoro::Panel
