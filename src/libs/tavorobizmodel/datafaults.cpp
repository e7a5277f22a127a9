#include "datafaults_p.h"

#include "objectid_p.h"

#include <tavorobizmodel/device.h>

namespace Tavoro::BizModel {

namespace {

/// Limit, so that a device with many faults does not fill the log.
constexpr int mostSentences = 5;

} // namespace

QString quoted(const ProtoModel::s_InterfaceID &id)
{
    return Device::tr("Interface %1/%2/%3").arg(id.slotId).arg(id.connectorId).arg(id.splitId);
}

QString quoted(const ProtoModel::s_ScreenId &id)
{
    return Device::tr("Screen %1 of type %2").arg(id.screenId).arg(id.screenType);
}

QString quoted(const ProtoModel::Layer::s_LayerIdentity &id)
{
    return Device::tr("Layer %1 of type %2 in scene %3 on screen %4 of type %5")
        .arg(id.layerId)
        .arg(id.layerType)
        .arg(id.sceneType)
        .arg(id.screenId)
        .arg(id.screenType);
}

QString quoted(const ProtoModel::s_FileIdentity &id)
{
    return Device::tr("File %1 of type %2").arg(id.fileId).arg(id.fileType);
}

void DataFaults::add(const QString &sentence)
{
    if (m_count++ < mostSentences)
        m_sentences.append(sentence);
}

void DataFaults::addDuplicate(const QString &object)
{
    add(Device::tr("%1 occurs twice.").arg(object));
}

void DataFaults::addMissingOutput(const ProtoModel::s_ScreenId &screen,
                                  const ProtoModel::s_InterfaceID &output)
{
    add(Device::tr("%1 has the output %2, which the device does not have.")
            .arg(quoted(screen), quoted(output)));
}

void DataFaults::addMissingScreen(const ProtoModel::Layer::s_LayerIdentity &layer)
{
    add(Device::tr("%1: the device does not have the screen.").arg(quoted(layer)));
}

bool DataFaults::report(QString &error) const
{
    if (m_count == 0)
        return true;
    error = m_sentences.join(QLatin1Char(' '));
    if (m_count > mostSentences)
        error += QLatin1Char(' ') + Device::tr("And %1 more.").arg(m_count - mostSentences);
    return false;
}

} // namespace Tavoro::BizModel
