// Stores the state of a device as a project, and applies one.

#include "commandlist.h"

#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>

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
            fault = QStringLiteral("\"%1\" is not a kind of files; use all, none or some of: %2")
                        .arg(word, kindNames());
            return false;
        }
        contain.*row->flag = 1;
    }
    return true;
}

/// The types of files have no name for projects. Synchronising a device fetches the contents of
/// most types, but not of this one.
bool readProjectPlace(const Arguments &arguments, FilePlace &place, QString &fault)
{
    const QString type = arguments.options.value(QStringLiteral("type"), QStringLiteral("10"));
    return readFilePlace(type, arguments.words.at(1), place, fault);
}

} // namespace

ExitStatus runProjectSave(Tool &tool, const Arguments &arguments)
{
    FilePlace place;
    ProtoModel::File::s_CreateProjFile project;
    QString fault;
    const QString kinds = arguments.options.value(QStringLiteral("contain"), QStringLiteral("all"));
    if (!readProjectPlace(arguments, place, fault) || !readKinds(kinds, project.contain, fault))
        return refuse(tool, fault);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    project.fileType = place.type;
    project.fileId = place.id;
    project.general.name =
        arguments.options.value(QStringLiteral("name"), QStringLiteral("Project %1").arg(place.id))
            .toStdString();
    QString error;
    return Control::File(device).writeCreateProjectFile({project}, error) ? Done
                                                                          : fail(tool, error);
}

ExitStatus runProjectApply(Tool &tool, const Arguments &arguments)
{
    FilePlace place;
    QString fault;
    if (!readProjectPlace(arguments, place, fault))
        return refuse(tool, fault);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    ProtoModel::ProjectFile::s_ProjectFileApply project;
    project.fileType = place.type;
    project.fileId = place.id;
    QString error;
    return Control::File(device).writeApplyProjectFile({project}, error) ? Done : fail(tool, error);
}

} // namespace Tavoro::Ctl
