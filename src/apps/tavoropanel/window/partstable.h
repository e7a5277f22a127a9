#pragma once

#include <QtGlobal>

#include <vector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Tavoro {
class Session;
} // namespace Tavoro

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// What the parts of the window are made with.
struct PartContext {
    Session &session;
    Selection &selection;
    Messages &messages;
    Changes &changes;
    Actions &actions;
};

/// Where a part is in the window.
enum class Area : int {
    Top, ///< A bar below the menus.
    Left,
    Centre, ///< One part.
    Right,
    Bottom, ///< Tabs below the centre.
    Foot, ///< A bar above the status bar.
};

/// One part of the window.
struct PartRow {
    const char *name; ///< Of the object, in settings and tests.
    Area area;
    const char *title; ///< To be translated.
    QWidget *(*make)(const PartContext &context, QWidget *parent);
};

/// All parts, in the order of their areas.
const std::vector<PartRow> &partsTable();

} // namespace Tavoro::Panel
