#include "filesview.h"

#include "deletequestion.h"
#include "imagelist.h"
#include "transferrow.h"

#include <tavoropanel/details/shownvalues.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/file.h>

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

constexpr QSize filePictureSize(80, 45);

} // namespace

FilesView::FilesView(Selection &selection, Messages &messages, Changes &changes,
                     Actions & /*actions*/, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_messages(messages),
      m_changes(changes),
      m_model(changes),
      m_list(new ImageList(this)),
      m_type(new QComboBox(this)),
      m_push(addButton("pushImages", tr("Add…"), tr("Sends images from this computer."))),
      m_pull(addButton("pullImage", tr("Save a copy…"), tr("Saves the image on this computer."))),
      m_rename(addButton("renameImage", tr("Rename"), tr("Renames the selected image (F2)."))),
      m_delete(addButton("deleteImage", tr("Delete…"), tr("Deletes the image from the device."))),
      m_transfers(new QVBoxLayout)
{
    m_model.setPictureSize(filePictureSize);
    m_list->setIconSize(filePictureSize);
    m_list->setModel(&m_model);
    m_list->setObjectName(QStringLiteral("imageList"));
    m_list->setAccessibleName(tr("Images on the device"));
    m_list->setAccessibleDescription(tr("Drop image files here to send them to the device."));
    auto *const hint = new QLabel(m_list->accessibleDescription(), this);
    hint->setWordWrap(true);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(makeBar());
    layout->addWidget(m_list, 1);
    layout->addWidget(hint);
    layout->addLayout(m_transfers);

    connect(m_list, &ImageList::filesDropped, this, &FilesView::push);
    connect(m_list, &ImageList::deleteRequested, this, &FilesView::askToDeleteImage);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &FilesView::updateEnabled);
    // Not the current image: a list that gets the focus makes its first row the current one.
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected) { select(selected.indexes().value(0)); });
    connect(m_list, &QListView::clicked, this, &FilesView::select);
    connect(&selection, &Selection::canWriteChanged, this, &FilesView::updateEnabled);
    connect(&selection, &Selection::deviceChanged, this, [this] {
        m_model.setDevice(m_selection.device());
        updateEnabled();
    });
    m_model.setDevice(selection.device());
    updateEnabled();
}

QToolButton *FilesView::addButton(const char *name, const QString &text, const QString &description)
{
    auto *const button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(description);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QLayout *FilesView::makeBar()
{
    m_type->setObjectName(QStringLiteral("imageType"));
    for (const int type : {BizModel::Enum::File::Background, BizModel::Enum::File::Logo})
        m_type->addItem(fileTypeText(type), type);
    m_type->setAccessibleName(tr("Type of new images"));
    m_type->setToolTip(tr("Images that are added become files of this type."));
    connect(m_push, &QToolButton::clicked, this, &FilesView::openPushDialog);
    connect(m_pull, &QToolButton::clicked, this, &FilesView::openPullDialog);
    connect(m_rename, &QToolButton::clicked, this,
            [this] { m_list->edit(m_list->currentIndex()); });
    connect(m_delete, &QToolButton::clicked, this,
            [this] { askToDeleteImage(m_list->currentIndex()); });
    auto *const bar = new QHBoxLayout;
    bar->addWidget(m_push);
    bar->addWidget(m_type);
    bar->addStretch();
    for (QToolButton *const button : {m_pull, m_rename, m_delete})
        bar->addWidget(button);
    return bar;
}

void FilesView::select(const QModelIndex &image)
{
    if (image.isValid())
        m_selection.setFile(m_model.file(image));
}

void FilesView::updateEnabled()
{
    const bool canWrite = m_selection.canWrite();
    const bool hasImage = m_list->currentIndex().isValid();
    m_list->setAcceptDrops(canWrite);
    m_push->setEnabled(canWrite);
    m_type->setEnabled(canWrite);
    m_pull->setEnabled(m_selection.device() && hasImage);
    m_rename->setEnabled(canWrite && hasImage);
    m_delete->setEnabled(canWrite && hasImage);
}

// Sending

void FilesView::openPushDialog()
{
    auto *const dialog = new QFileDialog(this, tr("Add images"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, &FilesView::push);
    dialog->open();
}

void FilesView::push(const QStringList &paths)
{
    for (const QString &path : paths)
        pushImage(path);
}

void FilesView::pushImage(const QString &path)
{
    DeviceSession *const device = m_selection.device();
    const QSize size = QImageReader(path).size();
    const QString name = QFileInfo(path).fileName();
    if (!device || !m_selection.canWrite())
        return;
    if (!size.isValid())
        return m_messages.report(Severity::Error, tr("\"%1\" is not an image.").arg(name));
    ProtoModel::File::s_FileInfo file;
    file.fileType = m_type->currentData().toInt();
    file.fileId = freeFileNumber(m_model.files(), file.fileType, m_underWay[file.fileType]);
    file.general.name = name.toStdString();
    file.size.width = size.width();
    file.size.height = size.height();
    if (file.fileId < 0)
        return m_messages.report(Severity::Error,
                                 tr("The device has no room for another image of this type."),
                                 device->name());
    m_underWay[file.fileType].insert(file.fileId);
    const PendingTransfer transfer = device->files().sendFrom(file, path);
    transfer.then(this, [this, file](const Outcome &outcome) {
        m_underWay[file.fileType].remove(file.fileId);
        if (!outcome.isCanceled())
            m_messages.report(outcome);
    });
    //: Name of a file that is sent to the device
    m_transfers->addWidget(new TransferRow(tr("↑ %1").arg(name), transfer, this));
}

// Fetching

void FilesView::openPullDialog()
{
    const QPersistentModelIndex image = m_list->currentIndex();
    auto *const dialog = new QFileDialog(this, tr("Save a copy"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(m_model.name(image));
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, image](const QString &path) { pull(image, path); });
    dialog->open();
}

void FilesView::pull(const QModelIndex &image, const QString &path)
{
    DeviceSession *const device = m_selection.device();
    if (!device || !image.isValid())
        return;
    const PendingTransfer transfer = device->files().fetchTo(m_model.file(image), path);
    transfer.then(this, [this](const Outcome &outcome) {
        if (!outcome.isCanceled())
            m_messages.report(outcome);
    });
    //: Name of a file that is fetched from the device
    m_transfers->addWidget(new TransferRow(tr("↓ %1").arg(m_model.name(image)), transfer, this));
}

// Deleting

void FilesView::askToDeleteImage(const QModelIndex &image)
{
    if (!image.isValid() || !m_selection.canWrite())
        return;
    askToDelete(m_model.name(image), this, [this, id = m_model.file(image)] {
        if (DeviceSession *const device = m_selection.device())
            m_changes.call(*device, &Control::File::writeDeleteFiles,
                           {ProtoModel::File::s_DeleteFile{id}});
    });
}

} // namespace Tavoro::Panel
