#pragma once

#include "valueeditor.h"

#include <QVariantMap>

QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class LayerSources;

/// The list of what a layer can show, with the formats.
class SourceEditor : public ValueEditor {
    Q_OBJECT

public:
    /// \a sources must exist as long as this object.
    SourceEditor(const LayerSources &sources, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    void showSources();

    const LayerSources &m_sources;
    QComboBox *const m_box;
    QVariantMap m_source; ///< What the layer shows, as in its record.
};

} // namespace Tavoro::Panel
