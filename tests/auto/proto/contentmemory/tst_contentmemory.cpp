#include <tavorocontrol/proto/contentmemory.h>

#include <QByteArray>
#include <QTest>

#include <string>

using Tavoro::ProtoModel::reserveForContent;

namespace {

constexpr std::size_t MiB = 1u << 20;

} // namespace

class tst_ContentMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void announcedLengthIsTrustedWithinLimits_data();
    void announcedLengthIsTrustedWithinLimits();
    void contentStaysTheSame();
};

void tst_ContentMemory::announcedLengthIsTrustedWithinLimits_data()
{
    QTest::addColumn<quint64>("received");
    QTest::addColumn<quint64>("more");
    QTest::addColumn<quint64>("announced");
    QTest::addColumn<quint64>("reserved"); // 0: nothing changes
    // clang-format off
    QTest::newRow("unknown length")                    << quint64(1)        << quint64(1)   << quint64(0)          << quint64(0);
    QTest::newRow("short content")                     << quint64(100)      << quint64(100) << quint64(1000)       << quint64(1000);
    QTest::newRow("more than announced")               << quint64(100)      << quint64(101) << quint64(200)        << quint64(0);
    QTest::newRow("64 MiB")                            << quint64(100)      << quint64(100) << quint64(64 * MiB)   << quint64(64 * MiB);
    QTest::newRow("above 64 MiB, few bytes received")  << quint64(100)      << quint64(100) << quint64(65 * MiB)   << quint64(64 * MiB);
    QTest::newRow("a sixteenth received")              << quint64(8 * MiB)  << quint64(100) << quint64(128 * MiB)  << quint64(128 * MiB);
    QTest::newRow("less than a sixteenth received")    << quint64(8 * MiB)  << quint64(100) << quint64(129 * MiB)  << quint64(128 * MiB);
    // clang-format on
}

void tst_ContentMemory::announcedLengthIsTrustedWithinLimits()
{
    QFETCH(const quint64, received);
    QFETCH(const quint64, more);
    QFETCH(const quint64, announced);
    QFETCH(const quint64, reserved);
    std::string content(received, 'c');
    const std::size_t before = content.capacity();
    reserveForContent(content, more, announced);
    QCOMPARE(content.capacity(), reserved == 0 ? before : std::size_t(reserved));
}

void tst_ContentMemory::contentStaysTheSame()
{
    std::string text = "text";
    reserveForContent(text, 1, 8 * MiB);
    QCOMPARE(text, std::string("text"));
    QByteArray bytes = "bytes";
    reserveForContent(bytes, 1, 8 * MiB);
    QCOMPARE(bytes, QByteArray("bytes"));
    QVERIFY(std::size_t(bytes.capacity()) >= 8 * MiB);
}

QTEST_GUILESS_MAIN(tst_ContentMemory)

#include "tst_contentmemory.moc"
