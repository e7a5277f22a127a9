#include "partstable.h"

#include <tavoropanel/canvas/canvasview.h>
#include <tavoropanel/details/detailsview.h>
#include <tavoropanel/files/filesview.h>
#include <tavoropanel/files/sourcesview.h>
#include <tavoropanel/presets/presetsview.h>

#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

template <class View>
QWidget *make(const PartContext &context, QWidget *parent)
{
    return new View(context.selection, context.messages, context.changes, context.actions, parent);
}

} // namespace

#define TITLE(text) QT_TRANSLATE_NOOP("Tavoro::Panel::MainWindow", text)

const std::vector<PartRow> &partsTable()
{
    // clang-format off
    static const std::vector<PartRow> table = {
        {"canvas",  Area::Centre, TITLE("Canvas"),  make<CanvasView>},
        {"presets", Area::Bottom, TITLE("Presets"), make<PresetsView>},
        {"sources", Area::Bottom, TITLE("Sources"), make<SourcesView>},
        {"files",   Area::Bottom, TITLE("Images"),  make<FilesView>},
        {"details", Area::Right,  TITLE("Details"), make<DetailsView>},
    };
    // clang-format on
    return table;
}

} // namespace Tavoro::Panel
