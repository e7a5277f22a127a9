#include "sourcesmodel.h"

#include "sourceicon.h"

#include <tavoropanel/details/shownvalues.h>
#include <tavoropanel/sources/layersources.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>

#include <QGuiApplication>
#include <QMimeData>

namespace Tavoro::Panel {

namespace {

constexpr int inputType = 1; // general.type of an interface

} // namespace

SourcesModel::SourcesModel(QObject *parent) : QIdentityProxyModel(parent)
{
    m_inputs.setInterfaceType(inputType);
    setSourceModel(&m_inputs);
}

ProtoModel::s_InterfaceID SourcesModel::input(const QModelIndex &index) const
{
    const auto interface = m_inputs.interface(mapToSource(index));
    return interface ? interface->interfaceId() : ProtoModel::s_InterfaceID();
}

QVariant SourcesModel::value(const QModelIndex &index, const char *role) const
{
    return QIdentityProxyModel::data(index, m_inputs.role(role));
}

QString SourcesModel::name(const QModelIndex &index) const
{
    return QIdentityProxyModel::data(index, Qt::DisplayRole).toString();
}

QVariant SourcesModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QString(name(index) + QLatin1Char('\n') + stateText(index));
    case Qt::DecorationRole:
        return sourceIcon(value(index, "signal").toBool() && value(index, "online").toBool(),
                          QGuiApplication::palette());
    case Qt::AccessibleTextRole:
        return name(index);
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return stateText(index);
    default:
        return QIdentityProxyModel::data(index, role);
    }
}

QString SourcesModel::stateText(const QModelIndex &index) const
{
    const auto interface = m_inputs.interface(mapToSource(index));
    const auto device = interface ? interface->device().lock() : nullptr;
    if (!device || !device->isOnline())
        return tr("Not connected");
    if (!value(index, "online").toBool())
        return tr("The card does not work");
    QString format = timingText(value(index, "actualTiming"));
    const int depth =
        value(index, "colorDepths").toMap().value(QStringLiteral("actualColorDepth")).toInt();
    if (!value(index, "signal").toBool() || depth == 0)
        return format;
    //: Format of an input, bits of its colours
    return tr("%1, %2 bit").arg(format).arg(depth);
}

// Dragging inputs onto layers

Qt::ItemFlags SourcesModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QIdentityProxyModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList SourcesModel::mimeTypes() const
{
    return {sourceMimeType()};
}

QMimeData *SourcesModel::mimeData(const QModelIndexList &indexes) const
{
    if (indexes.isEmpty())
        return nullptr;
    auto *const data = new QMimeData;
    setSource(*data, sourceOf(input(indexes.first())));
    return data;
}

} // namespace Tavoro::Panel
