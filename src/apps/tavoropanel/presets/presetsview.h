#pragma once

#include "presetsmodel.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QStackedWidget;
class QToolButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class PresetList;
class SavePresetDialog;
class Selection;

/// The presets of the selected device: saved, named, applied with one click, and deleted.
class PresetsView : public QWidget {
    Q_OBJECT

public:
    PresetsView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);

private:
    QLayout *makeBar(Actions &actions);
    void updateEnabled();
    void updateEmpty();
    void openSaveDialog();
    void save(const SavePresetDialog &dialog);
    void apply(const QModelIndex &preset);
    void askToDeletePreset(const QModelIndex &preset);

    Selection &m_selection;
    Messages &m_messages;
    Changes &m_changes;
    PresetsModel m_model;
    PresetList *const m_list;
    QStackedWidget *const m_stack;
    QComboBox *const m_target;
    QToolButton *const m_rename;
    QToolButton *const m_delete;
};

} // namespace Tavoro::Panel
