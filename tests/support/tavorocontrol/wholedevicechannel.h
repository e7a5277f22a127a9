#pragma once

#include "scriptedchannel.h"

#include <QStringList>

#include <array>
#include <map>

/// A scripted channel that answers each command like a small device: with one interface, an
/// ordinary screen and a multiviewer, a layer and two files. Every answer can be replaced.
class WholeDeviceChannel : public ScriptedChannel {
public:
    WholeDeviceChannel();

    std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request) override;

    /// Sets the answer to a command.
    void reply(quint16 code, const ScriptedAnswer &answer);
    void replyBody(quint16 code, const std::string &body);
    /// Sets the answer to the read of one file's content.
    void replyContent(int fileType, int fileId, const ScriptedAnswer &answer);

    /// The requests so far, one "type code arguments" each, the last two in hexadecimal.
    QStringList asked() const;

private:
    using Key = std::array<int, 3>; ///< Code, and two arguments for contents of files.

    std::map<Key, ScriptedAnswer> m_replies;
};
