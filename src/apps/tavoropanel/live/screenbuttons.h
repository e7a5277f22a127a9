#pragma once

#include <QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
QT_END_NAMESPACE

namespace Tavoro::BizModel {
class Screen;
} // namespace Tavoro::BizModel

namespace Tavoro::Models {
class ScreensModel;
} // namespace Tavoro::Models

namespace Tavoro::Panel {

class LiveButton;
class ScreenButton;
class Selection;

/// A button for each screen of the selected device that can be taken: selects the screen for the
/// large buttons, and shows whether it is frozen or black.
class ScreenButtons : public QWidget {
    Q_OBJECT

public:
    explicit ScreenButtons(Selection &selection, QWidget *parent = nullptr);

    /// Selects all screens.
    void selectAll();

private:
    void rebuild();
    void update();

    Selection &m_selection;
    Models::ScreensModel *const m_screens;
    QHBoxLayout *const m_row;
    std::vector<ScreenButton *> m_buttons;
};

} // namespace Tavoro::Panel
