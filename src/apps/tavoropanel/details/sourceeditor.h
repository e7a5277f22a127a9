#pragma once

#include "valueeditor.h"

QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

namespace Tavoro::Models {
class InterfacesModel;
}

namespace Tavoro::Panel {

/// The list of the inputs that a layer can show, with their formats.
class SourceEditor : public ValueEditor {
    Q_OBJECT

public:
    /// \a inputs must exist as long as this object.
    SourceEditor(Models::InterfacesModel &inputs, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    void refill();

    const Models::InterfacesModel &m_inputs;
    QComboBox *const m_box;
    QVariantMap m_source;
};

/// The number by which a layer names an input.
quint32 sourceId(const QVariantMap &interfaceId);

} // namespace Tavoro::Panel
