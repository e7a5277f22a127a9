#pragma once

#include "sourcesmodel.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QListView;
class QToolButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The inputs of the selected device, with signal and format. A button shows an input in the
/// selected layer; an input can also be dragged onto a layer of the canvas.
class SourcesView : public QWidget {
    Q_OBJECT

public:
    SourcesView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);

private:
    void followDevice();
    void select(const QModelIndex &input);
    void updateEnabled();
    void showInLayer();

    Selection &m_selection;
    Changes &m_changes;
    SourcesModel m_model;
    QListView *const m_list;
    QToolButton *const m_show;
    QMetaObject::Connection m_deviceConnection;
};

} // namespace Tavoro::Panel
