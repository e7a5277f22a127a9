// An application that uses only the installed package: it finds a device, reads it into the model,
// operates it and follows its reports. consumer PROGRAM starts a simulated device, consumer ADDRESS
// PORT uses a device that is running.

#include "connection.h"
#include "simulator.h"
#include "steps.h"

#include <tavorocontrol/autoreportmanager.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <iostream>

using namespace Tavoro;

namespace {

struct Step {
    const char *name;
    bool (*run)(Connection &connection);
};

constexpr Step steps[] = {
    {"reads the device into the model", readsIntoTheModel},
    {"takes a new name", takesANewName},
    {"refuses what is out of range", refusesWhatIsOutOfRange},
    {"stores a preset", storesAPreset},
    {"moves a layer", movesALayer},
    {"takes", takes},
    {"freezes and fades to black", freezesAndFadesToBlack},
    {"applies the preset", appliesThePreset},
    {"sends a file and fetches it", sendsAFileAndFetchesIt},
    {"follows an upgrade", followsAnUpgrade},
    {"reads the new version", readsTheNewVersion},
    {"sees a report change the model", followsReports},
    {"prints records", printsRecords},
    {"sends records of its own", sendsRecordsOfItsOwn},
    {"calls operations by name", callsByName},
    {"describes operations", describesOperations},
};

bool connectTo(const QStringList &arguments, Simulator &simulator, Connection &connection)
{
    if (arguments.size() > 2)
        return connection.open(arguments.at(1), static_cast<quint16>(arguments.at(2).toUInt()));
    return simulator.start(arguments.value(1))
        && connection.find(QStringLiteral("127.0.0.1"), simulator.discoveryPort());
}

bool report(const char *name, bool isDone)
{
    std::cout << (isDone ? "done: " : "FAILED: ") << name << std::endl;
    return isDone;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    Control::AutoReportManager::instance();
    Simulator simulator;
    Connection connection;
    if (!connectTo(QCoreApplication::arguments(), simulator, connection)) {
        std::cerr << "Could not find a device.\n";
        return 1;
    }
    for (const Step &step : steps) {
        if (!report(step.name, step.run(connection)))
            return 1;
    }
    if (simulator.isRunning()
        && !report("sees events change the model", followsWhatHappensThere(connection, simulator)))
        return 1;
    return 0;
}
