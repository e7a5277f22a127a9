#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Tavoro::Models {
class InterfacesModel;
}

namespace Tavoro::Panel {

struct Field;
class ValueEditor;

/// Creates the control for a field. \a inputs are the sources that layers can show.
ValueEditor *makeEditor(const Field &field, Models::InterfacesModel &inputs, QWidget *parent);

} // namespace Tavoro::Panel
