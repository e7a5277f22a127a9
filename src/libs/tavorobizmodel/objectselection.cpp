#include "objectselection_p.h"

namespace Tavoro::BizModel {

namespace {

constexpr int any = -1;
constexpr int anyType = 0; ///< Kinds of interfaces and screens start at 1.

bool matches(int filter, int value)
{
    return filter == any || filter == value;
}

bool matchesType(int filter, int value)
{
    return filter == anyType || matches(filter, value);
}

} // namespace

bool selects(const s_InterfaceFilter &filter, const Interface &interface)
{
    return (!filter.interfaceId || objectId(*filter.interfaceId) == objectId(interface))
        && (filter.type == anyType || filter.type == interface.detail().general.type);
}

bool selects(const s_ScreenFilter &filter, const Screen &screen)
{
    return matches(filter.screenId, screen.screenId())
        && matchesType(filter.screenType, screen.screenType());
}

bool selects(const s_LayerFilter &filter, const Layer &layer)
{
    const auto id = layer.identity();
    return matches(filter.screenId, id.screenId) && matchesType(filter.screenType, id.screenType)
        && matches(filter.sceneType, id.sceneType) && matches(filter.layerType, id.layerType);
}

bool selects(const s_FileFilter &filter, const File &file)
{
    const auto id = file.identity();
    return matches(filter.fileType, id.fileType) && matches(filter.fileId, id.fileId);
}

bool selectsAll(const s_InterfaceFilter &filter)
{
    return filter.type == anyType && !filter.interfaceId;
}

bool selectsAll(const s_ScreenFilter &filter)
{
    return filter.screenId == any && (filter.screenType == any || filter.screenType == anyType);
}

bool selectsAll(const s_LayerFilter &filter)
{
    return selectsAll(s_ScreenFilter{filter.screenId, filter.screenType}) && filter.sceneType == any
        && filter.layerType == any;
}

bool selectsAll(const s_FileFilter &filter)
{
    return filter.fileType == any && filter.fileId == any;
}

} // namespace Tavoro::BizModel
