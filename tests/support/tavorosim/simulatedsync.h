#pragma once

#include "simulatedconnection.h"
#include <support/tavorocontrol/wholeread.h>

#include <tavorocontrol/file.h>

#include <QString>

#include <memory>
#include <string>

/// A simulated device that is read completely into the model's list, as an application does.
class SimulatedSync {
public:
    explicit SimulatedSync(const Tavoro::Sim::SimOptions &options = {},
                           const Tavoro::SSProxy::ChannelOptions &channelOptions = {})
        : connection(options, channelOptions)
    { }

    /// Reads the device, waits until the read has ended, and returns its outcome.
    bool run() { return readWhole(*connection.model); }

    /// The device in the model's list.
    std::shared_ptr<Tavoro::BizModel::Device> listed() const { return ::listed(*connection.model); }

    /// Puts a file onto the device.
    bool import(int type, int id, const std::string &content)
    {
        Tavoro::Control::File files(connection.model);
        Tavoro::ProtoModel::File::s_FileInfo info;
        info.fileType = type;
        info.fileId = id;
        info.general.name = "file " + std::to_string(id);
        info.size.length = static_cast<qint32>(content.size());
        QString error;
        return files.importFile({info}, error)
            && files.importFileBinary({id, type}, content, error);
    }

    SimulatedConnection connection;
};
