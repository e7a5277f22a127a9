// The tools in other languages.

#include <support/tavoroctl/toolcalls.h>

#include <QProcess>
#include <QTest>

namespace {

/// Sets the variables that select a language, for the programs that the test starts.
void useLocale(const QByteArray &locale, const QByteArray &language = {})
{
    qputenv("LC_ALL", locale);
    qputenv("LANGUAGE", language);
}

} // namespace

class tst_ToolLanguages : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void environmentSelectsTheLanguage_data();
    void environmentSelectsTheLanguage();
    void helpIsTranslated_data();
    void helpIsTranslated();
    void tablesAreTranslated_data();
    void tablesAreTranslated();
    void errorsOfTheDeviceAreTranslated_data();
    void errorsOfTheDeviceAreTranslated();
    void jsonIsTheSameInEveryLanguage_data();
    void jsonIsTheSameInEveryLanguage();
    void syncWorksInEveryLanguageWhenTheClockCannotBeSet_data();
    void syncWorksInEveryLanguageWhenTheClockCannotBeSet();
    void simulatedDeviceIsTranslated_data();
    void simulatedDeviceIsTranslated();
};

void tst_ToolLanguages::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_ToolLanguages::cleanup()
{
    m_bench.reset();
    useLocale("C.UTF-8");
}

void tst_ToolLanguages::environmentSelectsTheLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<QByteArray>("error");
    const QByteArray english = R"(tavoroctl: "[" is not HOST[:PORT])";
    const QByteArray german = "tavoroctl: „[“ ist nicht HOST[:PORT]";
    const QByteArray french = "tavoroctl: «\u00a0[\u00a0» n’est pas HOST[:PORT]";
    const QByteArray chinese = "tavoroctl: “[”不是 HOST[:PORT]";

    // clang-format off
    QTest::newRow("none")                        << QByteArray("C.UTF-8")     << QByteArray()           << english;
    QTest::newRow("C with other languages")      << QByteArray("C")           << QByteArray("de:fr")    << english;
    QTest::newRow("English")                     << QByteArray("en_US.UTF-8") << QByteArray()           << english;
    QTest::newRow("German")                      << QByteArray("de_DE.UTF-8") << QByteArray()           << german;
    QTest::newRow("French")                      << QByteArray("fr_FR.UTF-8") << QByteArray()           << french;
    QTest::newRow("Chinese")                     << QByteArray("zh_CN.UTF-8") << QByteArray()           << chinese;
    QTest::newRow("German in a French country")  << QByteArray("fr_FR.UTF-8") << QByteArray("de")       << german;
    QTest::newRow("English before German")       << QByteArray("de_DE.UTF-8") << QByteArray("en:de")    << english;
    QTest::newRow("first translated of several") << QByteArray("it_IT.UTF-8") << QByteArray("it:fr:de") << french;
    // clang-format on
}

void tst_ToolLanguages::environmentSelectsTheLanguage()
{
    QFETCH(const QByteArray, locale);
    QFETCH(const QByteArray, language);
    QFETCH(const QByteArray, error);
    useLocale(locale, language);
    const Run refused = run({"show", "["});
    QCOMPARE(refused.errors, error + '\n');
    QCOMPARE(refused.exitCode, 2);
}

void tst_ToolLanguages::helpIsTranslated_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("help");
    QTest::newRow("German") << QByteArray("de_DE.UTF-8")
                            << QByteArray("Aufruf: tavoroctl reboot HOST[:PORT]\n"
                                          "Startet das Gerät neu.\n\nOptionen aller Befehle:\n");
    QTest::newRow("French") << QByteArray("fr_FR.UTF-8")
                            << QByteArray("Utilisation\u00a0: tavoroctl reboot HOST[:PORT]\n"
                                          "Redémarre l’appareil.\n\n"
                                          "Options de toutes les commandes\u00a0:\n");
    QTest::newRow("Chinese") << QByteArray("zh_CN.UTF-8")
                             << QByteArray("用法：tavoroctl reboot HOST[:PORT]\n"
                                           "重启设备。\n\n所有命令的选项：\n");
}

void tst_ToolLanguages::helpIsTranslated()
{
    QFETCH(const QByteArray, locale);
    QFETCH(const QByteArray, help);
    useLocale(locale);
    QCOMPARE(run({"help", "reboot"}).output.left(help.size()), help);
}

