#pragma once

#include "tool.h"

#include <tavoroctl/arguments/fileplace.h>

#include <tavorocontrol/proto/file.h>

namespace Tavoro::Ctl {

/// A file that holds the setup of a device: a preset or a project.
struct SetupFile {
    ProtoModel::s_FileIdentity id;
    ProtoModel::File::s_FileGeneral general; ///< The name from --name, or kind and ID.
};

/// Reads ID, --type and --name of the arguments. \a kind is the first word of the default name.
/// False with the reason in \a fault if the place is not valid.
bool readSetupFile(const Arguments &arguments, const QString &defaultType, const QString &kind,
                   SetupFile &file, QString &fault);

} // namespace Tavoro::Ctl
