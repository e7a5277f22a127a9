#include <support/common/datatable.h>
#include <support/tavorocontrol/operationtest.h>
#include <support/tavorocontrol/requestpath.h>

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/file.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

#include <utility>

using namespace Tavoro;
using Tavoro::Control::ControlHelper;

namespace {

constexpr auto context = "Tavoro::Control::ControlHelper";
constexpr auto listContext = "Tavoro::Control::DeviceList";
constexpr auto syncContext = "Tavoro::Control::SyncDeviceTask";
constexpr auto saveContext = "Tavoro::Control::SaveFilePrivate";
constexpr auto identityContext = "Tavoro::ProtoModel"; ///< Of the text form of an identity.

/// Translates the texts of the request path and of the device list by putting them between marks.
/// One sentence gets a different word order.
class Marks : public QTranslator {
public:
    Marks() { QCoreApplication::installTranslator(this); }
    ~Marks() override { QCoreApplication::removeTranslator(this); }
    Marks(const Marks &) = delete;
    Marks &operator=(const Marks &) = delete;

    bool isEmpty() const override { return false; }
    QString translate(const char *textContext, const char *sourceText, const char *,
                      int) const override
    {
        if (qstrcmp(textContext, context) != 0 && qstrcmp(textContext, listContext) != 0)
            return {};
        if (qstrcmp(sourceText, "Set %1 failed: %2 .") == 0)
            return QStringLiteral("«%2: %1»");
        return QStringLiteral("«%1»").arg(QString::fromUtf8(sourceText));
    }
};

/// Context and source of each text in a file of lupdate, with a tab between them.
QStringList textsOf(const QString &fileName)
{
    QStringList texts;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    QXmlStreamReader xml(&file);
    QString currentContext;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            currentContext = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            texts.append(currentContext + QLatin1Char('\t') + xml.readElementText());
    }
    return texts;
}

bool hasLupdate()
{
    return !QStringLiteral(LUPDATE).endsWith(QLatin1String("NOTFOUND"));
}

} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void lupdateFindsTheText_data();
    void lupdateFindsTheText();
    void lupdateFindsNoOtherContext();
    void labelsAndErrorTextsAreTranslated();
    void missingLabelsAndTextsStayUntranslated();
    void sentencesAreTranslatedAndLogWordsAreNot();
    void translationMayReorderTheSentence();
    void missingRequestIsReportedInTranslation();
    void decodingFailureIsTranslated();
    void decodingFailureOfTheSelfCheckIsTranslated();
    void missingDeviceOfAReportIsTranslated();
    void missingDeviceOfASynchronisationIsTranslated();

private:
    QTemporaryDir m_dir;
    QStringList m_found;
};

void tst_Translations::initTestCase()
{
    if (!hasLupdate())
        return;
    const QString catalogue = m_dir.filePath(QStringLiteral("found.ts"));
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(LUPDATE),
                  {QStringLiteral(CONTROL_SOURCE_DIR), QStringLiteral("-ts"), catalogue});
    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QVERIFY2(process.exitCode() == 0, process.readAll().constData());
    m_found = textsOf(catalogue);
}

void tst_Translations::lupdateFindsTheText_data()
{
    QTest::addColumn<QString>("textContext");
    QTest::addColumn<QString>("text");

    const auto labels = dataTable(QStringLiteral("commandlabels.tsv"));
    for (const QStringList &row : labels)
        QTest::addRow("label %s %s", qPrintable(row.at(0)), qPrintable(row.at(1)))
            << context << row.at(2);
    const auto errors = dataTable(QStringLiteral("errortexts.tsv"));
    for (const QStringList &row : errors)
        QTest::addRow("status %s", qPrintable(row.at(0))) << context << row.at(1);

    // clang-format off
    QTest::newRow("status of the device")  << context << "hardware error:%1";
    QTest::newRow("read failed")           << context << "Get %1 failed: %2 .";
    QTest::newRow("write failed")          << context << "Set %1 failed: %2 .";
    QTest::newRow("read done")             << context << "Get %1 successfully.";
    QTest::newRow("write done")            << context << "Set %1 successfully.";
    QTest::newRow("null request")          << context << "Invalid request command";
    QTest::newRow("model device gone")     << context << "invalid device model data";
    QTest::newRow("channel not ready")     << context << "The device is offline";
    QTest::newRow("null response")         << context << "invalid response command model data";
    QTest::newRow("message box")           << context << "Device data has been updated, please synchronize now.";
    QTest::newRow("cancelled")             << context << "Operation has been cancelled.";
    QTest::newRow("controlled by others")  << context << "The device is controlled by others.";
    QTest::newRow("decoding failed")       << context << "Decode json failed: ";
    QTest::newRow("body not decoded")      << context << " error json is : ";
    QTest::newRow("device of a report")    << context << "Device is null.";
    QTest::newRow("device to read")        << listContext << "Device model is nullptr";
    QTest::newRow("device busy")           << syncContext << "Device not ready.";
    QTest::newRow("device gone")           << syncContext << "Device offline";
    QTest::newRow("file not opened")       << saveContext << "File open failed. file path: %1";
    // clang-format on
}

void tst_Translations::lupdateFindsTheText()
{
    if (!hasLupdate())
        QSKIP("lupdate is not installed");
    QFETCH(const QString, textContext);
    QFETCH(const QString, text);
    QVERIFY(m_found.contains(textContext + QLatin1Char('\t') + text));
}

