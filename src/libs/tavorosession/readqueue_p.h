#pragma once

#include <deque>
#include <functional>
#include <set>

namespace Tavoro::SessionInternal {

/// Lets at most some devices be read at the same time; the others wait in the order of their
/// requests. On the session's thread.
class ReadQueue {
public:
    /// Identifies who wants to read.
    using Reader = const void *;

    explicit ReadQueue(std::size_t limit) : m_limit(limit) { }

    /// Calls \a begin when it is the reader's turn, perhaps at once. Until end() is called the
    /// reader must not request again.
    void request(Reader reader, std::function<void()> begin)
    {
        m_waiting.push_back({reader, std::move(begin)});
        startNext();
    }
    /// Withdraws the request, or ends the turn of the reader.
    void end(Reader reader)
    {
        for (auto each = m_waiting.begin(); each != m_waiting.end(); ++each) {
            if (each->reader == reader) {
                m_waiting.erase(each);
                return;
            }
        }
        if (m_running.erase(reader) > 0)
            startNext();
    }

private:
    struct Request {
        Reader reader;
        std::function<void()> begin;
    };

    void startNext()
    {
        while (m_running.size() < m_limit && !m_waiting.empty()) {
            const Request next = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_running.insert(next.reader);
            next.begin();
        }
    }

    const std::size_t m_limit;
    std::deque<Request> m_waiting;
    std::set<Reader> m_running;
};

} // namespace Tavoro::SessionInternal
