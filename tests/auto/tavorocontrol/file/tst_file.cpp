#include <support/tavorocontrol/writetests.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/proto/codec.h>

#include <QtTest>

using namespace Tavoro::ProtoModel::File;
using Tavoro::Control::File;
using Tavoro::ProtoModel::ProjectFile::s_ProjectFileApply;
using FileType = Tavoro::BizModel::Enum::File::FileType;

static_assert(std::is_base_of_v<QObject, File>);
static_assert(std::is_constructible_v<File, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);
static_assert(std::is_same_v<decltype(&File::readDetails),
                             bool (File::*)(int, int, std::vector<s_FileDetail> &, QString &)>);
static_assert(std::is_same_v<decltype(&File::writeFile),
                             bool (File::*)(const std::vector<s_FileInfo> &, QString &)>);
static_assert(std::is_same_v<decltype(&File::setCancelledState), void (File::*)(bool)>);

namespace {

// clang-format off
const std::vector<WriteRow<File>> &fileWrites()
{
    static const std::vector<WriteRow<File>> rows = {
        byReference<s_DeleteFile>("writeDeleteFiles", &File::writeDeleteFiles, 0xFA01, {{{3, 6}}, {{4, 8}}},
            R"([{"fileId":3,"fileType":6},{"fileId":4,"fileType":8}])"),
        byReference<s_ModifyFileInfo>("writeFilesInfo", &File::writeFilesInfo, 0xFA02, {{{3, 6}, {"new"}, 5, 8}},
            R"([{"fileId":3,"fileType":6,"general":{"name":"new"},"desFileId":5,"desFileType":8}])"),
        byReference<s_FileInfo>("importFile", &File::importFile, 0xFA03, {{{3, 2}, {"logo"}, {4096, -1, 64, 32}, {1, 2, 3}}},
            R"([{"fileId":3,"fileType":2,"general":{"name":"logo"},"size":{"length":4096,"hashSum":-1,"width":64,"height":32},)"
            R"("interfaceIds":{"slotId":1,"connectorId":2,"splitId":3}}])"),
        byReference<s_CreateImageFile>("writeCreateImageFile", &File::writeCreateImageFile, 0xFA06, {{{3, 0}, {"shot"}, {4, 5, 6}}},
            R"([{"fileId":3,"fileType":0,"general":{"name":"shot"},"source":{"id":4,"type":5,"zoomRatio":6}}])"),
        byReference<s_CreatePresetFile>("writeCreatePresetFile", &File::writeCreatePresetFile, 0xFA07, {{{3, 6}, {"p"}, {{1, 2}, {3, 4}}}, {{4, 8}, {}, {}}},
            R"([{"fileId":3,"fileType":6,"general":{"name":"p"},"screens":[{"screenId":1,"screenType":2},{"screenId":3,"screenType":4}]},)"
            R"({"fileId":4,"fileType":8,"general":{"name":"N/A"},"screens":[]}])"),
        byReference<s_CreateProjFile>("writeCreateProjectFile", &File::writeCreateProjectFile, 0xFA08, {{{3, 12}, {"show"}, {1, 2, 3, 4}}},
            R"([{"fileId":3,"fileType":12,"general":{"name":"show"},"contain":{"other":1,"BKG":2,"logo":3,"preset":4}}])"),
        byReference<s_CreateLogFile>("writeCreateLogFile", &File::writeCreateLogFile, 0xFA09, {{{3, 10}, {"log"}, {{1, 2}, {3, 4}}}},
            R"([{"fileId":3,"fileType":10,"general":{"name":"log"},"parts":[{"type":1,"slotId":2},{"type":3,"slotId":4}]}])"),
        byReference<s_CreateFileInfo>("edidCreateFileBinary", &File::edidCreateFileBinary, 0xFA0B, {{{3, 11}, {"edid"}, {1, 2, 3}}},
            R"([{"fileId":3,"fileType":11,"general":{"name":"edid"},"interfaceId":{"slotId":1,"connectorId":2,"splitId":3}}])"),
        byReference<s_ProjectFileApply>("writeApplyProjectFile", &File::writeApplyProjectFile, 0x1601, {{{3, 12}}},
            R"([{"fileId":3,"fileType":12}])"),
    };
    return rows;
}
// clang-format on

/// The records that the caller of readDetails() gets.
struct Listing {
    bool ok;
    QStringList names;
    QString error;
};

Listing readDetails(Controlled<File> &it, std::vector<s_FileDetail> files = {})
{
    Listing listing;
    listing.ok = it.control.readDetails(6, -1, files, it.error);
    for (const s_FileDetail &file : files)
        listing.names << asText(file.general.name);
    listing.error = it.error;
    return listing;
}

} // namespace

