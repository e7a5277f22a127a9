#pragma once

#include <tavorocontrol/proto/signalbodies.h>

#include <QSize>

namespace Tavoro::BizModel {

/// Returns the size in pixels of a picture with this timing; empty without a video signal.
QSize pictureSize(const ProtoModel::s_TimingDetailBody &timing);

/// Computes the pixels of \a crop in a picture of this size. Returns true if they changed. For an
/// empty size the pixels are kept.
bool fitCrop(ProtoModel::s_CropBody &crop, const QSize &picture);

} // namespace Tavoro::BizModel
