#pragma once

#include "filelist.h"

#include <QStringList>

namespace Tavoro::Panel {

/// A list of images. Local files can be dropped onto it, and its images dragged to other programs.
class ImageList : public FileList {
    Q_OBJECT

public:
    explicit ImageList(QWidget *parent = nullptr);

Q_SIGNALS:
    /// Local files were dropped.
    void filesDropped(const QStringList &paths);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

} // namespace Tavoro::Panel
