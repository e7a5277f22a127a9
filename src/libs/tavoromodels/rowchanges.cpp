#include "rowchanges_p.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace Tavoro::Models {

namespace {

/// Returns the elements of a longest ascending subsequence of \a values.
std::vector<int> longestAscending(const std::vector<int> &values)
{
    std::vector<std::size_t> tails; // tails[n]: where the best subsequence of length n + 1 ends
    std::vector<std::size_t> previous(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto place = std::lower_bound(
            tails.begin(), tails.end(), values[i],
            [&values](std::size_t index, int value) { return values[index] < value; });
        previous[i] = place == tails.begin() ? i : *std::prev(place);
        if (place == tails.end())
            tails.push_back(i);
        else
            *place = i;
    }
    std::vector<int> ascending(tails.size());
    std::size_t index = tails.empty() ? 0 : tails.back();
    for (std::size_t length = tails.size(); length > 0; --length) {
        ascending[length - 1] = values[index];
        index = previous[index];
    }
    return ascending;
}

class Changes {
public:
    Changes(std::vector<int> present, const std::vector<int> &wanted)
        : m_rows(std::move(present)), m_wanted(wanted)
    {
        for (std::size_t i = 0; i < wanted.size(); ++i)
            m_places.emplace(wanted[i], static_cast<int>(i));
    }

    std::vector<RowChange> make()
    {
        removeUnwanted();
        findRest();
        for (std::size_t i = 0; i < m_wanted.size(); ++i) {
            const int value = m_wanted[i];
            const int row = i == 0 ? 0 : rowOf(m_wanted[i - 1]) + 1;
            if (m_present.count(value) == 0)
                i += insert(row, i) - 1;
            else if (m_resting.count(value) == 0)
                move(rowOf(value), row);
        }
        return std::move(m_changes);
    }

private:
    int rowOf(int value) const
    {
        return static_cast<int>(std::find(m_rows.begin(), m_rows.end(), value) - m_rows.begin());
    }

    /// Removes the last rows first, and neighbours together.
    void removeUnwanted()
    {
        const auto isUnwanted = [this](int value) {
            return m_places.count(value) == 0;
        };
        auto end = m_rows.size();
        while (end > 0) {
            auto begin = end;
            while (begin > 0 && isUnwanted(m_rows[begin - 1]))
                --begin;
            if (begin == end) {
                --end;
                continue;
            }
            m_changes.push_back(
                {RowChange::Remove, static_cast<int>(begin), static_cast<int>(end - begin), 0, 0});
            m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(begin),
                         m_rows.begin() + static_cast<std::ptrdiff_t>(end));
            end = begin;
        }
    }

    /// Chooses the rows that are not moved.
    void findRest()
    {
        m_present.insert(m_rows.begin(), m_rows.end());
        std::vector<int> places;
        for (const int value : m_rows)
            places.push_back(m_places.at(value));
        for (const int place : longestAscending(places))
            m_resting.insert(m_wanted[static_cast<std::size_t>(place)]);
    }

    /// Inserts the new rows from \a first that follow each other. Returns their number.
    std::size_t insert(int row, std::size_t first)
    {
        std::size_t end = first;
        while (end < m_wanted.size() && m_present.count(m_wanted[end]) == 0)
            ++end;
        m_changes.push_back(
            {RowChange::Insert, row, static_cast<int>(end - first), 0, static_cast<int>(first)});
        m_rows.insert(m_rows.begin() + row, m_wanted.begin() + static_cast<std::ptrdiff_t>(first),
                      m_wanted.begin() + static_cast<std::ptrdiff_t>(end));
        return end - first;
    }

    void move(int from, int to)
    {
        if (from == to)
            return;
        m_changes.push_back({RowChange::Move, from, 1, to, 0});
        const int value = m_rows[static_cast<std::size_t>(from)];
        m_rows.erase(m_rows.begin() + from);
        m_rows.insert(m_rows.begin() + (to > from ? to - 1 : to), value);
    }

    std::vector<int> m_rows;
    const std::vector<int> &m_wanted;
    std::unordered_map<int, int> m_places; ///< Of the wanted values.
    std::unordered_set<int> m_present; ///< The values that are wanted and present.
    std::unordered_set<int> m_resting; ///< Those of them that are not moved.
    std::vector<RowChange> m_changes;
};

} // namespace

std::vector<RowChange> rowChanges(std::vector<int> present, const std::vector<int> &wanted)
{
    return Changes(std::move(present), wanted).make();
}

} // namespace Tavoro::Models
