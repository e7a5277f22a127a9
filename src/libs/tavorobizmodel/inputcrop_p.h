#pragma once

#include <tavorocontrol/proto/signalbodies.h>

#include <QSize>

namespace Tavoro::BizModel {

/// Size in pixels of the picture with this timing; empty without a signal.
QSize pictureSize(const ProtoModel::s_TimingDetailBody &timing);

/// Works out which pixels of a picture \a crop takes. Returns true when they changed. For an empty
/// picture the pixels stay as they are.
bool fitCrop(ProtoModel::s_CropBody &crop, const QSize &picture);

} // namespace Tavoro::BizModel
