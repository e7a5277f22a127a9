#include <tavorossproxy/channel/sendqueue_p.h>

#include <QTest>

#include <initializer_list>

using Tavoro::SSProxy::Internal::SendQueue;

class tst_SendQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_queue = {}; }
    void recordsPrecedeContentsAndEachKindKeepsItsOrder();
    void contentsWaitWhenTheyAreNotWanted();
    void removedTagsAreNotTaken();
    void clearRemovesBothKinds();

private:
    static constexpr bool content = true, record = false;

    /// Takes all tags, and compares them with \a tags.
    bool holds(std::initializer_list<quint8> tags);

    SendQueue m_queue;
};

bool tst_SendQueue::holds(std::initializer_list<quint8> tags)
{
    for (const quint8 tag : tags) {
        if (m_queue.take(true) != tag)
            return false;
    }
    return !m_queue.take(true);
}

void tst_SendQueue::recordsPrecedeContentsAndEachKindKeepsItsOrder()
{
    m_queue.add(1, content);
    m_queue.add(2, record);
    m_queue.add(3, content);
    m_queue.add(4, record);
    QVERIFY(holds({2, 4, 1, 3}));
}

void tst_SendQueue::contentsWaitWhenTheyAreNotWanted()
{
    m_queue.add(1, content);
    QVERIFY(!m_queue.take(false));
    m_queue.add(2, record);
    QCOMPARE(m_queue.take(false), std::optional<quint8>(2));
    QVERIFY(!m_queue.take(false));
    QVERIFY(holds({1}));
}

void tst_SendQueue::removedTagsAreNotTaken()
{
    m_queue.add(1, content);
    m_queue.add(2, content);
    m_queue.add(3, record);
    m_queue.add(4, record);
    m_queue.remove(1);
    m_queue.remove(4);
    m_queue.remove(5);
    QVERIFY(holds({3, 2}));
}

void tst_SendQueue::clearRemovesBothKinds()
{
    m_queue.add(1, content);
    m_queue.add(2, record);
    m_queue.clear();
    QVERIFY(holds({}));
}

QTEST_APPLESS_MAIN(tst_SendQueue)
#include "tst_sendqueue.moc"
