// Stores screens of a device as a preset, and applies one.

#include "commandlist.h"
#include "setupfile.h"

#include <tavorocontrol/file.h>
#include <tavorocontrol/preset.h>
#include <tavorocontrol/screen.h>
#include <tavoroctl/arguments/number.h>
#include <tavoroctl/arguments/texts.h>

#include <algorithm>
#include <limits>
#include <set>

namespace Tavoro::Ctl {

namespace {

bool readPresetFile(const Arguments &arguments, SetupFile &file, QString &fault)
{
    return readSetupFile(arguments, QStringLiteral("screen-preset"), QStringLiteral("Preset"), file,
                         fault);
}

/// Reads the IDs of screens. An empty set stands for all screens.
bool readScreenNumbers(const QStringList &words, std::set<int> &numbers, QString &fault)
{
    for (const QString &word : words) {
        int number = 0;
        if (!readNumber(word, std::numeric_limits<quint8>::max(), number)) {
            fault = Texts::tr("\"%1\" is not a valid screen ID (0 to 255)").arg(word);
            return false;
        }
        numbers.insert(number);
    }
    return true;
}

/// Finds the screens of \a device with these IDs, of any type. False with the reason in \a error if
/// one is missing.
bool findScreens(const std::shared_ptr<BizModel::Device> &device, std::set<int> numbers,
                 std::vector<ProtoModel::s_ScreenId> &screens, QString &error)
{
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> details;
    if (!Control::Screen(device).readDetails(-1, 0, -1, details, error))
        return false;
    const bool all = numbers.empty();
    for (const ProtoModel::Screen::s_ScreenFullDetail &screen : details) {
        if (all || numbers.count(screen.screenId) != 0)
            screens.push_back(screen);
    }
    for (const ProtoModel::s_ScreenId &screen : screens)
        numbers.erase(screen.screenId);
    if (!numbers.empty())
        error = Texts::tr("The device has no screen %1.").arg(*numbers.begin());
    return numbers.empty();
}

} // namespace

ExitStatus runPresetSave(Tool &tool, const Arguments &arguments)
{
    SetupFile file;
    std::set<int> numbers;
    QString fault;
    if (!readPresetFile(arguments, file, fault)
        || !readScreenNumbers(arguments.words.mid(2), numbers, fault))
        return refuse(tool, fault);
    return carryOut(tool, arguments.words.at(0), [&](const auto &device, QString &error) {
        ProtoModel::File::s_CreatePresetFile preset{file.id, file.general, {}};
        return findScreens(device, numbers, preset.screens, error)
            && Control::File(device).writeCreatePresetFile({preset}, error);
    });
}

ExitStatus runPresetApply(Tool &tool, const Arguments &arguments)
{
    SetupFile file;
    QString fault;
    const QString applyType =
        arguments.options.value(QStringLiteral("apply-type"), QStringLiteral("0"));
    if (!readPresetFile(arguments, file, fault))
        return refuse(tool, fault);
    ProtoModel::Preset::s_PresetPlay play{file.id, 0};
    if (!readNumber(applyType, std::numeric_limits<qint32>::max(), play.applyType))
        return refuse(tool, Texts::tr("\"%1\" is not a number").arg(applyType));
    return carryOut(tool, arguments.words.at(0), [&](const auto &device, QString &error) {
        return Control::Preset(device).presetApply({play}, error);
    });
}

} // namespace Tavoro::Ctl
