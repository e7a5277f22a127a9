#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// A second reader of the codec's JSON, written for simplicity: it takes one character at a time,
/// counts lines and columns, and uses nothing of the library.
class PlainReader {
public:
    struct Failure : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    explicit PlainReader(const std::string &text);

    /// Reads the text as the type of \a value and returns the error text, empty on success.
    template <class Value>
    static std::string decode(const std::string &text, Value &value);

private:
    enum Kind {
        Word,
        NegativeInteger,
        UnsignedInteger,
        FloatNumber,
        Symbol,
        End
    };

    char current() const { return m_atEnd ? '\0' : m_text[m_position]; }
    void take();
    [[noreturn]] void fail(const std::string &words) const;

    void next();
    void nextFrom(char c);
    bool takeComment();
    void takeQuotedString();
    void takeBareWord();
    void takeNumber();
    void takePoint();
    bool takeExponent();
    void becomeFloat();

    bool isSymbol(char symbol) const;
    bool isTrue() const;
    std::uint64_t readUnsigned();
    std::int64_t readSigned();
    bool readBool();
    void readString(std::string &value);
    void unescape(std::string &value) const;
    void skip();
    void skipArray();
    void skipObject();
    std::string readKey();

    template <class Value>
    void read(Value &value);
    template <class Element>
    void read(std::vector<Element> &vector);
    template <class Record>
    void readObject(Record &record);
    template <class Record>
    void readField(Record &record, const std::string &key);

    const std::string m_text;
    std::size_t m_position = 0;
    std::uint64_t m_line = 0;
    std::uint64_t m_column = 0;
    bool m_atEnd = false;

    // the current token
    std::size_t m_begin = 0;
    std::size_t m_length = 0;
    Kind m_kind = Word;
    bool m_negative = false;
    std::uint64_t m_integer = 0;
    double m_real = 0;
    double m_decimal = 0.1;
};

std::vector<std::string> plainFieldList(const std::string &text);

template <class Value>
std::string PlainReader::decode(const std::string &text, Value &value)
{
    try {
        PlainReader reader(text);
        reader.next();
        reader.read(value);
    } catch (const Failure &failure) {
        return failure.what();
    }
    return {};
}

template <class Value>
void PlainReader::read(Value &value)
{
    if constexpr (std::is_class_v<Value> && !std::is_same_v<Value, std::string>) {
        readObject(value);
        return;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        readString(value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        value = readBool();
    } else if constexpr (std::is_unsigned_v<Value>) {
        value = static_cast<Value>(readUnsigned());
    } else {
        value = static_cast<Value>(readSigned());
    }
    next();
}

template <class Element>
void PlainReader::read(std::vector<Element> &vector)
{
    if (!isSymbol('['))
        fail("array must start with [.");
    next();
    if (isSymbol(']')) {
        next();
        return;
    }
    for (;;) {
        vector.push_back(Element());
        if constexpr (std::is_same_v<Element, bool>) {
            vector.back() = readBool();
            next();
        } else {
            read(vector.back());
        }
        if (isSymbol(',')) {
            next();
            if (isSymbol(']'))
                break;
        } else if (isSymbol(']')) {
            break;
        } else {
            fail("no valid array!");
        }
    }
    next();
}

template <class Record>
void PlainReader::readObject(Record &record)
{
    if (!isSymbol('{'))
        fail("read object must start with {!");
    next();
    if (isSymbol('}'))
        return;
    for (;;) {
        if (m_kind != Word)
            fail("object key must be string");
        const std::string key = readKey();
        readField(record, key);
        if (isSymbol('}')) {
            next();
            return;
        }
        if (!isSymbol(','))
            fail("invalid json document!");
        next();
    }
}

template <class Record>
void PlainReader::readField(Record &record, const std::string &key)
{
    static const std::vector<std::string> names = plainFieldList(Record::fieldList());
    std::size_t found = 0;
    while (found < names.size() && names[found] != key)
        ++found;
    if (found == names.size()) {
        skip();
        return;
    }
    record.visitFields([this, found](auto &...members) {
        std::size_t index = 0;
        (void)(... || (index++ == found && (this->read(members), true)));
    });
}
