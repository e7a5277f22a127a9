#pragma once

#include <QListView>

namespace Tavoro::Panel {

/// A list of files on a device: F2 renames a file, Delete asks to delete it.
class FileList : public QListView {
    Q_OBJECT

public:
    explicit FileList(QWidget *parent = nullptr);

Q_SIGNALS:
    void deleteRequested(const QModelIndex &file);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace Tavoro::Panel
