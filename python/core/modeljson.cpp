#include "modeljson.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/proto/codec.h>

#include <QList>

#include <memory>

namespace Tavoro::Python {

namespace {

constexpr int allScreens = 0x1E; // A bit for each kind.

/// The record of each object, in the device's order.
template <class Object, class Record>
std::string listOf(const QList<std::weak_ptr<Object>> &objects, Record (Object::*record)() const)
{
    std::vector<Record> records;
    for (const std::weak_ptr<Object> &weak : objects) {
        if (const auto object = weak.lock())
            records.push_back((object.get()->*record)());
    }
    std::string text;
    ajson::encodeRecord(records, text);
    return text;
}

std::string deviceRecord(const BizModel::Device &device)
{
    std::string text;
    ajson::encodeRecord(device.deviceDetail(), text);
    return text;
}

} // namespace

std::string modelMembers(const BizModel::Device &device)
{
    return R"("device":)" + deviceRecord(device) + R"(,"interfaces":)"
        + listOf(device.interfaces(), &BizModel::Interface::detail) + R"(,"screens":)"
        + listOf(device.screens(allScreens), &BizModel::Screen::detail) + R"(,"layers":)"
        + listOf(device.layers(), &BizModel::Layer::detail) + R"(,"files":)"
        + listOf(device.files(), &BizModel::File::listEntry);
}

} // namespace Tavoro::Python
