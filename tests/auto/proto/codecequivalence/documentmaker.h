#pragma once

#include "plainreader.h"

#include <random>

/// Makes texts for a reader of records: well-formed, unusual and malformed ones. The same seed
/// makes the same texts.
class DocumentMaker {
public:
    explicit DocumentMaker(std::uint64_t seed) : m_random(seed) { }

    /// A text for a value of type \a Value, sometimes mutated.
    template <class Value>
    std::string make()
    {
        m_oddity = below(2) == 0 ? 0 : 1 + below(6);
        return mutated(valueFor(Value()));
    }

    /// Up to \a maxSize bytes, mostly ASCII characters that need no escape.
    std::string bytes(std::size_t maxSize);

private:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(m_random() % bound); }
    bool isOdd() { return m_oddity != 0 && below(100) < m_oddity; }
    const std::string &oneOf(const std::vector<std::string> &list)
    {
        return list[below(list.size())];
    }

    std::string blank();
    std::string number(bool isSigned);
    std::string word();
    std::string oddValue();
    std::string nested(std::size_t depth);
    std::string key(const std::string &name);
    std::string mutated(std::string text);
    void mutateOnce(std::string &text);

    std::string valueFor(const std::string &) { return isOdd() ? oddValue() : word(); }

    template <class Element>
    std::string valueFor(const std::vector<Element> &)
    {
        if (isOdd())
            return oddValue();
        std::string array = "[" + blank();
        for (std::size_t count = below(4); count > 0; --count)
            array += valueFor(Element()) + blank() + (count > 1 || isOdd() ? "," : "") + blank();
        return array + "]" + blank();
    }

    template <class Value>
    std::string valueFor(const Value &value)
    {
        if (isOdd())
            return oddValue();
        if constexpr (std::is_same_v<Value, bool>)
            return oneOf({"0", "1"});
        else if constexpr (std::is_arithmetic_v<Value>)
            return number(std::is_signed_v<Value>);
        else
            return object(value);
    }

    template <class Record>
    std::string object(const Record &record)
    {
        const std::vector<std::string> names = plainFieldList(Record::fieldList());
        std::vector<std::string> fields;
        const auto add = [&](const std::string &name, const auto &member) {
            if (!isOdd())
                fields.push_back(key(name) + ":" + blank() + valueFor(member) + blank());
        };
        record.visitFields([&](const auto &...members) {
            std::size_t index = 0;
            (..., add(names[index++], members));
        });
        return joined(std::move(fields));
    }

    std::string joined(std::vector<std::string> fields);

    std::mt19937_64 m_random;
    std::size_t m_oddity = 0; ///< How often something unusual is inserted, in percent.
};
