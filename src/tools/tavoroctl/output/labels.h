#pragma once

#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QString>

#include <string>

/// Identities and values as text.
namespace Tavoro::Ctl {

/// A text of a record, control characters escaped.
QString textOf(const std::string &text);
QString number(qint64 value);

/// "0x7701".
QString modelName(quint32 modelId);
/// "1.2.0": slot, connector, split.
QString idOf(const ProtoModel::s_InterfaceID &id);
/// "1 (type 2)".
QString idOf(const ProtoModel::s_ScreenId &id);
/// "1920x1080 at 0,0".
QString rectangle(const ProtoModel::Screen::s_Rect &rect);
/// "1920x1080p60", or "no signal".
QString timingOf(const ProtoModel::s_TimingDetailBody &timing);
/// "preview", "programme", or the number of the scene.
QString sceneOf(qint32 sceneType);
/// The source of a layer by type and ID: "1:65792".
QString sourceOf(const ProtoModel::Layer::s_SourceGeneral &source);

} // namespace Tavoro::Ctl
