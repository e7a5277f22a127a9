#include "labels.h"

#include "printable.h"

#include <tavoroctl/arguments/texts.h>

namespace Tavoro::Ctl {

using namespace ProtoModel;

QString textOf(const std::string &text)
{
    return printable(QString::fromStdString(text));
}

QString number(qint64 value)
{
    return QString::number(value);
}

QString modelName(quint32 modelId)
{
    return QStringLiteral("0x%1").arg(modelId, 4, 16, QLatin1Char('0'));
}

QString idOf(const s_InterfaceID &id)
{
    return QStringLiteral("%1.%2.%3").arg(id.slotId).arg(id.connectorId).arg(id.splitId);
}

QString idOf(const s_ScreenId &id)
{
    return Texts::tr("%1 (type %2)").arg(id.screenId).arg(id.screenType);
}

QString rectangle(const Screen::s_Rect &rect)
{
    return Texts::tr("%1x%2 at %3,%4").arg(rect.width).arg(rect.height).arg(rect.x).arg(rect.y);
}

QString timingOf(const s_TimingDetailBody &timing)
{
    if (timing.horizontal.addTime == 0)
        return Texts::tr("no signal");
    return QStringLiteral("%1x%2%3%4")
        .arg(timing.horizontal.addTime)
        .arg(timing.vertical.addTime)
        .arg(timing.interlaced != 0 ? QLatin1Char('i') : QLatin1Char('p'))
        .arg(timing.refresh);
}

QString sceneOf(qint32 sceneType)
{
    switch (sceneType) {
    case 2:
        return Texts::tr("preview");
    case 4:
        return Texts::tr("programme");
    default:
        return number(sceneType);
    }
}

QString sourceOf(const Layer::s_SourceGeneral &source)
{
    return QStringLiteral("%1:%2").arg(source.type).arg(source.id);
}

} // namespace Tavoro::Ctl
