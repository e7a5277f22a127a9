#include "readonlykeys.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

using Operations::ScopeKind;

/// A path with [] for each index. It stands for all that is below it, too, unless it ends with []:
/// then for the existence of an element.
struct ReadOnlyRow {
    ScopeKind kind;
    const char *path;
};

// clang-format off
constexpr ReadOnlyRow readOnlyRows[] = {
    {ScopeKind::Device,     "general.status"},
    {ScopeKind::Device,     "genlockSignal"},
    {ScopeKind::Device,     "powers"},
    {ScopeKind::Device,     "subcards[]"},
    {ScopeKind::Device,     "subcards[].slotId"},
    {ScopeKind::Device,     "subcards[].modelId"},
    {ScopeKind::Device,     "subcards[].boardId"},
    {ScopeKind::Device,     "subcards[].cardType"},
    {ScopeKind::Device,     "subcards[].online"},
    {ScopeKind::Device,     "subcards[].connectors[]"},
    {ScopeKind::Device,     "subcards[].connectors[].id"},
    {ScopeKind::Device,     "subcards[].connectors[].type"},
    {ScopeKind::Device,     "networks[]"},
    {ScopeKind::Device,     "networks[].index"},
    {ScopeKind::Device,     "networks[].MAC"},
    {ScopeKind::Interfaces, "general.type"},
    {ScopeKind::Interfaces, "colorDepths.actualColorDepth"},
    {ScopeKind::Interfaces, "colorSpaces.actualColorSpace"},
    {ScopeKind::Interfaces, "colorRanges.actualColorRange"},
    {ScopeKind::Interfaces, "HDR.colorGamut.actualColorGamut"},
    {ScopeKind::Interfaces, "HDR.dynamicRange.actualDynamicRange"},
    {ScopeKind::Interfaces, "HDCP.actualType"},
    {ScopeKind::Interfaces, "actualTiming"},
    {ScopeKind::Screens,    "HDR.colorGamut.actualColorGamut"},
    {ScopeKind::Screens,    "HDR.dynamicRange.actualDynamicRange"},
    {ScopeKind::Screens,    "screenZeLK.status"},
    {ScopeKind::Screens,    "tbar"}, // Its end takes the preview to programme: an action, not a setting.
    {ScopeKind::Files,      "source"},
    {ScopeKind::Files,      "size"},
};
// clang-format on

bool covers(const QString &row, const QString &path)
{
    if (path == row)
        return true;
    return !row.endsWith(QLatin1Char(']'))
        && (path.startsWith(row + QLatin1Char('.')) || path.startsWith(row + QLatin1Char('[')));
}

} // namespace

bool isReadOnly(ScopeKind kind, const QString &path)
{
    static const QRegularExpression index(QStringLiteral("\\[\\d+\\]"));
    const QString pattern = QString(path).replace(index, QStringLiteral("[]"));
    return std::any_of(std::begin(readOnlyRows), std::end(readOnlyRows),
                       [&](const ReadOnlyRow &row) {
                           return row.kind == kind && covers(QLatin1String(row.path), pattern);
                       });
}

} // namespace Tavoro::Ctl
