#include "presetlist.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace Tavoro::Panel {

namespace {

bool isApplyKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

PresetList::PresetList(QWidget *parent) : FileList(parent)
{
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setTextElideMode(Qt::ElideRight);
    setUniformItemSizes(true);
    connect(this, &QAbstractItemView::clicked, this, &PresetList::applyRequested);
}

/// Return belongs to the list while it has the focus, although it is a shortcut of the window.
bool PresetList::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isApplyKey(*static_cast<QKeyEvent *>(event)))
        event->accept();
    return FileList::event(event);
}

void PresetList::keyPressEvent(QKeyEvent *event)
{
    if (isApplyKey(*event) && currentIndex().isValid())
        Q_EMIT applyRequested(currentIndex());
    else
        FileList::keyPressEvent(event);
}

void PresetList::contextMenuEvent(QContextMenuEvent *event)
{
    const QModelIndex preset =
        event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex();
    if (!preset.isValid())
        return;
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("&Apply"), this, [this, preset] { Q_EMIT applyRequested(preset); });
    menu->addAction(tr("&Rename"), this, [this, preset] { edit(preset); });
    menu->addAction(tr("&Delete…"), this, [this, preset] { Q_EMIT deleteRequested(preset); });
    menu->popup(event->globalPos());
}

/// The pictures have the colours of the palette.
void PresetList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        viewport()->update();
    FileList::changeEvent(event);
}

} // namespace Tavoro::Panel
