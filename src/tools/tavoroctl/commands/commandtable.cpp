#include "commandtable.h"

#include "commandlist.h"

#include <tavoroctl/arguments/texts.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Ctl", text)

// clang-format off
constexpr OptionRow commonRows[] = {
//   name              value           effect
    {"help",            "",             TEXT("Show this help.")},
    {"json",            "",             TEXT("Print JSON, also for errors.")},
    {"quiet",           "",             TEXT("Print only answers and errors.")},
    {"request-timeout", "MS",           TEXT("Wait at most MS milliseconds for each answer (as long as the library waits, up to 200 s).")},
    {"timeout",         "MS",           TEXT("Wait MS milliseconds for a device to be ready (5000).")},
    {"verbose",         "",             TEXT("Show the log on standard error.")},
    {"version",         "",             TEXT("Show the version of the program.")},
};
constexpr OptionRow setupOptions[] = {
//   name            value           effect
    {"dry-run",      "",             TEXT("Print the writes as lines of a batch, and make none of them.")},
};
constexpr OptionRow batchOptions[] = {
    {"defaults",     "",             TEXT("Send missing keys of a record at their defaults.")},
    {"dry-run",      "",             TEXT("Print the requests, and send nothing.")},
    {"merge",        "",             TEXT("Send missing keys of a record as the device has them.")},
    {"stop-on-error", "",            TEXT("End after the first call that fails.")},
};
constexpr OptionRow callOptions[] = {
    {"defaults",   "",             TEXT("Send missing keys of a record at their defaults.")},
    {"dry-run",    "",             TEXT("Print the request, and send nothing.")},
    {"merge",      "",             TEXT("Send missing keys of a record as the device has them.")},
};
constexpr OptionRow pushOptions[] = {
    {"type",       "TYPE",         TEXT("Type of the file on the device (background).")},
    {"force",      "",             TEXT("Replace a file that the device has.")},
    {"id",         "ID",           TEXT("ID of the file on the device (a free one, which is printed).")},
    {"name",       "NAME",         TEXT("Name of the file on the device (that of FILE).")},
    {"size",       "WIDTHxHEIGHT", TEXT("Size of an image in pixels.")},
};
constexpr OptionRow upgradeOptions[] = {
    {"reboot",     "",             TEXT("Restart the device afterwards, and wait until it is back.")},
};
constexpr OptionRow saveOptions[] = {
    {"type",       "TYPE",         TEXT("Type of the preset (screen-preset).")},
    {"name",       "NAME",         TEXT("Name of the preset (\"Preset ID\").")},
};
constexpr OptionRow applyOptions[] = {
    {"type",       "TYPE",         TEXT("Type of the preset (screen-preset).")},
    {"apply-type", "NUMBER",       TEXT("How to apply it, a number that the device defines (0).")},
};
constexpr OptionRow projectSaveOptions[] = {
    {"type",       "TYPE",         TEXT("Type of the file (10).")},
    {"name",       "NAME",         TEXT("Name of the project (\"Project ID\").")},
    {"contain",    "KINDS",        TEXT("Kinds of files that it contains, such as logo,preset; or none (all).")},
};
constexpr OptionRow projectApplyOptions[] = {
    {"type",       "TYPE",         TEXT("Type of the file (10).")},
};
constexpr OptionRow replayOptions[] = {
    {"pcapng",     "OUT",          TEXT("Write the capture to OUT for Wireshark instead; - is stdout.")},
};

