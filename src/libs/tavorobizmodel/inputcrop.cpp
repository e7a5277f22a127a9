#include "inputcrop_p.h"

namespace Tavoro::BizModel {

namespace {

constexpr qint64 wholeRatio = 100000;

/// Returns the share \a ratio of \a size in pixels, rounded to the nearest.
qint32 pixels(qint32 ratio, int size)
{
    return static_cast<qint32>((ratio * qint64(size) + wholeRatio / 2) / wholeRatio);
}

} // namespace

QSize pictureSize(const ProtoModel::s_TimingDetailBody &timing)
{
    return {timing.horizontal.addTime, timing.vertical.addTime};
}

bool fitCrop(ProtoModel::s_CropBody &crop, const QSize &picture)
{
    if (picture.isEmpty())
        return false;
    const ProtoModel::Screen::s_Rect old = crop.rect;
    auto &rect = crop.rect;
    rect.x = pixels(crop.xRatio, picture.width());
    rect.y = pixels(crop.yRatio, picture.height());
    rect.width = pixels(crop.widthRatio, picture.width());
    rect.height = pixels(crop.heightRatio, picture.height());
    return rect.x != old.x || rect.y != old.y || rect.width != old.width
        || rect.height != old.height;
}

} // namespace Tavoro::BizModel
