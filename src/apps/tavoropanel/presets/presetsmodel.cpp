#include "presetsmodel.h"

#include "presetpicture.h"

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>
#include <tavorosession/devicesession.h>

#include <QGuiApplication>
#include <QIcon>
#include <QSet>

namespace Tavoro::Panel {

namespace {

using BizModel::Enum::File::DevicePreset;
using BizModel::Enum::File::ScreenPreset;

constexpr int mostNumber = 254;

QPair<int, int> keyOf(const PresetsModel::FileId &file)
{
    return {file.fileType, file.fileId};
}

int layerCount(const PresetLayout &layout)
{
    int count = 0;
    for (const PresetScreen &screen : layout)
        count += static_cast<int>(screen.layers.size());
    return count;
}

} // namespace

PresetsModel::PresetsModel(Changes &changes, QObject *parent)
    : QSortFilterProxyModel(parent), m_edits(changes)
{
    m_files.setEditHandler(&m_edits);
    setSourceModel(&m_files);
    sort(0);
    connect(&m_files, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) {
                contentsChanged(m_files.index(first), m_files.index(last));
            });
    connect(&m_files, &QAbstractItemModel::dataChanged, this, &PresetsModel::contentsChanged);
    connect(&m_files, &Models::ObjectModel::editFailed, this,
            [this](const QModelIndex &, const QString &, const QString &error) {
                Q_EMIT renameFailed(error);
            });
}

void PresetsModel::setDevice(DeviceSession *device)
{
    disconnect(m_deviceConnection);
    m_device = device;
    m_edits.setDevice(device);
    if (device)
        m_deviceConnection =
            connect(device, &DeviceSession::deviceChanged, this, &PresetsModel::showDevice);
    showDevice();
}

void PresetsModel::showDevice()
{
    m_known.clear();
    m_files.setDevice(m_device ? m_device->device() : nullptr);
    if (m_files.rowCount() > 0)
        contentsChanged(m_files.index(0), m_files.index(m_files.rowCount() - 1));
}

PresetsModel::FileId PresetsModel::preset(const QModelIndex &index) const
{
    const auto file = m_files.file(mapToSource(index));
    return file ? file->identity() : FileId();
}

int PresetsModel::freeNumber(int fileType) const
{
    QSet<int> used;
    for (int row = 0; row < m_files.rowCount(); ++row) {
        const FileId id = m_files.file(m_files.index(row))->identity();
        if (id.fileType == fileType)
            used.insert(id.fileId);
    }
    int number = 0;
    while (used.contains(number))
        ++number;
    return number <= mostNumber ? number : -1;
}

QVariant PresetsModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DecorationRole && role != Qt::AccessibleDescriptionRole
        && role != Qt::ToolTipRole)
        return QSortFilterProxyModel::data(index, role);
    const auto &layout = layoutOf(index);
    if (role == Qt::DecorationRole)
        return QIcon(presetPicture(layout, m_pictureSize, qGuiApp->devicePixelRatio(),
                                   QGuiApplication::palette()));
    if (!layout)
        return tr("The layout of this preset is not known.");
    QStringList names;
    for (const PresetScreen &screen : *layout)
        names << screen.name;
    //: Names of screens, number of layers
    return tr("%1; layers: %2").arg(names.join(QStringLiteral(", "))).arg(layerCount(*layout));
}

bool PresetsModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const auto file = m_files.file(m_files.index(row));
    const int type = file ? file->identity().fileType : -1;
    return type == ScreenPreset || type == DevicePreset;
}

bool PresetsModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const auto one = m_files.file(left);
    const auto other = m_files.file(right);
    return one && other && keyOf(one->identity()) < keyOf(other->identity());
}

// Layouts

const std::optional<PresetLayout> &PresetsModel::layoutOf(const QModelIndex &index) const
{
    static const std::optional<PresetLayout> unknown;
    const auto known = m_known.constFind(keyOf(preset(index)));
    return known == m_known.constEnd() ? unknown : known->layout;
}

/// Reads the layouts of presets that are new or have other contents.
void PresetsModel::contentsChanged(const QModelIndex &first, const QModelIndex &last)
{
    for (int row = first.row(); row <= last.row(); ++row) {
        const QModelIndex index = m_files.index(row);
        if (!filterAcceptsRow(row, {}))
            continue;
        const auto file = m_files.file(index);
        const QVariant size = index.data(m_files.role("size"));
        const auto known = m_known.constFind(keyOf(file->identity()));
        if (known != m_known.constEnd() && known->size == size)
            continue;
        m_known.insert(keyOf(file->identity()), {size, std::nullopt});
        const std::string content = file->detail().binary;
        if (content.empty())
            fetch(file->identity(), size);
        else
            learn(file->identity(), size, content);
    }
}

void PresetsModel::fetch(const FileId &file, const QVariant &size)
{
    if (!m_device)
        return;
    using Content = std::string &;
    m_device
        ->call(qOverload<int, int, Content, QString &>(&Control::File::readBinary), file.fileType,
               file.fileId)
        .then(this, [this, file, size, device = m_device](const Answer<std::string> &answer) {
            if (answer && device == m_device)
                learn(file, size, answer.record());
        });
}

void PresetsModel::learn(const FileId &file, const QVariant &size, const std::string &content)
{
    m_known.insert(keyOf(file), {size, readPresetLayout(content)});
    for (int row = 0; row < rowCount(); ++row) {
        if (keyOf(preset(index(row, 0))) == keyOf(file))
            Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::DecorationRole, Qt::ToolTipRole});
    }
}

} // namespace Tavoro::Panel
