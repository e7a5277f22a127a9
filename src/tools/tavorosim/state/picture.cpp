#include "picture.h"

#include <algorithm>

namespace Tavoro::Sim {

namespace {

qint32 blueOf(quint32 id)
{
    return static_cast<qint32>((id ^ id >> 8 ^ id >> 16) * 31 & 0xFF);
}

} // namespace

ProtoModel::s_RGB Picture::colorAt(qint32 x, qint32 y) const
{
    const auto ramp = [](qint32 place, qint32 size) {
        return static_cast<qint32>(qint64{place} * 255 / std::max(size - 1, 1));
    };
    return {ramp(x, width), ramp(y, height), blue};
}

std::string Picture::toPixmap(qint32 step) const
{
    const qint32 columns = (width + step - 1) / step;
    const qint32 lines = (height + step - 1) / step;
    std::string bytes = "P6\n" + std::to_string(columns) + ' ' + std::to_string(lines) + "\n255\n";
    bytes.reserve(bytes.size() + std::size_t{3} * static_cast<std::size_t>(columns * lines));
    for (qint32 y = 0; y < height; y += step) {
        for (qint32 x = 0; x < width; x += step) {
            const ProtoModel::s_RGB color = colorAt(x, y);
            for (const qint32 channel : {color.R, color.G, color.B})
                bytes += static_cast<char>(channel);
        }
    }
    return bytes;
}

std::optional<Picture> findPicture(const SimState &state, qint32 sourceType, quint32 id)
{
    if (sourceType == InputSource) {
        const auto *const input = findInterface(state, id);
        if (!input || input->general.type != InputInterface)
            return std::nullopt;
        const auto &timing = input->actualTiming;
        return Picture{timing.horizontal.addTime, timing.vertical.addTime, blueOf(id)};
    }
    const auto screen = std::find_if(state.screens.begin(), state.screens.end(),
                                     [&](auto &entry) { return entry.second.screenId == id; });
    if (sourceType != ScreenSource || screen == state.screens.end())
        return std::nullopt;
    const auto &window = screen->second.mosaic.window;
    return Picture{window.width, window.height, blueOf(id)};
}

} // namespace Tavoro::Sim
