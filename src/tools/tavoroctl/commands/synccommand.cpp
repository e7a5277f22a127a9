// Reads a whole device into the model and shows the model.

#include "commandlist.h"

#include <tavorobizmodel/device.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/model/modelreader.h>
#include <tavoroctl/output/jsonline.h>
#include <tavoroctl/output/modeltree.h>

namespace Tavoro::Ctl {

ExitStatus runSync(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    const bool isWhole = readModel(tool.console, device);
    if (const auto model = listedDevice(*device))
        show(tool, indented(modelJson(*model)), modelTree(*model));
    return isWhole ? Done
                   : fail(tool, Texts::tr("The device could not be read completely."), Failed);
}

} // namespace Tavoro::Ctl
