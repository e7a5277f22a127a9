#include "partstable.h"

#include <tavoropanel/canvas/canvasview.h>
#include <tavoropanel/control/controlbar.h>
#include <tavoropanel/details/detailsview.h>
#include <tavoropanel/devices/devicesview.h>
#include <tavoropanel/files/filesview.h>
#include <tavoropanel/files/sourcesview.h>
#include <tavoropanel/live/livebar.h>
#include <tavoropanel/log/logview.h>
#include <tavoropanel/presets/presetsview.h>

namespace Tavoro::Panel {

namespace {

template <class View>
QWidget *make(const PartContext &context, QWidget *parent)
{
    return new View(context.selection, context.messages, context.changes, context.actions, parent);
}

QWidget *makeDevices(const PartContext &context, QWidget *parent)
{
    return new DevicesView(context.session, context.selection, context.messages, context.actions,
                           parent);
}

QWidget *makeControl(const PartContext &context, QWidget *parent)
{
    return new ControlBar(context.selection, context.messages, context.actions, parent);
}

QWidget *makeLive(const PartContext &context, QWidget *parent)
{
    return new LiveBar(context.selection, context.changes, context.actions, parent);
}

QWidget *makeLog(const PartContext &context, QWidget *parent)
{
    return new LogView(context.messages, context.actions, parent);
}

#define TITLE(text) QT_TRANSLATE_NOOP("Tavoro::Panel::MainWindow", text)

} // namespace

const std::vector<PartRow> &partsTable()
{
    // clang-format off
    static const std::vector<PartRow> table = {
        {"control", Area::Top,    TITLE("Control"),       makeControl},
        {"devices", Area::Left,   TITLE("Devices"),       makeDevices},
        {"canvas",  Area::Centre, TITLE("Canvas"),        make<CanvasView>},
        {"details", Area::Right,  TITLE("Details"),       make<DetailsView>},
        {"presets", Area::Bottom, TITLE("Presets"),       make<PresetsView>},
        {"sources", Area::Bottom, TITLE("Sources"),       make<SourcesView>},
        {"files",   Area::Bottom, TITLE("Images"),        make<FilesView>},
        {"log",     Area::Bottom, TITLE("Log"),           makeLog},
        {"live",    Area::Foot,   TITLE("Live controls"), makeLive},
    };
    // clang-format on
    return table;
}

} // namespace Tavoro::Panel
