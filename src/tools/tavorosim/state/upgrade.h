#pragma once

#include <tavorocontrol/proto/auxiliary.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Tavoro::Sim {

/// Outcome of an upgrade and of its parts and sections. It has ended when it has failed, or
/// when its rate is 100.
enum UpgradeResult : quint8 {
    NoFailure = 0,
    UpgradeFailed = 1,
};

/// A firmware upgrade that writes one section after the other as time passes.
class Upgrade {
public:
    static constexpr qint64 timePerSection = 1000; ///< Milliseconds.
    using Unit = std::pair<qint32, quint8>; ///< Kind of the unit, slot.
    using Section = std::pair<Unit, quint16>; ///< Unit, section code.

    /// Starts the upgrade of \a detail, whose parts and sections all exist.
    void start(const ProtoModel::Auxiliary::s_UpgradeDetail &detail);
    /// Advances the time. True when the upgrade has ended with success and the device must restart.
    bool advance(qint64 milliseconds);
    /// Makes the running upgrade, or else the next one, fail at \a percent.
    void failAt(qint32 percent) { m_failurePercent = percent; }

    /// Makes a running upgrade fail, since the device is switched off.
    void interrupt();

    bool isRunning() const;
    /// How often the section has been upgraded.
    quint32 revision(const Section &section) const;
    const ProtoModel::Auxiliary::s_UpgradePercent &progress() const { return m_progress; }

private:
    qint64 duration() const;
    void showProgress();

    ProtoModel::Auxiliary::s_UpgradeDetail m_detail;
    ProtoModel::Auxiliary::s_UpgradePercent m_progress;
    std::map<Section, quint32> m_revisions;
    qint64 m_sections = 0; ///< Number of sections in all parts.
    qint64 m_elapsed = 0;
    qint32 m_failurePercent = -1; ///< -1: never.
};

} // namespace Tavoro::Sim
