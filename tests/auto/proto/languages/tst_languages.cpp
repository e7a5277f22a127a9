// The language of the texts for people, and when it changes.

#include <tavorocontrol/proto/translations.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTest>

#include <memory>
#include <thread>

using namespace Tavoro;

namespace {

/// An application in the given locale.
class Application {
public:
    explicit Application(const QString &locale)
    {
        QLocale::setDefault(QLocale(locale));
        m_application = std::make_unique<QCoreApplication>(m_count, m_arguments);
    }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char *m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

QString lostConnection()
{
    return QCoreApplication::translate("Tavoro::Outcome", "the connection was lost");
}

const QString english = QStringLiteral("the connection was lost");
const QString german = QStringLiteral("die Verbindung ging verloren");
const QString french = QStringLiteral("la connexion a été perdue");
const QString chinese = QStringLiteral("连接已丢失");

} // namespace

class tst_Languages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsFollowTheLocaleOfTheApplication_data();
    void textsFollowTheLocaleOfTheApplication();
    void eachLibraryIsTranslated_data();
    void eachLibraryIsTranslated();
    void secondApplicationHasItsOwnLanguage();
    void languageChangesWhileTheApplicationRuns();
    void languageChangesFromAnotherThread();
    void withoutAnApplicationTextsAreEnglish();
    void missingCatalogueIsLeftOut();
};

void tst_Languages::textsFollowTheLocaleOfTheApplication_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");

    // clang-format off
    QTest::newRow("no language")         << "C"          << ""      << english;
    QTest::newRow("English")             << "en_GB"      << ""      << english;
    QTest::newRow("German")              << "de_DE"      << "de"    << german;
    QTest::newRow("Swiss German")        << "de_CH"      << "de"    << german;
    QTest::newRow("French")              << "fr_FR"      << "fr"    << french;
    QTest::newRow("Canadian French")     << "fr_CA"      << "fr"    << french;
    QTest::newRow("simplified Chinese")  << "zh_CN"      << "zh_CN" << chinese;
    QTest::newRow("Singapore")           << "zh_Hans_SG" << "zh_CN" << chinese;
    QTest::newRow("traditional Chinese") << "zh_TW"      << ""      << english;
    QTest::newRow("not translated")      << "it_IT"      << ""      << english;
    // clang-format on
}

void tst_Languages::textsFollowTheLocaleOfTheApplication()
{
    QFETCH(const QString, locale);
    const Application application(locale);
    QTEST(Translations::language(), "language");
    QTEST(lostConnection(), "text");
}

void tst_Languages::eachLibraryIsTranslated_data()
{
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("text");

    // clang-format off
    QTest::newRow("channels")       << QByteArray("Tavoro::SSProxy::DeviceManager")       << QByteArray("The device at %1 is not connected.")
        << QStringLiteral("Das Gerät unter %1 ist nicht verbunden.");
    QTest::newRow("device model")   << QByteArray("Tavoro::BizModel::Device")             << QByteArray("Power supply %1")
        << QStringLiteral("Netzteil %1");
    QTest::newRow("control")        << QByteArray("Tavoro::Control::ControlHelper")       << QByteArray("Set %1 successfully.")
        << QStringLiteral("„%1“ wurde gesetzt.");
    QTest::newRow("operations")     << QByteArray("Tavoro::Operations")                   << QByteArray("a number is missing")
        << QStringLiteral("eine Zahl fehlt");
    QTest::newRow("sessions")       << QByteArray("Tavoro::DeviceSession")                << QByteArray("%1 is ready.")
        << QStringLiteral("%1 ist bereit.");
    QTest::newRow("item models")    << QByteArray("Tavoro::Models::SessionEditHandler")   << QByteArray("The device is not open.")
        << QStringLiteral("Das Gerät ist nicht geöffnet.");
    // clang-format on
}

void tst_Languages::eachLibraryIsTranslated()
{
    QFETCH(const QByteArray, context);
    QFETCH(const QByteArray, source);
    const Application application(QStringLiteral("de_DE"));
    QTEST(QCoreApplication::translate(context, source), "text");
}

void tst_Languages::secondApplicationHasItsOwnLanguage()
{
    {
        const Application first(QStringLiteral("de_DE"));
        QCOMPARE(lostConnection(), german);
    }
    const Application second(QStringLiteral("fr_FR"));
    QCOMPARE(lostConnection(), french);
}

void tst_Languages::languageChangesWhileTheApplicationRuns()
{
    const Application application(QStringLiteral("de_DE"));
    Translations::setLocale(QLocale(QStringLiteral("zh_CN")));
    QCOMPARE(Translations::language(), QStringLiteral("zh_CN"));
    QCOMPARE(lostConnection(), chinese);
    Translations::setLocale(QLocale::c());
    QCOMPARE(Translations::language(), QString());
    QCOMPARE(lostConnection(), english);
}

void tst_Languages::languageChangesFromAnotherThread()
{
    const Application application(QStringLiteral("C"));
    std::thread other([] { Translations::setLocale(QLocale(QStringLiteral("fr_FR"))); });
    other.join();
    QCOMPARE(lostConnection(), english);
    QCoreApplication::processEvents();
    QCOMPARE(lostConnection(), french);
}

void tst_Languages::withoutAnApplicationTextsAreEnglish()
{
    Translations::setLocale(QLocale(QStringLiteral("de_DE")));
    QCOMPARE(lostConnection(), english);
}

void tst_Languages::missingCatalogueIsLeftOut()
{
    const Application application(QStringLiteral("de_DE"));
    Translations::addCatalogue(QStringLiteral("/nowhere/app"));
    QCOMPARE(lostConnection(), german);
}

QTEST_APPLESS_MAIN(tst_Languages)
#include "tst_languages.moc"
