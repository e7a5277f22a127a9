#pragma once

#include "export.h"

#include <QString>

QT_BEGIN_NAMESPACE
class QLocale;
QT_END_NAMESPACE

/// The language of the texts for people: errors, states, outcomes, and what programs print.
///
/// The libraries contain their texts in English, German, French and simplified Chinese. They follow
/// the locale of the application, QLocale(), from the moment in which a QCoreApplication is
/// created; without a QCoreApplication, and in all other languages, the texts are English. What
/// programs read is the same in every language: keys, names of operations, JSON, the words of the
/// log.
///
/// Every function may be called from any thread. The language changes on the thread of the
/// application object, which gets QEvent::LanguageChange.
namespace Tavoro::Translations {

/// Switches all texts to the language of \a locale. A text that was made before keeps its language.
/// Takes effect at once on the application's thread, and otherwise when its event loop runs;
/// without an application object it has no effect.
TAVOROPROTO_EXPORT void setLocale(const QLocale &locale);

/// The language of the texts as in the names of catalogues: "de", "fr" or "zh_CN"; empty for
/// English.
TAVOROPROTO_EXPORT QString language();

/// Adds a catalogue of an application, which follows the language as the texts of the libraries do.
/// \a prefix is the path of its files or resources without the language: the German file of
/// "/share/app/app" is "/share/app/app_de.qm". A language without a file stays English. Adding a
/// prefix again has no effect.
TAVOROPROTO_EXPORT void addCatalogue(const QString &prefix);

} // namespace Tavoro::Translations
