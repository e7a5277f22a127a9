#include "formattexts.h"

#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

/// The translations of the details.
class FormatWords {
    Q_DECLARE_TR_FUNCTIONS(Details)
};

} // namespace

QString timingText(const ProtoModel::s_TimingDetailBody &timing)
{
    if (timing.horizontal.addTime <= 0 || timing.vertical.addTime <= 0)
        return FormatWords::tr("No signal");
    //: Width and height in pixels, refresh rate, "interlaced" or nothing
    return FormatWords::tr("%1 × %2, %3 Hz %4")
        .arg(timing.horizontal.addTime)
        .arg(timing.vertical.addTime)
        .arg(timing.refresh)
        .arg(timing.interlaced != 0 ? FormatWords::tr("interlaced") : QString())
        .trimmed();
}

QString sizeText(int width, int height)
{
    return width > 0 && height > 0 ? FormatWords::tr("%1 × %2 px").arg(width).arg(height)
                                   : FormatWords::tr("None");
}

} // namespace Tavoro::Panel
