#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/preset.h>

#include <support/proto/recordtest.h>

#include <type_traits>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"File::s_FileGeneral",             probe<File::s_FileGeneral>()},
        {"File::s_FileSource",              probe<File::s_FileSource>()},
        {"File::s_FileSize",                probe<File::s_FileSize>()},
        {"File::s_FileContain",             probe<File::s_FileContain>()},
        {"File::s_LogPart",                 probe<File::s_LogPart>()},
        {"File::s_FileDetail",              probe<File::s_FileDetail>()},
        {"File::s_FileInfo",                probe<File::s_FileInfo>()},
        {"File::s_CreateFileInfo",          probe<File::s_CreateFileInfo>()},
        {"File::s_CreateImageFile",         probe<File::s_CreateImageFile>()},
        {"File::s_CreatePresetFile",        probe<File::s_CreatePresetFile>()},
        {"File::s_CreateProjFile",          probe<File::s_CreateProjFile>()},
        {"File::s_CreateLogFile",           probe<File::s_CreateLogFile>()},
        {"File::s_ModifyFileInfo",          probe<File::s_ModifyFileInfo>()},
        {"File::s_DeleteFile",              probe<File::s_DeleteFile>()},
        {"File::s_FileTransPercent",        probe<File::s_FileTransPercent>()},
        {"ProjectFile::s_ProjectFileApply", probe<ProjectFile::s_ProjectFileApply>()},
        {"Preset::s_PresetPlay",            probe<Preset::s_PresetPlay>()},
    };
    // clang-format on
}

// The progress of a transfer is copied into the model: five integers and nothing else.
static_assert(sizeof(File::s_FileTransPercent) == 5 * sizeof(qint32));
static_assert(std::is_trivially_copyable_v<File::s_FileTransPercent>);

} // namespace

class tst_FileRecords : public RecordTest {
    Q_OBJECT

public:
    tst_FileRecords() : RecordTest({"File", "ProjectFile", "Preset"}, records()) { }

private Q_SLOTS:
    void emptyListSucceedsWithoutFiles();
    void detailWithoutGeneralHasTheNameNA();
    void detailWithoutSourceKeepsAZoomOfOne();
    void unknownKeyIsSkippedAtAnyDepth();
    void announcementHoldsItsInterfaceAsOneObjectUnderAPluralKey();
    void contentIsNeitherWrittenNorRead();
    void transferProgressIsReadAsSignedIntegers();
};

void tst_FileRecords::emptyListSucceedsWithoutFiles()
{
    QVERIFY(decoded<std::vector<File::s_FileDetail>>("[]").empty());
    QCOMPARE(decodeError<std::vector<File::s_FileDetail>>("[]"), QByteArray());
}

void tst_FileRecords::detailWithoutGeneralHasTheNameNA()
{
    const auto detail = decoded<File::s_FileDetail>(R"({"fileId":1,"source":{"zoomRatio":4}})");
    QCOMPARE(detail.general.name, std::string("N/A"));
    QCOMPARE(detail.source.zoomRatio, 4);
}

void tst_FileRecords::detailWithoutSourceKeepsAZoomOfOne()
{
    const auto detail = decoded<File::s_FileDetail>(R"({"fileId":1,"general":{"name":"sky"}})");
    QCOMPARE(detail.source.zoomRatio, 1);
    QCOMPARE(detail.general.name, std::string("sky"));
}

void tst_FileRecords::unknownKeyIsSkippedAtAnyDepth()
{
    const auto detail = decoded<File::s_FileDetail>(
        R"({"fileId":1,"later":[[{"a":{"b":[1,"}",{"fileId":9}]}}]],"fileType":2})");
    QCOMPARE(detail.fileId, 1);
    QCOMPARE(detail.fileType, 2);
}

void tst_FileRecords::announcementHoldsItsInterfaceAsOneObjectUnderAPluralKey()
{
    File::s_FileInfo info;
    info.interfaceIds.slotId = 1;
    info.interfaceIds.connectorId = 2;
    info.interfaceIds.splitId = 3;
    QCOMPARE(encoded(info),
             QByteArray(R"({"fileId":0,"fileType":0,"general":{"name":"N/A"},)"
                        R"("size":{"length":0,"hashSum":0,"width":0,"height":0},)"
                        R"("interfaceIds":{"slotId":1,"connectorId":2,"splitId":3}})"));
}

void tst_FileRecords::contentIsNeitherWrittenNorRead()
{
    File::s_FileDetail detail;
    detail.binary = "content";
    QCOMPARE(encoded(detail), encoded(File::s_FileDetail()));
    QCOMPARE(decoded<File::s_FileDetail>(R"({"fileId":1,"binary":"content"})").binary,
             std::string());
}

void tst_FileRecords::transferProgressIsReadAsSignedIntegers()
{
    const auto figure = decoded<File::s_FileTransPercent>(
        R"({"fileId":-1,"fileType":-2,"type":-3,"percent":-4,"status":-5})");
    QCOMPARE(figure.fileId, -1);
    QCOMPARE(figure.fileType, -2);
    QCOMPARE(figure.type, -3);
    QCOMPARE(figure.percent, -4);
    QCOMPARE(figure.status, -5);
}

QTEST_GUILESS_MAIN(tst_FileRecords)
#include "tst_filerecords.moc"