class tst_File : public ListWriteTests {
    Q_OBJECT

public:
    tst_File() : ListWriteTests(checked(fileWrites())) { }

private Q_SLOTS:
    void deviceStaysForTheLengthOfAProjectApply();
    void deletedFileStaysInTheModel();
    void writeFileReturnsFalseAndSendsNothing_data();
    void writeFileReturnsFalseAndSendsNothing();

    void readDetailsNamesTypeAndIdInTheHead_data();
    void readDetailsNamesTypeAndIdInTheHead();
    void readDetailsDecodesEveryField();
    void emptyAnswerListIsASuccess();
    void readDetailsAppends();
    void undecodableAnswerKeepsWhatWasDecoded();
    void undecodableAnswerIsNeitherLoggedNorShown();
    void readWithoutChannelFailsToDecode();
    void failedReadReturnsTheSentence();
    void readHasTheTimeoutOfTheTable();
    void cancelledStateStopsNeitherReadsNorWrites();
};

void tst_File::deviceStaysForTheLengthOfAProjectApply()
{
    Controlled<File> it;
    const std::weak_ptr<Tavoro::BizModel::Device> device = it.device.model;
    bool isThere = false;
    ScriptedAnswer answer;
    answer.before = [&] {
        it.device.model.reset();
        isThere = !device.expired();
    };
    it.device.channel->answer(answer);
    QVERIFY(it.control.writeApplyProjectFile({{{3, 12}}}, it.error));
    QVERIFY(isThere);
    QVERIFY(device.expired());
}

void tst_File::deletedFileStaysInTheModel()
{
    Controlled<File> it;
    QVERIFY(it.device.model->initModelData(std::vector<s_FileDetail>{{{3, 6}, {}, {}, {}, {}}},
                                           it.error));
    QVERIFY(it.control.writeDeleteFiles({{{3, 6}}}, it.error));
    QVERIFY(it.device.model->findFile(FileType(6), 3).lock());
}

void tst_File::writeFileReturnsFalseAndSendsNothing_data()
{
    QTest::addColumn<int>("files");
    QTest::newRow("no file") << 0;
    QTest::newRow("two files") << 2;
}

void tst_File::writeFileReturnsFalseAndSendsNothing()
{
    QFETCH(int, files);
    Controlled<File> it;
    QVERIFY(!it.control.writeFile(std::vector<s_FileInfo>(std::size_t(files)), it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(0));
    QCOMPARE(it.journal.lines(), QStringList());
}

void tst_File::readDetailsNamesTypeAndIdInTheHead_data()
{
    QTest::addColumn<int>("fileType");
    QTest::addColumn<int>("fileId");
    QTest::addColumn<QByteArray>("arguments"); // positions 31 to 34

    // clang-format off
    QTest::newRow("all files of all types")            << -1  << -1  << QByteArray("ffff0000");
    QTest::newRow("all files of one type")             << 6   << -1  << QByteArray("06ff0000");
    QTest::newRow("type before id")                    << 8   << 5   << QByteArray("08050000");
    QTest::newRow("lowest numbers")                    << 0   << 0   << QByteArray("00000000");
    QTest::newRow("highest id with a filter")          << 6   << 254 << QByteArray("06fe0000");
    QTest::newRow("id 255 selects all")                << 6   << 255 << QByteArray("06ff0000");
    QTest::newRow("higher ids are cut to their low byte") << 262 << 511 << QByteArray("06ff0000");
    // clang-format on
}

void tst_File::readDetailsNamesTypeAndIdInTheHead()
{
    QFETCH(int, fileType);
    QFETCH(int, fileId);
    QFETCH(QByteArray, arguments);
    Controlled<File> it;
    it.device.channel->answerBody("[]");
    std::vector<s_FileDetail> files;

    QVERIFY(it.control.readDetails(fileType, fileId, files, it.error));
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(1, 0xFA00, arguments));
    QCOMPARE(it.lastSent().body, std::string());
}

