#include <tavorooperations/nearest.h>

#include "texts_p.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace Tavoro::Operations {

namespace {

/// How many letters have to be inserted, removed, replaced or exchanged with their neighbour to
/// make \a one from \a other.
int distance(const QString &one, const QString &other)
{
    const auto width = static_cast<std::size_t>(other.size()) + 1;
    std::vector<int> beforeLast(width);
    std::vector<int> last(width);
    std::vector<int> row(width);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= one.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (int j = 1; j <= other.size(); ++j) {
            const auto at = static_cast<std::size_t>(j);
            const int replaced = last[at - 1] + (one.at(i - 1) == other.at(j - 1) ? 0 : 1);
            row[at] = std::min({last[at] + 1, row[at - 1] + 1, replaced});
            const bool isExchanged = i > 1 && j > 1 && one.at(i - 1) == other.at(j - 2)
                && one.at(i - 2) == other.at(j - 1);
            if (isExchanged)
                row[at] = std::min(row[at], beforeLast[at - 2] + 1);
        }
    }
    return row.back();
}

/// Whether \a word is an operation of a class without the verb: "Device.swap".
bool lacksVerb(const QString &word, const QString &name)
{
    const QChar dot = QLatin1Char('.');
    const QString member = word.section(dot, 1);
    return !member.isEmpty() && word.section(dot, 0, 0) == name.section(dot, 0, 0)
        && name.endsWith(member);
}

} // namespace

QString nearest(const QString &word, const QStringList &names)
{
    const QString typed = word.toLower();
    int least = std::max(1, static_cast<int>(typed.size()) / 3);
    QString found;
    for (const QString &name : names) {
        const QString candidate = name.toLower();
        const int steps = lacksVerb(typed, candidate) ? 1 : distance(typed, candidate);
        if (steps < least || (steps == least && found.isEmpty())) {
            least = steps;
            found = name;
        }
    }
    return found;
}

QString suggestion(const QString &word, const QStringList &names)
{
    const QString name = nearest(word, names);
    return name.isEmpty() ? name : Internal::Texts::tr("; did you mean \"%1\"").arg(name);
}

} // namespace Tavoro::Operations
