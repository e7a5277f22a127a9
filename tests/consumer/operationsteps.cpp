// Steps that find operations by name, and learn what they change.

#include "connection.h"
#include "steps.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/screen.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>
#include <tavorooperations/schema.h>

#include <QJsonArray>
#include <QJsonObject>

#include <optional>
#include <string>
#include <vector>

using namespace Tavoro;

namespace {

/// The value of a key in the first record of a list in JSON.
int valueIn(const std::string &list, const char *key)
{
    const QJsonObject record = Operations::jsonValue(list).toArray().at(0).toObject();
    return record.value(QLatin1String(key)).toInt(-1);
}

} // namespace

bool callsByName(Connection &connection)
{
    const std::optional<Operations::Operation> freeze =
        Operations::find(&Control::Screen::writeFreeze);
    if (!freeze || freeze->name() != QLatin1String("Screen.writeFreeze"))
        return false;
    for (const int wanted : {1, 0}) {
        const Operations::PreparedCall write = freeze->prepare(
            {QStringLiteral(R"([{"screenId":1,"screenType":1,"freeze":%1}])").arg(wanted)});
        if (!write.fault.isEmpty() || !write.run(connection.device()).ok)
            return false;
        const std::vector<Operations::Scope> reads = Operations::readsFor(write.changes);
        const Operations::CallResult result = Operations::call(
            connection.device(), reads.at(0).readOperation(), reads.at(0).readArguments());
        if (!result.ok || valueIn(result.answer, "freeze") != wanted)
            return false;
    }
    return true;
}

bool describesOperations(Connection & /*connection*/)
{
    for (const Operations::Operation &operation : Operations::all()) {
        const QJsonObject description = Operations::describe(operation);
        if (description.value(QLatin1String("name")).toString() != operation.name())
            return false;
    }
    return !Operations::recordsDocument().empty();
}
