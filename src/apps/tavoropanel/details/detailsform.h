#pragma once

#include <tavoromodels/edithandler.h>

#include <QHash>
#include <QPersistentModelIndex>
#include <QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QFormLayout;
class QLabel;
QT_END_NAMESPACE

namespace Tavoro::Models {
class ObjectModel;
} // namespace Tavoro::Models

namespace Tavoro::Panel {

struct Field;
class LayerSources;
class ValueEditor;

/// The properties of one object of an item model, in sections.
///
/// What the user enters goes to the model, and so to its edit handler. If the device refuses a
/// value, the control shows the value of the device again, and the reason below it.
class DetailsForm : public QWidget {
    Q_OBJECT

public:
    /// What a form needs. The models and the handler must exist as long as the form.
    struct Context {
        Models::ObjectKind kind;
        Models::ObjectModel &model;
        Models::EditHandler &handler;
        const LayerSources &sources; ///< What layers can show.
    };

    explicit DetailsForm(const Context &context, QWidget *parent = nullptr);

    /// Shows the object of a row of the model.
    void show(const QModelIndex &index);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Row {
        const Field *field;
        ValueEditor *editor;
        QLabel *refusal; ///< Below the editor; hidden unless the last value was refused.
    };

    void addSections();
    QLayout *makeRow(const Field &field);
    void describe(const Row &row, const QString &refusal);
    void fitHeight();
    void refresh();
    void send(std::size_t row, const QVariant &value);
    void showRefusal(const QString &key, const QString &reason);

    const Context m_context;
    QFormLayout *const m_layout;
    std::vector<Row> m_rows;
    QHash<QString, std::size_t> m_lastEdited; ///< The row that changed a key last.
    QPersistentModelIndex m_index;
};

} // namespace Tavoro::Panel