// In alphabetical order.
constexpr CommandRow commandRows[] = {
//   name, words after it
//   effect                                                                                    function         options
    {"apply", "HOST[:PORT] FILE",
     TEXT("Writes to the device what differs in FILE, a setup that sync wrote; - is stdin."),        runApply,        setupOptions},
    {"batch", "[HOST[:PORT]]",
     TEXT("Makes one call per line of standard input. Without HOST, each line begins with a host."), runBatch,        batchOptions},
    {"call", "HOST[:PORT] OPERATION [ARGUMENT ...]",
     TEXT("Calls one operation: a write takes its record as JSON, a read its filters as numbers."),  runCall,         callOptions},
    {"control", "HOST[:PORT] who|take|release|force",
     TEXT("Shows which client holds control, holds it until Ctrl-C, or ends the control of another."), runControl},
    {"diff", "HOST[:PORT] FILE",
     TEXT("Shows what apply would change on the device; ends with 1 if it would change something."), runDiff},
    {"discover", "[ADDRESS[:PORT] ...]",
     TEXT("Lists the devices on the local network, or those that answer at ADDRESS."),               runDiscover},
    {"files", "HOST[:PORT] [TYPE]",
     TEXT("Lists the files on the device."),                                                         runFiles},
    {"help", "[COMMAND ...]",
     TEXT("Shows the help of the program or of a command."),                                         runHelp},
    {"list", "[OPERATION]",
     TEXT("Lists all operations or those of a class, or shows the record that OPERATION takes."),    runList},
    {"preset apply", "HOST[:PORT] ID",
     TEXT("Applies a preset."),                                                                      runPresetApply,  applyOptions},
    {"preset save", "HOST[:PORT] ID [SCREEN ...]",
     TEXT("Stores the screens with these IDs as a preset; all screens without an ID."),              runPresetSave,   saveOptions},
    {"project apply", "HOST[:PORT] ID",
     TEXT("Applies a project."),                                                                     runProjectApply, projectApplyOptions},
    {"project save", "HOST[:PORT] ID",
     TEXT("Stores all screens, with all files or some kinds of them, as a project."),                runProjectSave,  projectSaveOptions},
    {"pull", "HOST[:PORT] TYPE ID FILE",
     TEXT("Fetches a file from the device into FILE, completely or not at all; - is stdout."),       runPull},
    {"push", "HOST[:PORT] FILE",
     TEXT("Sends FILE to the device; - is standard input."),                                         runPush,         pushOptions},
    {"reboot", "HOST[:PORT]",
     TEXT("Restarts the device."),                                                                   runReboot},
    {"replay", "FILE",
     TEXT("Shows the connections and frames of a capture."),                                         runReplay,       replayOptions},
    {"selfcheck", "HOST[:PORT]",
     TEXT("Shows the measurements of the device; ends with 1 if one is out of its range."),          runSelfCheck},
    {"show", "HOST[:PORT]",
     TEXT("Shows the device, its interfaces, screens and layers as the device reports them."),       runShow},
    {"sync", "HOST[:PORT]",
     TEXT("Reads the whole device into the model and shows the model."),                             runSync},
    {"upgrade", "HOST[:PORT] PACKAGE",
     TEXT("Starts an upgrade from a package on the device, or follows the running one."),            runUpgrade,      upgradeOptions},
    {"version", "HOST[:PORT]",
     TEXT("Shows the versions of the device and of its units."),                                     runVersion},
    {"watch", "HOST[:PORT] [HOST[:PORT] ...]",
     TEXT("Reads the devices as sync does, then shows changes of their models until Ctrl-C."),       runWatch},
};
// clang-format on

} // namespace

const CommandRow *CommandRange::begin() const
{
    return std::begin(commandRows);
}

const CommandRow *CommandRange::end() const
{
    return std::end(commandRows);
}

OptionRange commonOptions()
{
    return commonRows;
}

const CommandRow *findCommand(const QStringList &words)
{
    const auto *const found =
        std::find_if(std::begin(commandRows), std::end(commandRows), [&](const CommandRow &row) {
            const QStringList name = QString::fromLatin1(row.name).split(QLatin1Char(' '));
            return words.mid(0, name.size()) == name;
        });
    return found == std::end(commandRows) ? nullptr : found;
}

bool takesWords(const CommandRow &command, int count)
{
    const QString usage = QString::fromLatin1(command.usage);
    const QString required = usage.section(QStringLiteral(" ["), 0, 0);
    const bool allInBrackets = required.startsWith(QLatin1Char('['));
    const int least = allInBrackets ? 0 : static_cast<int>(required.count(QLatin1Char(' '))) + 1;
    const bool hasOptional = allInBrackets || required != usage;
    if (usage.contains(QLatin1String("...")))
        return count >= least;
    return count == least || (hasOptional && count == least + 1);
}

} // namespace Tavoro::Ctl
