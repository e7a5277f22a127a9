#pragma once

#include <tavorocontrol/proto/signalbodies.h>

#include <QString>

/// The formats of pictures as texts.
namespace Tavoro::Panel {

/// Returns a timing such as "1920 × 1080, 60 Hz", or the words for a missing signal.
QString timingText(const ProtoModel::s_TimingDetailBody &timing);
/// Width and height in pixels, or the word for no size.
QString sizeText(int width, int height);

} // namespace Tavoro::Panel
