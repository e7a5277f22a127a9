#include "translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMutex>
#include <QPointer>
#include <QStringList>
#include <QTranslator>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace Tavoro::Translations {

namespace {

struct LanguageRow {
    QLocale::Language language;
    QLocale::Script script;
    const char *code; ///< As catalogues are named.
};

// clang-format off
constexpr LanguageRow languageRows[] = {
    {QLocale::German,  QLocale::LatinScript,         "de"},
    {QLocale::French,  QLocale::LatinScript,         "fr"},
    {QLocale::Chinese, QLocale::SimplifiedHanScript, "zh_CN"},
};
// clang-format on

/// The first language of \a locale that is English or has a catalogue.
QString languageOf(const QLocale &locale)
{
    // Otherwise the variable LANGUAGE would count in the locale C, which programs rely on.
    if (locale.language() == QLocale::C)
        return {};
    const QStringList names = locale.uiLanguages();
    for (const QString &name : names) {
        const QLocale each(name);
        if (each.language() == QLocale::English)
            return {};
        const auto *const row = std::find_if(
            std::begin(languageRows), std::end(languageRows), [&](const LanguageRow &candidate) {
                return candidate.language == each.language() && candidate.script == each.script();
            });
        if (row != std::end(languageRows))
            return QLatin1String(row->code);
    }
    return {};
}

/// | member                | thread                                       |
/// |-----------------------|----------------------------------------------|
/// | prefixes, language    | any, guarded by mutex                        |
/// | translators           | that of the application object               |
struct Catalogues {
    QMutex mutex;
    QStringList prefixes{QStringLiteral(":/tavoro/translations/tavorolibs")};
    QString language;
    std::vector<QPointer<QTranslator>> translators; ///< Owned by the application object.
};

Catalogues &catalogues()
{
    static Catalogues the;
    return the;
}

void install(const QString &prefix, const QString &language)
{
    if (language.isEmpty())
        return;
    auto *const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(prefix + QLatin1Char('_') + language)) {
        catalogues().translators.emplace_back(translator);
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator;
    }
}

void show(const QString &language)
{
    Catalogues &the = catalogues();
    QStringList prefixes;
    {
        const QMutexLocker lock(&the.mutex);
        the.language = language;
        prefixes = the.prefixes;
    }
    for (const QPointer<QTranslator> &old : the.translators)
        delete old.data();
    the.translators.clear();
    for (const QString &prefix : std::as_const(prefixes))
        install(prefix, language);
}

/// Calls \a change on the thread of the application object, if there is one.
void onApplicationThread(const std::function<void()> &change)
{
    if (QCoreApplication *const application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, change);
}

/// Runs whenever an application object has been created.
void followApplication()
{
    onApplicationThread([] { show(languageOf(QLocale())); });
}

Q_COREAPP_STARTUP_FUNCTION(followApplication)

} // namespace

void setLocale(const QLocale &locale)
{
    onApplicationThread([language = languageOf(locale)] { show(language); });
}

QString language()
{
    Catalogues &the = catalogues();
    const QMutexLocker lock(&the.mutex);
    return the.language;
}

void addCatalogue(const QString &prefix)
{
    Catalogues &the = catalogues();
    {
        const QMutexLocker lock(&the.mutex);
        if (the.prefixes.contains(prefix))
            return;
        the.prefixes += prefix;
    }
    onApplicationThread([prefix] { install(prefix, language()); });
}

} // namespace Tavoro::Translations
