#pragma once

#include <QListView>
#include <QStringList>

namespace Tavoro::Panel {

/// A list of images. Local files can be dropped onto it, and its images dragged to other programs.
class ImageList : public QListView {
    Q_OBJECT

public:
    explicit ImageList(QWidget *parent = nullptr);

Q_SIGNALS:
    /// Local files were dropped.
    void filesDropped(const QStringList &paths);
    void deleteRequested(const QModelIndex &image);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace Tavoro::Panel
