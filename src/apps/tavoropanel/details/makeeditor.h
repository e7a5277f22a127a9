#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Tavoro::Panel {

struct Field;
class LayerSources;
class ValueEditor;

/// Creates the control for a field. \a sources are what layers can show; they must exist as long as
/// the control.
ValueEditor *makeEditor(const Field &field, const LayerSources &sources, QWidget *parent);

} // namespace Tavoro::Panel