void tst_File::readDetailsDecodesEveryField()
{
    const std::string body = R"([{"fileId":3,"fileType":6,"general":{"name":"p"},)"
                             R"("source":{"id":1,"type":2,"zoomRatio":3},)"
                             R"("size":{"length":4,"hashSum":5,"width":6,"height":7}}])";
    Controlled<File> it;
    it.device.channel->answerBody(body);
    std::vector<s_FileDetail> files;
    QVERIFY(it.control.readDetails(6, 3, files, it.error));
    QCOMPARE(it.error, textFromBefore());
    std::string read;
    ajson::encodeRecord(files, read);
    QCOMPARE(asText(read), asText(body));
    QCOMPARE(files.front().binary, std::string()); // the content is read separately
}

void tst_File::emptyAnswerListIsASuccess()
{
    Controlled<File> it;
    it.device.channel->answerBody("[]");
    const Listing listing = readDetails(it);
    QVERIFY(listing.ok);
    QCOMPARE(listing.names, QStringList());
}

void tst_File::readDetailsAppends()
{
    Controlled<File> it;
    it.device.channel->answerBody(R"([{"general":{"name":"b"}},{"general":{"name":"c"}}])");
    const Listing listing = readDetails(it, {{{1, 6}, {"a"}, {}, {}, {}}});
    QVERIFY(listing.ok);
    QCOMPARE(listing.names.join(QLatin1Char(' ')), QStringLiteral("a b c"));
}

void tst_File::undecodableAnswerKeepsWhatWasDecoded()
{
    Controlled<File> it;
    it.device.channel->answerBody(R"([{"general":{"name":"b"}},{"general":{"name":"c"}}!])");
    const Listing listing = readDetails(it, {{{1, 6}, {"a"}, {}, {}, {}}});
    QVERIFY(!listing.ok);
    QCOMPARE(listing.error,
             QStringLiteral("Decode json failed: error at line :0 col :51 msg:no valid array!"));
    QCOMPARE(listing.names.join(QLatin1Char(' ')), QStringLiteral("a b c"));
}

void tst_File::undecodableAnswerIsNeitherLoggedNorShown()
{
    Controlled<File> it;
    it.device.channel->answerBody("{}");
    const Listing listing = readDetails(it);
    QVERIFY(!listing.ok);
    QCOMPARE(
        listing.error,
        QStringLiteral("Decode json failed: error at line :0 col :1 msg:array must start with [."));
    QCOMPARE(it.warnings(), QStringList());
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Get file detail information successfully.")));
}

void tst_File::readWithoutChannelFailsToDecode()
{
    Controlled<File> it;
    it.device.removeChannel();
    const Listing listing = readDetails(it);
    QVERIFY(!listing.ok);
    QCOMPARE(
        listing.error,
        QStringLiteral("Decode json failed: error at line :0 col :0 msg:array must start with [."));
}

void tst_File::failedReadReturnsTheSentence()
{
    Controlled<File> it;
    it.device.channel->answer(ScriptedAnswer::refusal(9));
    const Listing listing = readDetails(it, {{{1, 6}, {"a"}, {}, {}, {}}});
    QVERIFY(!listing.ok);
    QCOMPARE(listing.error,
             QStringLiteral("Get file detail information failed: hardware error:9 ."));
    QCOMPARE(listing.names, QStringList(QStringLiteral("a")));
}

void tst_File::readHasTheTimeoutOfTheTable()
{
    Controlled<File> it;
    it.setTimeouts(7001, {0xFA, 0x00, 7002});
    readDetails(it);
    QCOMPARE(it.lastSent().timeout, 7002);
}

void tst_File::cancelledStateStopsNeitherReadsNorWrites()
{
    Controlled<File> it;
    it.control.setCancelledState(true);
    it.device.channel->answerBody("[]");
    QVERIFY(readDetails(it).ok);
    std::string content;
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QVERIFY(it.control.writeDeleteFiles({}, it.error));
    QVERIFY(it.control.importFileBinary({3, 6}, "content", it.error));
    QCOMPARE(it.sentCount(), std::size_t(4));
}

QTEST_GUILESS_MAIN(tst_File)
#include "tst_file.moc"