void tst_ToolLanguages::tablesAreTranslated_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("headings");
    QTest::newRow("German") << QByteArray("de_DE.UTF-8")
                            << QByteArray(
                                   "SCHNITTSTELLE  TYP  NAME      TIMING        FARBTIEFE  HDCP\n");
    QTest::newRow("French") << QByteArray(
        "fr_FR.UTF-8") << QByteArray("INTERFACE  TYPE  NOM       TIMING        PROFONDEUR  HDCP\n");
    QTest::newRow("Chinese") << QByteArray("zh_CN.UTF-8")
                             << QByteArray("接口   类型  名称      时序          色深  HDCP\n");
}

void tst_ToolLanguages::tablesAreTranslated()
{
    QFETCH(const QByteArray, locale);
    QFETCH(const QByteArray, headings);
    useLocale(locale);
    const Run show = run({"show", host()});
    QCOMPARE(show.exitCode, 0);
    QVERIFY2(show.output.contains('\n' + headings), show.output.constData());
}

void tst_ToolLanguages::errorsOfTheDeviceAreTranslated_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("German")
        << QByteArray("de_DE.UTF-8")
        << QByteArray("„Swap-Status des Geräts“ konnte nicht gesetzt werden: Hardwarefehler:4 "
                      "(ein Wert liegt außerhalb seines Bereichs).\n");
    QTest::newRow("French")
        << QByteArray("fr_FR.UTF-8")
        << QByteArray("Échec du réglage «\u00a0état de permutation de l’appareil\u00a0»\u00a0: "
                      "erreur matérielle\u00a0:4 (une valeur est hors plage).\n");
    QTest::newRow("Chinese") << QByteArray(
        "zh_CN.UTF-8") << QByteArray("设置“设备交换状态”失败：硬件错误：4 (有值超出范围)。\n");
}

void tst_ToolLanguages::errorsOfTheDeviceAreTranslated()
{
    QFETCH(const QByteArray, locale);
    QFETCH(const QByteArray, error);
    useLocale(locale);
    const Run refused = call({"Device.writeSwap", R"({"swap":5})"});
    QCOMPARE(refused.errors, error);
    QCOMPARE(refused.exitCode, 4);
}

void tst_ToolLanguages::jsonIsTheSameInEveryLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    for (const char *const locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "zh_CN.UTF-8"})
        QTest::newRow(locale) << QByteArray(locale);
}

void tst_ToolLanguages::jsonIsTheSameInEveryLanguage()
{
    QFETCH(const QByteArray, locale);
    for (const QByteArrayList &words :
         {QByteArrayList{"--json", "help"}, QByteArrayList{"list", "--json", "Device.readDetails"},
          QByteArrayList{"pusch", "--json"}, QByteArrayList{"show", "--json", host()},
          QByteArrayList{"--json", "call", host(), "Device.writeSwap", R"({"swap":5})"}}) {
        useLocale("C.UTF-8");
        const Run english = run(words);
        useLocale(locale);
        const Run other = run(words);
        QCOMPARE(other.output, english.output);
        QCOMPARE(other.errors, english.errors);
        QCOMPARE(other.exitCode, english.exitCode);
    }
}

void tst_ToolLanguages::syncWorksInEveryLanguageWhenTheClockCannotBeSet_data()
{
    jsonIsTheSameInEveryLanguage_data();
}

void tst_ToolLanguages::syncWorksInEveryLanguageWhenTheClockCannotBeSet()
{
    QFETCH(const QByteArray, locale);
    m_bench->console(QStringLiteral("fault add status=4,code=0xFC0C"));
    useLocale(locale);
    QCOMPARE(run({"sync", host()}).exitCode, 0);
}

void tst_ToolLanguages::simulatedDeviceIsTranslated_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("German") << QByteArray("de_DE.UTF-8")
                            << QByteArray("error unbekannter Befehl: jump\n");
    QTest::newRow("French") << QByteArray("fr_FR.UTF-8")
                            << QByteArray("error commande inconnue\u00a0: jump\n");
    QTest::newRow("Chinese") << QByteArray("zh_CN.UTF-8") << QByteArray("error 未知命令：jump\n");
}

void tst_ToolLanguages::simulatedDeviceIsTranslated()
{
    QFETCH(const QByteArray, locale);
    QFETCH(const QByteArray, answer);
    useLocale(locale);
    QProcess device;
    device.start(QStringLiteral(TAVOROSIM),
                 {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--no-discovery")});
    QVERIFY(device.waitForStarted());
    device.write("jump\nquit\n");
    QVERIFY(device.waitForFinished());
    const QByteArray output = device.readAllStandardOutput();
    QVERIFY2(output.startsWith("listening on 127.0.0.1:"), output.constData());
    QVERIFY2(output.endsWith(answer), output.constData());
}

QTEST_GUILESS_MAIN(tst_ToolLanguages)
#include "tst_toollanguages.moc"
