#include "presetsview.h"

#include "presetlist.h"
#include "savepresetdialog.h"

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/files/deletequestion.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/preset.h>

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

using BizModel::Enum::File::DevicePreset;
using BizModel::Enum::File::ScreenPreset;

constexpr QSize presetPictureSize(144, 54); // low, since walls are wide

/// How a preset is applied.
enum ApplyType {
    AsStored = 0,
    IntoPreview = 1,
};

std::vector<ProtoModel::s_ScreenId> allScreens(const BizModel::Device &device)
{
    std::vector<ProtoModel::s_ScreenId> ids;
    const auto screens = device.screens(~0);
    for (const auto &weak : screens) {
        if (const auto screen = weak.lock())
            ids.push_back({screen->screenId(), screen->screenType()});
    }
    return ids;
}

} // namespace

PresetsView::PresetsView(Selection &selection, Messages &messages, Changes &changes,
                         Actions &actions, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_messages(messages),
      m_changes(changes),
      m_model(changes),
      m_list(new PresetList(this)),
      m_stack(new QStackedWidget(this)),
      m_target(new QComboBox(this)),
      m_rename(new QToolButton(this)),
      m_delete(new QToolButton(this))
{
    m_model.setPictureSize(presetPictureSize);
    m_list->setIconSize(presetPictureSize);
    m_list->setGridSize(presetPictureSize + QSize(16, m_list->fontMetrics().height() + 16));
    m_list->setModel(&m_model);
    m_list->setObjectName(QStringLiteral("presetList"));
    m_list->setAccessibleName(tr("Presets"));
    m_list->setAccessibleDescription(tr("A click or Return applies a preset."));
    auto *const empty = new QLabel(tr("The device has no presets. Save the first one."), this);
    empty->setAlignment(Qt::AlignCenter);
    empty->setWordWrap(true);
    m_stack->addWidget(empty);
    m_stack->addWidget(m_list);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(makeBar(actions));
    layout->addWidget(m_stack, 1);

    connect(&actions.action(ActionId::SavePreset), &QAction::triggered, this,
            &PresetsView::openSaveDialog);
    connect(m_list, &PresetList::applyRequested, this, &PresetsView::apply);
    connect(m_list, &PresetList::deleteRequested, this, &PresetsView::askToDeletePreset);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PresetsView::updateEnabled);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &PresetsView::updateEmpty);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &PresetsView::updateEmpty);
    connect(&selection, &Selection::canWriteChanged, this, &PresetsView::updateEnabled);
    connect(&selection, &Selection::deviceChanged, this,
            [this] { m_model.setDevice(m_selection.device()); });
    m_model.setDevice(selection.device());
    updateEmpty();
}

QLayout *PresetsView::makeBar(Actions &actions)
{
    auto *const save = new QToolButton(this);
    save->setDefaultAction(&actions.action(ActionId::SavePreset));
    save->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    save->setFocusPolicy(Qt::StrongFocus);
    save->setObjectName(QStringLiteral("savePreset"));
    m_target->setObjectName(QStringLiteral("presetTarget"));
    m_target->addItem(tr("Apply to the preview"), IntoPreview);
    m_target->addItem(tr("Apply as it was saved"), AsStored);
    m_target->setAccessibleName(tr("Where presets are applied"));
    m_target->setToolTip(tr("A preset goes to the preview, or restores preview, programme and "
                            "screens as they were saved."));
    m_rename->setText(tr("Rename"));
    m_rename->setObjectName(QStringLiteral("renamePreset"));
    m_delete->setText(tr("Delete…"));
    m_delete->setObjectName(QStringLiteral("deletePreset"));
    for (QToolButton *const button : {m_rename, m_delete}) {
        button->setFocusPolicy(Qt::StrongFocus);
        button->setAccessibleName(button->text());
    }
    m_rename->setToolTip(tr("Renames the selected preset (F2)."));
    m_delete->setToolTip(tr("Deletes the selected preset from the device."));
    connect(m_rename, &QToolButton::clicked, this,
            [this] { m_list->edit(m_list->currentIndex()); });
    connect(m_delete, &QToolButton::clicked, this,
            [this] { askToDeletePreset(m_list->currentIndex()); });
    auto *const bar = new QHBoxLayout;
    bar->addWidget(save);
    bar->addWidget(m_target);
    bar->addStretch();
    bar->addWidget(m_rename);
    bar->addWidget(m_delete);
    return bar;
}

void PresetsView::updateEnabled()
{
    const bool canWrite = m_selection.canWrite();
    const bool hasPreset = m_list->currentIndex().isValid();
    m_list->setEnabled(canWrite);
    m_target->setEnabled(canWrite);
    m_rename->setEnabled(canWrite && hasPreset);
    m_delete->setEnabled(canWrite && hasPreset);
}

void PresetsView::updateEmpty()
{
    m_stack->setCurrentIndex(m_model.rowCount() > 0 ? 1 : 0);
    updateEnabled();
}

// Saving

void PresetsView::openSaveDialog()
{
    QStringList screens;
    for (const auto &screen : m_selection.screenObjects())
        screens << QString::fromStdString(screen->detail().general.name);
    const QString name = tr("Preset %1").arg(m_model.rowCount() + 1);
    auto *const dialog = new SavePresetDialog(name, screens, this);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { save(*dialog); });
    dialog->open();
}

void PresetsView::save(const SavePresetDialog &dialog)
{
    DeviceSession *const device = m_selection.device();
    const auto model = device ? device->device() : nullptr;
    if (!model)
        return;
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileType = dialog.hasAllScreens() ? DevicePreset : ScreenPreset;
    preset.fileId = freeFileNumber(m_model.files(), preset.fileType);
    preset.general.name = dialog.name().toStdString();
    const auto &selected = m_selection.screens();
    preset.screens = dialog.hasAllScreens()
        ? allScreens(*model)
        : std::vector<ProtoModel::s_ScreenId>(selected.begin(), selected.end());
    if (preset.fileId < 0)
        return m_messages.report(Severity::Error, tr("The device has no room for another preset."),
                                 device->name());
    m_changes.call(*device, &Control::File::writeCreatePresetFile, {preset});
}

// Applying

void PresetsView::apply(const QModelIndex &index)
{
    DeviceSession *const device = m_selection.device();
    if (!device || !m_selection.canWrite())
        return;
    ProtoModel::Preset::s_PresetPlay play;
    static_cast<ProtoModel::s_FileIdentity &>(play) = m_model.file(index);
    play.applyType = m_target->currentData().toInt();
    const QString done = tr("The preset \"%1\" was applied.").arg(index.data().toString());
    m_changes.call(*device, &Control::Preset::presetApply, {play})
        .then(this, [this, done, name = device->name()](const Outcome &outcome) {
            if (outcome)
                m_messages.report(Severity::Information, done, name);
        });
}

// Deleting

void PresetsView::askToDeletePreset(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    askToDelete(index.data().toString(), this, [this, preset = m_model.file(index)] {
        if (DeviceSession *const device = m_selection.device())
            m_changes.call(*device, &Control::File::writeDeleteFiles,
                           {ProtoModel::File::s_DeleteFile{preset}});
    });
}

} // namespace Tavoro::Panel
