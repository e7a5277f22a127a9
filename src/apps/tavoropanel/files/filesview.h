#pragma once

#include "imagesmodel.h"

#include <QHash>
#include <QSet>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QToolButton;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class Changes;
class ImageList;
class Messages;
class Selection;

/// The images on the selected device: pushed by dropping files, pulled by dragging them out or with
/// a button, with the progress of each transfer.
class FilesView : public QWidget {
    Q_OBJECT

public:
    FilesView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
              QWidget *parent = nullptr);

    /// Sends local images to the device.
    void push(const QStringList &paths);

private:
    QToolButton *addButton(const char *name, const QString &text, const QString &description);
    QLayout *makeBar();
    void select(const QModelIndex &image);
    void updateEnabled();
    void openPushDialog();
    void pushImage(const QString &path);
    void openPullDialog();
    void pull(const QModelIndex &image, const QString &path);
    void askToDeleteImage(const QModelIndex &image);

    Selection &m_selection;
    Messages &m_messages;
    Changes &m_changes;
    ImagesModel m_model;
    ImageList *const m_list;
    QComboBox *const m_type;
    QToolButton *const m_push;
    QToolButton *const m_pull;
    QToolButton *const m_rename;
    QToolButton *const m_delete;
    QVBoxLayout *const m_transfers;
    QHash<int, QSet<int>> m_underWay; ///< The numbers of files that are being sent, by their type.
};

} // namespace Tavoro::Panel
