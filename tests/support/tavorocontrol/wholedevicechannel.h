#pragma once

#include "scriptedchannel.h"

#include <QStringList>

#include <array>
#include <map>

/// A scripted channel that answers by what it is asked, as a small device would: with one
/// interface, an ordinary screen and a multiviewer, a layer and two files. Every answer can be
/// replaced.
class WholeDeviceChannel : public ScriptedChannel {
public:
    WholeDeviceChannel();

    std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request) override;

    /// What the command is answered from now on.
    void reply(quint16 code, const ScriptedAnswer &answer);
    void replyBody(quint16 code, const std::string &body);
    /// What is answered to the fetch of one file's content.
    void replyContent(int fileType, int fileId, const ScriptedAnswer &answer);

    /// The requests so far, one "type code arguments" each, the last two in hexadecimal.
    QStringList asked() const;

private:
    using Key = std::array<int, 3>; ///< Code, and two arguments where they matter.

    std::map<Key, ScriptedAnswer> m_replies;
};
