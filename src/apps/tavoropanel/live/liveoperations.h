#pragma once

#include "livecalls.h"

#include <tavoropanel/selection/identity.h>

#include <QObject>

namespace Tavoro::BizModel {
class Screen;
} // namespace Tavoro::BizModel

namespace Tavoro::Panel {

class Changes;
class Selection;

/// Take, cut, T-bar, freeze and fade to black for the selected screens.
class LiveOperations : public QObject {
    Q_OBJECT

public:
    LiveOperations(Selection &selection, Changes &changes, QObject *parent = nullptr);

    LiveCalls &calls() { return m_calls; }

    /// How many of the selected screens have a property.
    enum class Share {
        None,
        Some,
        All
    };
    Share frozen() const;
    Share black() const;
    /// The T-bar of the first selected screen, 0 to 100.
    int tBar() const;

public Q_SLOTS:
    /// Takes with the transition of each screen.
    void take();
    /// Takes without a transition.
    void cut();
    /// Freezes the screens; releases them if all are frozen.
    void toggleFreeze();
    /// Fades to black; back to the picture if all screens are black.
    void toggleBlack();
    /// Moves the T-bar to a percentage. At 100 the device takes.
    void moveTBar(int percent);

Q_SIGNALS:
    /// The selected screens, or their records, have changed.
    void screensChanged();

private:
    void watchScreens();
    void callTake(const QString &name, bool isCut);
    template <class Record, class Fill>
    std::vector<Record> records(Fill fill) const;
    Share shareOf(bool (*has)(const BizModel::Screen &screen)) const;

    Selection &m_selection;
    Changes &m_changes;
    LiveCalls m_calls;
    QList<QMetaObject::Connection> m_screens;
};

} // namespace Tavoro::Panel
