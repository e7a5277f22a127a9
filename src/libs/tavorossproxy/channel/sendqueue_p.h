#pragma once

#include <QtGlobal>

#include <deque>
#include <optional>

namespace Tavoro::SSProxy::Internal {

/// The tags of the requests that wait to be sent, in order. Requests for records precede contents
/// of files: contents are long, and an operator may wait for the records. The owner's mutex guards
/// the object.
class SendQueue {
public:
    void add(quint8 tag, bool isContent);
    /// Takes the next tag; that of a content only if \a withContents. Returns nothing if there is
    /// none.
    std::optional<quint8> take(bool withContents);
    void remove(quint8 tag);
    void clear();

private:
    std::deque<quint8> m_records;
    std::deque<quint8> m_contents;
};

} // namespace Tavoro::SSProxy::Internal
