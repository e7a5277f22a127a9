#include <support/common/datatable.h>
#include <support/tavorocontrol/requestpath.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

using Tavoro::Control::ControlHelper;

namespace {

constexpr auto context = "Tavoro::Control::ControlHelper";

/// Puts every text of the request path into marks. One sentence gets another word order.
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
        if (qstrcmp(textContext, context) != 0)
            return {};
        if (qstrcmp(sourceText, "Set %1 failed: %2 .") == 0)
            return QStringLiteral("«%2: %1»");
        return QStringLiteral("«%1»").arg(QString::fromUtf8(sourceText));
    }
};

/// Source texts of one context in a file of lupdate.
QStringList sourcesOf(const QString &fileName)
{
    QStringList sources;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return sources;
    QXmlStreamReader xml(&file);
    QString currentContext;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            currentContext = xml.readElementText();
        else if (xml.name() == QLatin1String("source") && currentContext == QLatin1String(context))
            sources.append(xml.readElementText());
    }
    return sources;
}

} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void lupdateFindsTheText_data();
    void lupdateFindsTheText();
    void labelsAndErrorTextsAreTranslated();
    void missingLabelsAndTextsStayUntranslated();
    void sentencesAreTranslatedAndLogWordsAreNot();
    void translationMayReorderTheSentence();
    void missingRequestIsToldInTranslation();

private:
    QTemporaryDir m_dir;
    QStringList m_found;
};

void tst_Translations::initTestCase()
{
    const QString lupdate = QStringLiteral(LUPDATE);
    if (lupdate.endsWith(QLatin1String("NOTFOUND")))
        return;
    const QString catalogue = m_dir.filePath(QStringLiteral("found.ts"));
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(lupdate, {QStringLiteral(CONTROL_SOURCE_DIR), QStringLiteral("-ts"), catalogue});
    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QVERIFY2(process.exitCode() == 0, process.readAll().constData());
    m_found = sourcesOf(catalogue);
}

void tst_Translations::lupdateFindsTheText_data()
{
    QTest::addColumn<QString>("text");

    const auto labels = dataTable(QStringLiteral("commandlabels.tsv"));
    for (const QStringList &row : labels)
        QTest::addRow("label %s %s", qPrintable(row.at(0)), qPrintable(row.at(1))) << row.at(2);
    const auto errors = dataTable(QStringLiteral("errortexts.tsv"));
    for (const QStringList &row : errors)
        QTest::addRow("status %s", qPrintable(row.at(0))) << row.at(1);

    // clang-format off
    QTest::newRow("status of the device")  << "hardware error:%1";
    QTest::newRow("read failed")           << "Get %1 failed: %2 .";
    QTest::newRow("write failed")          << "Set %1 failed: %2 .";
    QTest::newRow("read done")             << "Get %1 successfully.";
    QTest::newRow("write done")            << "Set %1 successfully.";
    QTest::newRow("null request")          << "Invalid request command";
    QTest::newRow("model device gone")     << "invalid device model data";
    QTest::newRow("channel not ready")     << "The device is offline";
    QTest::newRow("null response")         << "invalid response command model data";
    QTest::newRow("message box")           << "Device data has been updated, please synchronize now.";
    QTest::newRow("cancelled")             << "Operation has been cancelled.";
    QTest::newRow("controlled by others")  << "The device is controlled by others.";
    // clang-format on
}

void tst_Translations::lupdateFindsTheText()
{
    if (QStringLiteral(LUPDATE).endsWith(QLatin1String("NOTFOUND")))
        QSKIP("lupdate is not installed");
    QFETCH(const QString, text);
    QVERIFY2(m_found.contains(text), qPrintable(text));
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

void tst_Translations::missingRequestIsToldInTranslation()
{
    const Marks marks;
    RequestPath path;
    const auto outcome = path.read(nullptr);
    QCOMPARE(outcome.error, QStringLiteral("«Invalid request command»"));
    QCOMPARE(outcome.lines, textLines({R"(warning: "TavoroCmd :«Invalid request command»")"}));
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_translations.moc"
