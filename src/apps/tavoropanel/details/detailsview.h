#pragma once

#include "selectedrows.h"

#include <QWidget>

#include <array>

QT_BEGIN_NAMESPACE
class QScrollArea;
class QStackedWidget;
class QTabBar;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class Changes;
class DetailsForm;
class Messages;
class Selection;

/// The properties of what is selected: a tab for each kind of object. The tab of what was selected
/// last is shown.
class DetailsView : public QWidget {
    Q_OBJECT

public:
    DetailsView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                QWidget *parent = nullptr);
    ~DetailsView() override;

private:
    /// The page of a kind of object. The form is created when it is shown for the first time.
    struct Page {
        QScrollArea *area = nullptr;
        DetailsForm *form = nullptr;
        QPersistentModelIndex row;
    };

    void addPages();
    void update(Models::ObjectKind kind);
    void select(Models::ObjectKind kind);
    bool exists(Models::ObjectKind kind) const;
    void showWanted();
    void showPage(Models::ObjectKind kind);

    SelectedRows m_rows;
    QTabBar *const m_tabs;
    QStackedWidget *const m_stack;
    std::array<Page, 5> m_pages; ///< By the kind of object.
    Models::ObjectKind m_wanted = Models::ObjectKind::Layer; ///< What was selected last.
};

} // namespace Tavoro::Panel
