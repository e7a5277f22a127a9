#include <support/tavorocontrol/filetransfer.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>

#include <QtTest>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::File;
using Control::File;
using FileType = BizModel::Enum::File::FileType;

namespace {

static_assert(std::is_same_v<decltype(&File::updateTransferProgress),
                             bool (File::*)(const std::string &, std::vector<s_FileTransPercent> &,
                                            QString &)>);

/// A report of two files, and its records as every receiver sees them.
constexpr auto reportBody = R"([{"fileId":3,"fileType":6,"type":1,"percent":40,"status":2},)"
                            R"({"fileId":9,"fileType":2,"type":-1,"percent":-2,"status":-3}])";

QStringList figures(const std::vector<s_FileTransPercent> &percents)
{
    QStringList figures;
    for (const s_FileTransPercent &p : percents)
        figures << QStringLiteral("%1 %2 %3 %4 %5")
                       .arg(p.fileId)
                       .arg(p.fileType)
                       .arg(p.type)
                       .arg(p.percent)
                       .arg(p.status);
    return figures;
}

QStringList reportFigures()
{
    return {QStringLiteral("3 6 1 40 2"), QStringLiteral("9 2 -1 -2 -3")};
}

/// A device whose model has one file, and a report that is received.
class Report {
public:
    using Percents = std::vector<s_FileTransPercent>;

    Report()
    {
        QString error;
        it.device.model->initModelData(std::vector<s_FileDetail>{{{3, 6}, {"p"}, {}, {}, {}}},
                                       error);
        QObject::connect(
            BizModel::DeviceList::instance(),
            &BizModel::DeviceList::signalFilesTransferProgressChanged, &it.journal,
            [this](const std::weak_ptr<BizModel::Device> &device, const Percents &percents) {
                announced << figures(percents);
                announcedDevice = device;
                seenWhenAnnounced = {int(seen.size()), modelPercent()};
            },
            Qt::DirectConnection);
    }

    bool update(const std::string &body)
    {
        return it.control.updateTransferProgress(body, seen, it.error);
    }

    int modelPercent() const
    {
        const auto file =
            it.device.model ? it.device.model->findFile(FileType(6), 3).lock() : nullptr;
        return file ? file->transferProgress().percent : -1;
    }

    ControlledFile it;
    Percents seen;
    QStringList announced;
    std::weak_ptr<BizModel::Device> announcedDevice;
    QList<int> seenWhenAnnounced; ///< Records of the caller, and the model's percent.
};

} // namespace

class tst_FileTransferReports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void progressReachesSignalCallerAndModel();
    void progressSignalIsEmittedFirst();
    void progressOfAnUnknownFileIsSkipped();
    void progressReplacesTheCallersList();
    void progressForAMissingDeviceIsEmittedAndFails();
    void undecodableProgressIsDropped();
};

void tst_FileTransferReports::progressReachesSignalCallerAndModel()
{
    Report report;
    QVERIFY(report.update(reportBody));
    QCOMPARE(report.it.error, textFromBefore());
    QCOMPARE(report.announced, reportFigures());
    QCOMPARE(report.announcedDevice.lock(), report.it.device.model);
    QCOMPARE(figures(report.seen), reportFigures());
    const auto file = report.it.device.model->findFile(FileType(6), 3).lock();
    QCOMPARE(figures({file->transferProgress()}), QStringList(reportFigures().first()));
    QCOMPARE(report.it.sentCount(), std::size_t(0));
    QCOMPARE(report.it.journal.lines(), QStringList());
}

void tst_FileTransferReports::progressSignalIsEmittedFirst()
{
    Report report;
    QVERIFY(report.update(reportBody));
    QCOMPARE(report.seenWhenAnnounced, (QList<int>{0, 0}));
}

void tst_FileTransferReports::progressOfAnUnknownFileIsSkipped()
{
    Report report;
    // The ID of the model's file with another type, then another ID, and then the file itself.
    QVERIFY(report.update(R"([{"fileId":3,"fileType":8,"percent":10},)"
                          R"({"fileId":4,"fileType":6,"percent":20},)"
                          R"({"fileId":3,"fileType":6,"percent":30}])"));
    QCOMPARE(report.modelPercent(), 30);
    QCOMPARE(int(report.seen.size()), 3);
    QCOMPARE(int(report.announced.size()), 3);
    QCOMPARE(report.it.journal.lines(), QStringList());
}

void tst_FileTransferReports::progressReplacesTheCallersList()
{
    Report report;
    report.seen.resize(5);
    QVERIFY(report.update(reportBody));
    QCOMPARE(figures(report.seen), reportFigures());
    QVERIFY(report.update("[]"));
    QVERIFY(report.seen.empty());
}

void tst_FileTransferReports::progressForAMissingDeviceIsEmittedAndFails()
{
    Report report;
    report.it.device.model.reset();
    QVERIFY(!report.update(reportBody));
    QCOMPARE(report.it.error, QStringLiteral("Device is null."));
    QCOMPARE(report.announced, reportFigures());
    QVERIFY(report.announcedDevice.expired());
    QCOMPARE(figures(report.seen), reportFigures());
}

void tst_FileTransferReports::undecodableProgressIsDropped()
{
    Report report;
    QVERIFY(!report.update(R"([{"fileId":3,"fileType":6,"percent":"x"])"));
    QCOMPARE(report.it.error,
             QStringLiteral("Decode json failed: error at line :0 col :40 "
                            "msg:invalid json document!"));
    QCOMPARE(report.announced, QStringList());
    QVERIFY(report.seen.empty());
    QCOMPARE(report.modelPercent(), 0);
    QCOMPARE(report.it.journal.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_FileTransferReports)
#include "tst_filetransferreports.moc"
