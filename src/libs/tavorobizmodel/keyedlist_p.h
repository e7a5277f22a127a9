#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {

/// A list of values in the order in which they were added, with lookup by key in constant time.
template <class Key, class Value, class Hash = std::hash<Key>>
class KeyedList {
public:
    const std::vector<Value> &values() const { return m_values; }
    bool contains(const Key &key) const { return m_places.count(key) != 0; }

    std::optional<Value> find(const Key &key) const
    {
        const auto place = m_places.find(key);
        return place == m_places.end() ? std::nullopt : std::optional(m_values[place->second]);
    }

    /// Replaces the value with this key, or appends it.
    void assign(const Key &key, Value value)
    {
        const auto [place, isNew] = m_places.emplace(key, m_values.size());
        if (isNew)
            m_values.push_back(std::move(value));
        else
            m_values[place->second] = std::move(value);
    }

    void clear()
    {
        m_values.clear();
        m_places.clear();
    }

private:
    std::vector<Value> m_values;
    std::unordered_map<Key, std::size_t, Hash> m_places;
};

} // namespace Tavoro::BizModel
