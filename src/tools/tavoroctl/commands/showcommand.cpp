#include "commandlist.h"

#include <tavoroctl/model/snapshot.h>

namespace Tavoro::Ctl {

ExitStatus runShow(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Everything);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    QString error;
    Snapshot snapshot;
    if (!snapshot.read(device, error))
        return fail(tool, error);
    show(tool, snapshot.json(), snapshot.tables());
    return Done;
}

} // namespace Tavoro::Ctl
