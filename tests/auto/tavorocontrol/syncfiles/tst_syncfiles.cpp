#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <QtTest>

using namespace Tavoro;
using FileDetail = ProtoModel::File::s_FileDetail;

/// Which of the listed files are kept, and which contents are read.
class tst_SyncFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void contentIsFetchedByFileType_data();
    void contentIsFetchedByFileType();
    void removedFilesAreNotKept();
    void failedContentDoesNotStopTheNext();
    void contentsWithoutAChannelCountAsRead();
    void filesOfAFailedReadAreStillFetched();
};

namespace {

QStringList fileList(const std::vector<FileDetail> &files)
{
    QStringList list;
    for (const FileDetail &file : files)
        list << QStringLiteral("%1/%2 %3")
                    .arg(file.fileType)
                    .arg(file.fileId)
                    .arg(QString::fromStdString(file.binary));
    return list;
}

/// An answer to the read of the file list, with these files.
std::string fileListBody(std::initializer_list<std::pair<int, int>> typesAndIds)
{
    std::string body;
    for (const auto &[type, id] : typesAndIds)
        body += (body.empty() ? "[" : ",") + std::string(R"({"fileType":)") + std::to_string(type)
            + R"(,"fileId":)" + std::to_string(id) + "}";
    return body + "]";
}

} // namespace

void tst_SyncFiles::contentIsFetchedByFileType_data()
{
    QTest::addColumn<int>("fileType");
    QTest::addColumn<bool>("isFetched");

    QTest::newRow("-1") << -1 << true;
    for (int type = 0; type <= 9; ++type)
        QTest::newRow(qPrintable(QString::number(type))) << type << true;
    QTest::newRow("10") << 10 << false;
    QTest::newRow("11") << 11 << false;
    QTest::newRow("12") << 12 << true;
    QTest::newRow("13") << 13 << false;
    QTest::newRow("14") << 14 << false;
    QTest::newRow("16") << 16 << true;
    QTest::newRow("254") << 254 << true;
}

void tst_SyncFiles::contentIsFetchedByFileType()
{
    QFETCH(const int, fileType);
    QFETCH(const bool, isFetched);
    Synchronised it;
    it.channel->replyBody(0xFA00, fileListBody({{fileType, 3}}));
    it.channel->replyContent(fileType & 0xFF, 3, ScriptedAnswer::packet("content"));
    it.run();

    const QString fetch = QStringLiteral("3 fa04 %1").arg(quint8(fileType), 2, 16, QLatin1Char('0'))
        + QStringLiteral("030000");
    QCOMPARE(it.asked().mid(6), isFetched ? QStringList(fetch) : QStringList());
    QCOMPARE(fileList(it.task.fileDetail()),
             QStringList(QStringLiteral("%1/3 %2").arg(fileType).arg(
                 isFetched ? QStringLiteral("content") : QString())));
    QVERIFY(it.task.isSyncSucess());
}

void tst_SyncFiles::removedFilesAreNotKept()
{
    Synchronised it;
    it.channel->replyBody(0xFA00,
                          fileListBody({{15, 1}, {6, 2}, {15, 3}, {15, 4}, {10, 5}, {15, 6}}));
    it.run();
    QCOMPARE(it.asked().mid(6), textLines({"3 fa04 06020000"}));
    QCOMPARE(fileList(it.task.fileDetail()), textLines({"6/2 ", "10/5 "}));
    using BizModel::Enum::File::FileType;
    QCOMPARE(it.listed()->files().size(), 2);
    QVERIFY(it.listed()->findFile(FileType(15), 3).expired());
    QVERIFY(!it.listed()->findFile(FileType(10), 5).expired());
}

void tst_SyncFiles::failedContentDoesNotStopTheNext()
{
    Synchronised it;
    it.channel->replyBody(0xFA00, fileListBody({{2, 1}, {2, 2}, {2, 3}, {2, 4}}));
    it.channel->replyContent(2, 1, ScriptedAnswer::refusal(5));
    it.channel->replyContent(2, 2, ScriptedAnswer::packet("two"));
    it.channel->replyContent(2, 3, ScriptedAnswer::noResponse());
    it.channel->replyContent(2, 4, ScriptedAnswer::packet("four"));
    it.run();
    QCOMPARE(
        it.asked().mid(6),
        textLines({"3 fa04 02010000", "3 fa04 02020000", "3 fa04 02030000", "3 fa04 02040000"}));
    QCOMPARE(fileList(it.task.fileDetail()), textLines({"2/1 ", "2/2 two", "2/3 ", "2/4 four"}));
    QCOMPARE(it.lines(), textLines({"warning: Read file binary failed."}) + modelStep());
    QCOMPARE(it.listed()->files().size(), 4);
    QVERIFY(!it.listed()->isSyncDataSuccess());
    QVERIFY(it.task.isSyncSucess());
}

// Kept: a device without a channel answers every read with an empty body.
void tst_SyncFiles::contentsWithoutAChannelCountAsRead()
{
    Synchronised it;
    ScriptedAnswer list = ScriptedAnswer::packet(fileListBody({{2, 1}, {2, 2}}));
    list.before = [&] {
        it.device.removeChannel();
    };
    it.channel->reply(0xFA00, list);
    it.run();
    QCOMPARE(fileList(it.task.fileDetail()), textLines({"2/1 ", "2/2 "}));
    QVERIFY(it.listed()->isSyncDataSuccess());
    QVERIFY(!it.listed()->isOnline());
}

// Files that were decoded before the error are treated like any other file.
void tst_SyncFiles::filesOfAFailedReadAreStillFetched()
{
    Synchronised it;
    it.channel->replyBody(0xFA00, R"([{"fileType":15,"fileId":9},{"fileType":6,"fileId":4},3])");
    it.run();
    QCOMPARE(it.asked().mid(6).first(), QStringLiteral("3 fa04 06040000"));
    QCOMPARE(it.lines().first(), QStringLiteral("warning: Read file details failed."));
}

QTEST_GUILESS_MAIN(tst_SyncFiles)
#include "tst_syncfiles.moc"