void tst_Translations::lupdateFindsNoOtherContext()
{
    if (!hasLupdate())
        QSKIP("lupdate is not installed");
    const QStringList contexts{QLatin1String(context), QLatin1String(listContext),
                               QLatin1String(syncContext), QLatin1String(saveContext),
                               QLatin1String(identityContext)};
    for (const QString &text : std::as_const(m_found))
        QVERIFY2(contexts.contains(text.section(QLatin1Char('\t'), 0, 0)), qPrintable(text));
}

void tst_Translations::labelsAndErrorTextsAreTranslated()
{
    const Marks marks;
    const auto labels = dataTable(QStringLiteral("commandlabels.tsv"));
    QVERIFY(!labels.isEmpty());
    for (const QStringList &row : labels) {
        QCOMPARE(ControlHelper::commandLabel(static_cast<quint8>(row.at(0).toUInt()),
                                             static_cast<quint8>(row.at(1).toUInt())),
                 QStringLiteral("«%1»").arg(row.at(2)));
    }
    const auto errors = dataTable(QStringLiteral("errortexts.tsv"));
    QVERIFY(!errors.isEmpty());
    for (const QStringList &row : errors) {
        QCOMPARE(ControlHelper::errorText(static_cast<quint16>(row.at(0).toUInt())),
                 QStringLiteral("«%1»").arg(row.at(1)));
    }
    QCOMPARE(ControlHelper::errorText(68), QStringLiteral("«hardware error:68»"));
}

void tst_Translations::missingLabelsAndTextsStayUntranslated()
{
    const Marks marks;
    QCOMPARE(ControlHelper::commandLabel(0x11, 11), QStringLiteral("N/A"));
    QCOMPARE(ControlHelper::errorText(0), QStringLiteral("N/A"));
    QCOMPARE(ControlHelper::errorText(300), QStringLiteral("N/A"));
}

void tst_Translations::sentencesAreTranslatedAndLogWordsAreNot()
{
    const Marks marks;
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::packet("{}", 2));
    path.device.channel->answer(ScriptedAnswer::refusal(9));
    const auto failed = path.read(RequestPath::request(1, 0x1100));
    QCOMPARE(failed.error,
             QStringLiteral("«Get «device detail information» failed: «hardware error:9» .»"));
    QCOMPARE(
        failed.lines,
        textLines(
            {R"(info: TavoroCmd {device} "BC(11), FC(0)." "Get «device detail information».arg2 values:" 4 3 2 1 " lables: 7")",
             R"(warning: TavoroCmd {device} "BC(11), FC(0)." "«Get «device detail information» failed: )"
             R"(«hardware error:9» .»" " lables: 7" ",send count/total count:1/2")",
             "status bar 2 for 5000 ms: «Get «device detail information» failed: «hardware "
             "error:9» .»"}));

    const auto done = path.read(RequestPath::request(1, 0x1100));
    QCOMPARE(done.lines.last(),
             QStringLiteral(
                 "status bar 0 for 5000 ms: «Get «device detail information» successfully.»"));
    QVERIFY(done.lines.at(1).endsWith(QStringLiteral(R"(" lables: 7, content:" "")")));
}

void tst_Translations::translationMayReorderTheSentence()
{
    const Marks marks;
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::refusal(68));
    const auto failed = path.write(RequestPath::request(2, 0x1107, "{}"));
    QCOMPARE(failed.error,
             QStringLiteral("««hardware error:68»: «device swap status information»»"));
    QVERIFY(failed.lines.contains(
        QStringLiteral("message box 1: «Device data has been updated, please synchronize now.»")));
}

void tst_Translations::missingRequestIsReportedInTranslation()
{
    const Marks marks;
    RequestPath path;
    const auto outcome = path.read(nullptr);
    QCOMPARE(outcome.error, QStringLiteral("«Invalid request command»"));
    QCOMPARE(outcome.lines, textLines({R"(warning: "TavoroCmd :«Invalid request command»")"}));
}

void tst_Translations::decodingFailureIsTranslated()
{
    const Marks marks;
    Controlled<Control::Device> it;
    it.device.channel->answerBody("");
    ProtoModel::Device::s_DeviceDetail detail;
    QVERIFY(!it.control.readDetails(detail, it.error));
    QVERIFY2(it.error.startsWith(QStringLiteral("«Decode json failed: »")), qPrintable(it.error));
}

void tst_Translations::decodingFailureOfTheSelfCheckIsTranslated()
{
    const Marks marks;
    Controlled<Control::Auxiliary> it;
    it.device.channel->answerBody("broken");
    ProtoModel::Auxiliary::s_DeviceSelfCheckDetail detail;
    QVERIFY(!it.control.readDeviceSelfCheckDetail(detail, it.error));
    QVERIFY2(it.error.startsWith(QStringLiteral("«Decode json failed: »")), qPrintable(it.error));
    QVERIFY2(it.error.endsWith(QStringLiteral("« error json is : »broken")), qPrintable(it.error));
}

void tst_Translations::missingDeviceOfAReportIsTranslated()
{
    const Marks marks;
    QString error;
    QVERIFY(!Control::Device({}, nullptr).updatePowerConfig("{}", error));
    QCOMPARE(error, QStringLiteral("«Device is null.»"));
    std::vector<ProtoModel::File::s_FileTransPercent> percents;
    error.clear();
    QVERIFY(!Control::File({}, nullptr).updateTransferProgress("[]", percents, error));
    QCOMPARE(error, QStringLiteral("«Device is null.»"));
}

void tst_Translations::missingDeviceOfASynchronisationIsTranslated()
{
    const Marks marks;
    Control::DeviceList list(nullptr);
    QString error;
    QVERIFY(!list.readDeviceDetail({}, error));
    QCOMPARE(error, QStringLiteral("«Device model is nullptr»"));
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_translations.moc"
