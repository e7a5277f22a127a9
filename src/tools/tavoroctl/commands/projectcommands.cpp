// Stores the state of a device as a project, and applies one.

#include "commandlist.h"
#include "setupfile.h"

#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/texts.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

using ProtoModel::File::s_FileContain;

/// The kinds of files that a project can contain.
struct KindRow {
    const char *name;
    quint8 s_FileContain::*flag;
};
constexpr KindRow kindRows[] = {
    {"background", &s_FileContain::BKG},
    {"logo", &s_FileContain::logo},
    {"preset", &s_FileContain::preset},
    {"other", &s_FileContain::other},
};

QString kindNames()
{
    QStringList names;
    for (const KindRow &row : kindRows)
        names += QLatin1String(row.name);
    return names.join(QLatin1Char(','));
}

/// Reads the kinds that \a text names: some of them, "all" or "none".
bool readKinds(const QString &text, s_FileContain &contain, QString &fault)
{
    if (text == QLatin1String("none"))
        return true;
    const QString words = text == QLatin1String("all") ? kindNames() : text;
    for (const QString &word : words.split(QLatin1Char(','))) {
        const auto row =
            std::find_if(std::begin(kindRows), std::end(kindRows),
                         [&](const KindRow &r) { return word == QLatin1String(r.name); });
        if (row == std::end(kindRows)) {
            fault = Texts::tr("\"%1\" is not a kind of files; use all, none or some of: %2")
                        .arg(word, kindNames());
            return false;
        }
        contain.*row->flag = 1;
    }
    return true;
}

/// The types of files have no name for projects. Synchronising a device fetches the contents of
/// most types, but not of this one.
bool readProjectFile(const Arguments &arguments, SetupFile &file, QString &fault)
{
    return readSetupFile(arguments, QStringLiteral("10"), QStringLiteral("Project"), file, fault);
}

} // namespace

ExitStatus runProjectSave(Tool &tool, const Arguments &arguments)
{
    SetupFile file;
    s_FileContain contain;
    QString fault;
    const QString kinds = arguments.options.value(QStringLiteral("contain"), QStringLiteral("all"));
    if (!readProjectFile(arguments, file, fault) || !readKinds(kinds, contain, fault))
        return refuse(tool, fault);
    return carryOut(tool, arguments.words.at(0), [&](const auto &device, QString &error) {
        return Control::File(device).writeCreateProjectFile({{file.id, file.general, contain}},
                                                            error);
    });
}

ExitStatus runProjectApply(Tool &tool, const Arguments &arguments)
{
    SetupFile file;
    QString fault;
    if (!readProjectFile(arguments, file, fault))
        return refuse(tool, fault);
    return carryOut(tool, arguments.words.at(0), [&](const auto &device, QString &error) {
        return Control::File(device).writeApplyProjectFile({{file.id}}, error);
    });
}

} // namespace Tavoro::Ctl
