#include "upgrade.h"

#include <algorithm>
#include <utility>

namespace Tavoro::Sim {

using namespace ProtoModel::Auxiliary;

namespace {

constexpr quint8 whole = 100;

quint8 percentOf(qint64 done, qint64 all)
{
    return static_cast<quint8>(all == 0 ? whole : std::clamp<qint64>(done * whole / all, 0, whole));
}

} // namespace

void Upgrade::start(const s_UpgradeDetail &detail)
{
    m_detail = detail;
    m_progress = {};
    m_elapsed = 0;
    m_sections = 0;
    for (const s_UpgradePart &part : detail.parts) {
        s_UpgradePartPercent shown;
        shown.type = part.type;
        shown.slotId = part.slotId;
        for (const s_UpgradeSection &section : part.section)
            shown.section.push_back({section.code, 0, NoFailure});
        m_sections += static_cast<qint64>(part.section.size());
        m_progress.parts.push_back(shown);
    }
}

bool Upgrade::isRunning() const
{
    return m_sections > 0 && m_progress.result == NoFailure && m_progress.rate < whole;
}

bool Upgrade::advance(qint64 milliseconds)
{
    if (!isRunning())
        return false;
    m_elapsed = std::min(m_elapsed + milliseconds, duration());
    const bool fails =
        m_failurePercent >= 0 && percentOf(m_elapsed, duration()) >= m_failurePercent;
    if (fails)
        m_elapsed = duration() * std::exchange(m_failurePercent, -1) / whole;
    m_progress.result = fails ? UpgradeFailed : NoFailure;
    showProgress();
    return !fails && m_progress.rate == whole && m_detail.reboot != 0;
}

void Upgrade::interrupt()
{
    if (!isRunning())
        return;
    m_progress.result = UpgradeFailed;
    showProgress();
}

void Upgrade::showProgress()
{
    const bool hasFailed = m_progress.result == UpgradeFailed;
    m_progress.rate = percentOf(m_elapsed, duration());
    m_progress.subSections.rate = percentOf(m_elapsed % timePerSection, timePerSection);
    if (m_elapsed == duration())
        m_progress.subSections.rate = whole;
    qint64 begin = 0; // start of the section in the time of the whole upgrade
    for (s_UpgradePartPercent &part : m_progress.parts) {
        const qint64 partBegin = begin;
        for (s_UpgradeSectionPercent &section : part.section) {
            const quint8 before = section.rate;
            section.rate = percentOf(m_elapsed - begin, timePerSection);
            const bool isCurrent = m_elapsed >= begin && m_elapsed - begin < timePerSection;
            const bool isLast = m_elapsed == duration() && begin + timePerSection == m_elapsed;
            if (hasFailed && (isCurrent || isLast))
                section.result = part.result = UpgradeFailed;
            if (before < whole && section.rate == whole && section.result == NoFailure)
                ++m_revisions[{{part.type, part.slotId}, section.code}];
            begin += timePerSection;
        }
        part.rate = percentOf(m_elapsed - partBegin, begin - partBegin);
    }
}

qint64 Upgrade::duration() const
{
    return m_sections * timePerSection;
}

quint32 Upgrade::revision(const Section &section) const
{
    const auto found = m_revisions.find(section);
    return found == m_revisions.end() ? 0 : found->second;
}

} // namespace Tavoro::Sim
