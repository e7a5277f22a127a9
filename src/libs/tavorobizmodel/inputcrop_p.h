#pragma once

#include <tavorocontrol/proto/signalbodies.h>

#include <QSize>

namespace Tavoro::BizModel {

/// Pixels of the picture that a signal of this timing carries; empty without a signal.
QSize pictureSize(const ProtoModel::s_TimingDetailBody &timing);

/// Works out which pixels of a picture \a crop takes. True when they are others than before. Of an
/// empty picture nothing can be taken: the pixels stay as they were.
bool fitCrop(ProtoModel::s_CropBody &crop, const QSize &picture);

} // namespace Tavoro::BizModel
