#include "liveoperations.h"

#include <tavorobizmodel/screen.h>
#include <tavorocontrol/screen.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <algorithm>

namespace Tavoro::Panel {

using namespace ProtoModel::Screen;

namespace {

const QString tBarKey = QStringLiteral("tbar");
constexpr int tBarEnd = 100; ///< Where the device takes.

bool isFrozen(const BizModel::Screen &screen)
{
    return screen.detail().freeze != 0;
}

bool isBlack(const BizModel::Screen &screen)
{
    return screen.detail().FTB.enable != 0;
}

} // namespace

LiveOperations::LiveOperations(Selection &selection, Changes &changes, QObject *parent)
    : QObject(parent), m_selection(selection), m_changes(changes)
{
    connect(&selection, &Selection::screensChanged, this, &LiveOperations::watchScreens);
    watchScreens();
}

void LiveOperations::watchScreens()
{
    for (const auto &connection : qAsConst(m_screens))
        disconnect(connection);
    m_screens.clear();
    const auto screens = m_selection.screenObjects();
    for (const auto &screen : screens)
        m_screens << connect(screen.get(), &BizModel::Screen::screenChanged, this,
                             &LiveOperations::screensChanged);
    Q_EMIT screensChanged();
}

/// One record for each selected screen, with its identity.
template <class Record, class Fill>
std::vector<Record> LiveOperations::records(Fill fill) const
{
    std::vector<Record> all;
    const auto screens = m_selection.screenObjects();
    for (const auto &screen : screens) {
        Record record;
        record.screenId = screen->screenId();
        record.screenType = screen->screenType();
        fill(record, screen->detail());
        all.push_back(record);
    }
    return all;
}

LiveOperations::Share LiveOperations::shareOf(bool (*has)(const BizModel::Screen &)) const
{
    const auto screens = m_selection.screenObjects();
    const auto count = std::count_if(screens.begin(), screens.end(),
                                     [has](const auto &screen) { return has(*screen); });
    if (count == 0)
        return Share::None;
    return count == screens.size() ? Share::All : Share::Some;
}

LiveOperations::Share LiveOperations::frozen() const
{
    return shareOf(isFrozen);
}

LiveOperations::Share LiveOperations::black() const
{
    return shareOf(isBlack);
}

int LiveOperations::tBar() const
{
    const auto screens = m_selection.screenObjects();
    return screens.isEmpty() ? 0 : screens.first()->detail().tbar.percent;
}

void LiveOperations::take()
{
    callTake(tr("take"), false);
}

void LiveOperations::cut()
{
    callTake(tr("cut"), true);
}

void LiveOperations::callTake(const QString &name, bool isCut)
{
    const auto effects =
        records<s_SwitchEffect>([isCut](s_SwitchEffect &record, const s_ScreenFullDetail &screen) {
            record.switchEffect = screen.switchEffect;
            if (isCut)
                record.switchEffect.time = 0;
        });
    if (!m_selection.canWrite() || effects.empty())
        return;
    DeviceSession &device = *m_selection.device();
    m_calls.follow(name, device, m_changes.call(device, &Control::Screen::writeTake, effects));
}

void LiveOperations::toggleFreeze()
{
    const int freeze = frozen() == Share::All ? 0 : 1;
    const auto freezes = records<s_Freeze>(
        [freeze](s_Freeze &record, const s_ScreenFullDetail &) { record.freeze = freeze; });
    if (!m_selection.canWrite() || freezes.empty())
        return;
    DeviceSession &device = *m_selection.device();
    m_calls.follow(freeze ? tr("freeze") : tr("release of the freeze"), device,
                   m_changes.call(device, &Control::Screen::writeFreeze, freezes));
}

void LiveOperations::toggleBlack()
{
    const int enable = black() == Share::All ? 0 : 1;
    const auto fades = records<s_FTB>([enable](s_FTB &record, const s_ScreenFullDetail &screen) {
        record.FTB = screen.FTB;
        record.FTB.enable = enable;
    });
    if (!m_selection.canWrite() || fades.empty())
        return;
    DeviceSession &device = *m_selection.device();
    m_calls.follow(enable ? tr("fade to black") : tr("fade to the picture"), device,
                   m_changes.call(device, &Control::Screen::writeFTB, fades));
}

void LiveOperations::moveTBar(int percent)
{
    const auto bars = records<s_TBar>(
        [percent](s_TBar &record, const s_ScreenFullDetail &) { record.tbar.percent = percent; });
    if (!m_selection.canWrite() || bars.empty())
        return;
    DeviceSession &device = *m_selection.device();
    // A later position must not replace the end, since the device takes there.
    const auto call = percent == tBarEnd
        ? m_changes.call(device, &Control::Screen::writeTBar, bars)
        : m_changes.callLatest(tBarKey, device, &Control::Screen::writeTBar, bars);
    m_calls.follow(tr("move of the T-bar"), device, call);
}

} // namespace Tavoro::Panel
