#include "plainreader.h"

#include <cstdlib>
#include <limits>

namespace {

const std::string blanks("\t\n\r ");
const std::string symbols("{}[]:,");
const std::string digits("0123456789");

bool isOneOf(char c, const std::string &set)
{
    return set.find(c) != std::string::npos;
}

// Truncates towards zero; a number beyond the range gives the end of the range.
std::uint64_t toUnsigned(double number)
{
    if (number >= 18446744073709551616.0)
        return std::numeric_limits<std::uint64_t>::max();
    return static_cast<std::uint64_t>(number);
}

std::int64_t toSigned(double number)
{
    if (number >= 9223372036854775808.0)
        return std::numeric_limits<std::int64_t>::max();
    if (number <= -9223372036854775808.0)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

} // namespace

std::vector<std::string> plainFieldList(const std::string &text)
{
    std::vector<std::string> names(1);
    for (const char c : text) {
        if (!isOneOf(c, ", \t\n\f\r"))
            names.back() += c;
        else if (!names.back().empty())
            names.emplace_back();
    }
    if (names.back().empty())
        names.pop_back();
    return names;
}

// Cut at the first NUL; the NUL at the end counts as a character.
PlainReader::PlainReader(const std::string &text)
    : m_text(std::string(text.c_str()) + '\0'), m_atEnd(text.empty() || text[0] == '\0')
{ }

void PlainReader::take()
{
    if (m_atEnd)
        return;
    ++m_position;
    const char c = m_text[m_position];
    if (c != '\r')
        ++m_column;
    if (c == '\0')
        m_atEnd = true;
    if (c == '\n') {
        ++m_line;
        m_column = 0;
    }
}

void PlainReader::fail(const std::string &words) const
{
    throw Failure("error at line :" + std::to_string(m_line) + " col :" + std::to_string(m_column)
                  + " msg:" + words);
}

void PlainReader::next()
{
    for (;;) {
        while (isOneOf(current(), blanks))
            take();
        m_negative = false;
        if (current() != '/') {
            nextFrom(current());
            return;
        }
        if (!takeComment())
            return;
    }
}

void PlainReader::nextFrom(char c)
{
    m_begin = m_position;
    if (c == '\0') {
        m_kind = End;
        m_length = 1;
    } else if (c == '"') {
        takeQuotedString();
    } else if (isOneOf(c, symbols)) {
        m_kind = Symbol;
        m_length = 1;
        take();
    } else if (c == '-' || isOneOf(c, digits)) {
        takeNumber();
    } else {
        takeBareWord();
    }
}

// False when a block comment runs to the end.
bool PlainReader::takeComment()
{
    take();
    if (m_atEnd || (current() != '/' && current() != '*'))
        fail("not a comment!");
    if (current() == '/') {
        while (!m_atEnd && current() != '\n')
            take();
        return true;
    }
    take();
    char before = '\0';
    while (!m_atEnd) {
        const char c = current();
        take();
        if (before == '*' && c == '/')
            fail("not a comment!");
        before = c;
    }
    return false;
}

void PlainReader::takeQuotedString()
{
    m_kind = Word;
    take();
    m_begin = m_position;
    for (;;) {
        if (m_atEnd || current() == '\n')
            fail("not a valid quote string!");
        if (current() == '"')
            break;
        if (current() == '\\') {
            take();
            take();
        } else {
            take();
        }
    }
    m_length = m_position - m_begin;
    take();
}

void PlainReader::takeBareWord()
{
    m_kind = Word;
    do {
        take();
        if (m_atEnd)
            fail("not a valid string!");
    } while (!isOneOf(current(), blanks) && !isOneOf(current(), symbols));
    m_length = m_position - m_begin;
}

void PlainReader::takeNumber()
{
    m_kind = UnsignedInteger;
    m_integer = 0;
    if (current() == '-') {
        m_kind = NegativeInteger;
        m_negative = true;
        take();
    }
    for (;;) {
        const char c = current();
        if (c == '.') {
            takePoint();
        } else if (isOneOf(c, digits)) {
            const int digit = c - '0';
            if (m_kind != FloatNumber) {
                m_integer = m_integer * 10 + static_cast<std::uint64_t>(digit);
            } else {
                m_real += digit * m_decimal;
                m_decimal *= 0.1;
            }
            take();
        } else if (c == 'e' || c == 'E') {
            if (!takeExponent())
                break;
        } else {
            break;
        }
    }
    m_length = m_position - m_begin;
}

void PlainReader::takePoint()
{
    if (m_kind == FloatNumber)
        fail("not a valid number!");
    becomeFloat();
    take();
}

// False when the number ends after the letter.
bool PlainReader::takeExponent()
{
    becomeFloat();
    take();
    double factor = 10.0;
    if (current() == '-') {
        factor = 0.1;
        take();
    } else if (!isOneOf(current(), digits)) {
        return false;
    }
    std::int64_t exponent = 0;
    for (; isOneOf(current(), digits); take()) {
        if (exponent < 100000)
            exponent = exponent * 10 + (current() - '0');
    }
    for (; exponent > 0; --exponent) {
        const double before = m_real;
        m_real *= factor;
        if (m_real == before) // 0 or infinity
            break;
    }
    return true;
}

void PlainReader::becomeFloat()
{
    if (m_kind == FloatNumber)
        return;
    m_real = m_kind == NegativeInteger ? static_cast<double>(static_cast<std::int64_t>(m_integer))
                                       : static_cast<double>(m_integer);
    m_kind = FloatNumber;
    m_decimal = 0.1;
}

bool PlainReader::isSymbol(char symbol) const
{
    return m_kind == Symbol && m_text[m_begin] == symbol;
}

bool PlainReader::isTrue() const
{
    std::string word = m_text.substr(m_begin, m_length);
    for (char &c : word) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return word == "true";
}

std::uint64_t PlainReader::readUnsigned()
{
    if (m_kind == Word)
        return isTrue() ? 1 : std::strtoull(m_text.c_str() + m_begin, nullptr, 10);
    if (m_kind == NegativeInteger && m_negative)
        fail("assign a negative signed integral to unsigned integral number.");
    if (m_kind == FloatNumber && m_negative)
        fail("assign a negative float point to unsigned integral number.");
    if (m_kind == FloatNumber)
        return toUnsigned(m_real);
    if (m_kind > FloatNumber)
        fail("not a valid unsigned integral like number.");
    return m_integer;
}

std::int64_t PlainReader::readSigned()
{
    if (m_kind == Word)
        return isTrue() ? 1 : std::strtoll(m_text.c_str() + m_begin, nullptr, 10);
    if (m_kind > FloatNumber)
        fail("not a valid signed integral like number.");
    std::uint64_t bits =
        m_kind == FloatNumber ? static_cast<std::uint64_t>(toSigned(m_real)) : m_integer;
    if (m_negative)
        bits = ~bits + 1;
    return static_cast<std::int64_t>(bits);
}

bool PlainReader::readBool()
{
    if (m_kind == Word)
        return isTrue();
    if (m_kind > FloatNumber)
        fail("not a valid bool.");
    return m_kind == FloatNumber ? m_real != 0.0 : m_integer != 0;
}

void PlainReader::readString(std::string &value)
{
    if (m_kind != Word)
        fail("not a valid string.");
    unescape(value);
}

void PlainReader::unescape(std::string &value) const
{
    const std::string letters("\"/\\bfnrt");
    const std::string meanings("\"/\\\b\f\n\r\t");
    const std::string content = m_text.substr(m_begin, m_length);
    value = "";
    for (std::size_t i = 0; i < content.size(); ++i) {
        if (content[i] != '\\') {
            value += content[i];
            continue;
        }
        ++i;
        if (i == content.size())
            fail("not a valid string.");
        if (content[i] != 'u') {
            const std::size_t letter = letters.find(content[i]);
            if (letter == std::string::npos)
                fail("not a valid string.");
            value += meanings[letter];
            continue;
        }
        const std::string hex = content.substr(i + 1, 4);
        if (hex.size() < 4 || hex.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            fail("not a valid string.");
        const int unit = static_cast<int>(std::strtoul(hex.c_str(), nullptr, 16));
        if (unit == 0)
            fail("not a valid string.");
        if (unit < 0x80) {
            value += static_cast<char>(unit);
        } else if (unit < 0x800) {
            value += static_cast<char>(0xC0 + unit / 64);
            value += static_cast<char>(0x80 + unit % 64);
        } else {
            value += static_cast<char>(0xE0 + unit / 4096);
            value += static_cast<char>(0x80 + unit / 64 % 64);
            value += static_cast<char>(0x80 + unit % 64);
        }
        i += 4;
    }
}

std::string PlainReader::readKey()
{
    const std::string key = m_text.substr(m_begin, m_length);
    next();
    if (!isSymbol(':'))
        fail("invalid json document!");
    next();
    return key;
}

void PlainReader::skip()
{
    if (m_kind < Symbol)
        next();
    else if (isSymbol('['))
        skipArray();
    else if (isSymbol('{'))
        skipObject();
}

void PlainReader::skipArray()
{
    next();
    while (!isSymbol(']')) {
        if (m_kind == End || isSymbol('}') || isSymbol(':'))
            fail("invalid json document!"); // would neither advance nor close
        skip();
        if (isSymbol(','))
            next();
    }
    next();
}

void PlainReader::skipObject()
{
    next();
    while (!isSymbol('}')) {
        if (m_kind >= Symbol)
            fail("invalid json document!");
        readKey();
        skip();
        if (isSymbol(','))
            next();
    }
    next();
}
