#include "presetlayout.h"

#include <tavoropanel/selection/identity.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

QJsonObject child(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toObject();
}

int number(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toInt();
}

QRect rectOf(const QJsonObject &rect)
{
    return {number(rect, "x"), number(rect, "y"), number(rect, "width"), number(rect, "height")};
}

/// The layers of the programme of a screen, from the bottom.
std::vector<PresetLayer> layersOf(const QJsonObject &screen, const QJsonArray &layers)
{
    std::vector<std::pair<int, PresetLayer>> found;
    for (const auto &value : layers) {
        const QJsonObject layer = value.toObject();
        const QJsonObject id = child(layer, "layerIdenti");
        if (number(id, "screenId") == number(screen, "screenId")
            && number(id, "screenType") == number(screen, "screenType")
            && number(id, "sceneType") == static_cast<int>(Scene::Programme))
            found.push_back({number(layer, "zorder"),
                             {rectOf(child(layer, "window")),
                              number(child(layer, "general"), "isBackground") != 0}});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    std::vector<PresetLayer> sorted;
    sorted.reserve(found.size());
    for (const auto &[place, layer] : found)
        sorted.push_back(layer);
    return sorted;
}

PresetScreen screenOf(const QJsonObject &screen, const QJsonArray &layers)
{
    const QJsonObject window = child(child(screen, "mosaic"), "window");
    const QJsonObject place = child(screen, "layout");
    const QJsonObject colour = child(screen, "backgroundColor");
    return {
        child(screen, "general").value(QLatin1String("name")).toString(),
        {number(place, "x"), number(place, "y"), number(window, "width"), number(window, "height")},
        QColor(number(colour, "R"), number(colour, "G"), number(colour, "B")),
        layersOf(screen, layers)};
}

bool overlap(const PresetLayout &screens)
{
    for (std::size_t i = 0; i < screens.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (screens[i].area.intersects(screens[j].area))
                return true;
        }
    }
    return false;
}

/// Places screens without a layout of their own side by side.
void arrange(PresetLayout &screens)
{
    int left = 0;
    for (PresetScreen &screen : screens) {
        screen.area.moveTopLeft({left, 0});
        left += screen.area.width() + screen.area.width() / 10;
    }
}

} // namespace

std::optional<PresetLayout> readPresetLayout(const std::string &content)
{
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(content));
    const QJsonArray screens = document.object().value(QLatin1String("screens")).toArray();
    const QJsonArray layers = document.object().value(QLatin1String("layers")).toArray();
    PresetLayout layout;
    for (const auto &screen : screens)
        layout.push_back(screenOf(screen.toObject(), layers));
    layout.erase(std::remove_if(layout.begin(), layout.end(),
                                [](const PresetScreen &screen) { return screen.area.isEmpty(); }),
                 layout.end());
    if (layout.empty())
        return std::nullopt;
    if (overlap(layout))
        arrange(layout);
    return layout;
}

} // namespace Tavoro::Panel
