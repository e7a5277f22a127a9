// The tokeniser.
//
//   token    = { blank | comment } ( symbol | quoted | number | bare | end of the input )
//   comment  = "//" { any but line feed, NUL }
//   blank    = tab | line feed | carriage return | space
//   symbol   = "{" | "}" | "[" | "]" | ":" | ","
//   quoted   = '"' { any but '"', "\", line feed, NUL | "\" any but NUL } '"'
//   number   = ( digit | "-" ) { digit } [ "." { digit } ] { exponent } [ "e" | "E" ]
//   exponent = ( "e" | "E" ) ( "-" { digit } | digit { digit } )
//   bare     = any other character, then all up to a blank or a symbol
//
// A number ends before the first character that cannot continue it, and what follows is the next
// token: "1e+2" is the number "1e" and the bare word "+2". A point after a point or after an
// exponent is an error.

#include "jsonreader.h"

#include "jsonexception.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace ajson {

namespace {

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

constexpr bool isSymbol(char c)
{
    return c == '{' || c == '}' || c == '[' || c == ']' || c == ':' || c == ',';
}

constexpr std::uint64_t digitValue(char digit)
{
    return static_cast<std::uint64_t>(digit - '0');
}

constexpr std::int32_t appendDigit(std::int32_t number, char digit)
{
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    return number > (most - 9) / 10 ? most : number * 10 + (digit - '0');
}

std::size_t lengthOf(const char *text, std::size_t length)
{
    return length == JsonReader::untilNul ? std::strlen(text) : length;
}

// Only the kind of the previous token can still matter: next() may leave that token current.
JsonToken tokenThatEndsAt(const char *place) noexcept
{
    JsonToken token;
    token.text = place - 1;
    token.length = 1;
    token.kind = isSymbol(*token.text) ? JsonTokenKind::symbol : JsonTokenKind::word;
    return token;
}

} // namespace

exception::~exception() = default;

JsonReader::JsonReader(const char *text, std::size_t length) noexcept
    : m_text(text ? text : ""),
      m_cursor(m_text),
      m_end(m_text + (text ? lengthOf(text, length) : 0))
{ }

void JsonReader::next()
{
    do {
        skipBlanks();
        token.negative = false;
        const char c = current();
        if (c == '"')
            return scanQuotedString();
        if (isSymbol(c))
            return readSymbol();
        if (isDigit(c))
            return scanNumber(JsonTokenKind::unsignedInteger);
        if (c == '-')
            return scanNumber(JsonTokenKind::negativeInteger);
        if (c == '\0') {
            token.kind = JsonTokenKind::end;
            token.text = m_cursor;
            token.length = 1;
            return;
        }
        if (c != '/')
            return scanBareWord();
    } while (skipComment());
}

void JsonReader::readTokenAt(const char *place)
{
    if (place != m_cursor) {
        m_cursor = place;
        token = place == m_text ? JsonToken() : tokenThatEndsAt(place);
    }
    next();
}

void JsonReader::fail(const char *words) const
{
    throw exception("error at line :" + std::to_string(line()) + " col :" + std::to_string(column())
                    + " msg:" + words);
}

// The cursor never arrives at the first character, so a line feed there does not begin a line. The
// end of the input counts as a character of its line.
std::uint64_t JsonReader::line() const noexcept
{
    if (m_cursor == m_text)
        return 0;
    const char *last = m_cursor == m_end ? m_cursor : m_cursor + 1;
    return static_cast<std::uint64_t>(std::count(m_text + 1, last, '\n'));
}

// A carriage return has no column, and a line feed has column 0 of the line that it begins.
std::uint64_t JsonReader::column() const noexcept
{
    std::uint64_t column = 0;
    for (const char *c = m_cursor; c != m_text; --c) {
        const char arrivedAt = c == m_end ? '\0' : *c;
        if (arrivedAt == '\n')
            break;
        if (arrivedAt != '\r')
            ++column;
    }
    return column;
}

void JsonReader::skipBlanks() noexcept
{
    while (isBlank(current()))
        ++m_cursor;
}

// Returns true after a line comment, false if a block comment runs to the end of the input.
// Kept: a block comment that is closed is an error.
bool JsonReader::skipComment()
{
    advance();
    if (current() == '/') {
        while (!atEnd() && current() != '\n')
            advance();
        return true;
    }
    if (current() != '*')
        fail("not a comment!");
    advance();
    while (!atEnd()) {
        const bool star = current() == '*';
        advance();
        if (star && current() == '/') {
            advance();
            fail("not a comment!");
        }
    }
    return false;
}

void JsonReader::readSymbol() noexcept
{
    token.kind = JsonTokenKind::symbol;
    token.text = m_cursor++;
    token.length = 1;
}

// A backslash only protects the next character. The escape is interpreted when the value is read.
void JsonReader::scanQuotedString()
{
    token.kind = JsonTokenKind::word;
    token.text = ++m_cursor;
    while (current() != '"') {
        if (atEnd() || current() == '\n')
            fail("not a valid quote string!");
        if (current() == '\\')
            advance();
        advance();
    }
    token.length = static_cast<std::size_t>(m_cursor - token.text);
    ++m_cursor;
}

void JsonReader::scanBareWord()
{
    token.kind = JsonTokenKind::word;
    token.text = m_cursor;
    while (!isBlank(current()) && !isSymbol(current())) {
        if (atEnd())
            fail("not a valid string!");
        advance();
    }
    token.length = static_cast<std::size_t>(m_cursor - token.text);
}

// Kept: the digits of an integer wrap around.
void JsonReader::scanNumber(JsonTokenKind kind)
{
    token.kind = kind;
    token.text = m_cursor;
    token.value.integer = 0;
    if (kind == JsonTokenKind::negativeInteger) {
        token.negative = true;
        ++m_cursor;
    }
    for (; isDigit(current()); ++m_cursor)
        token.value.integer = token.value.integer * 10 + digitValue(*m_cursor);
    while (scanFraction() || scanExponent()) { }
    token.length = static_cast<std::size_t>(m_cursor - token.text);
}

// Kept: the digits after the point are summed one by one, with the rounding that results: 0.29e2 is
// 29, and a correctly rounded 0.29 times 100 is not.
bool JsonReader::scanFraction()
{
    if (current() != '.')
        return false;
    if (token.kind == JsonTokenKind::floatNumber)
        fail("not a valid number!");
    becomeFloat();
    for (++m_cursor; isDigit(current()); ++m_cursor) {
        token.value.real += static_cast<double>(digitValue(*m_cursor)) * m_digitWeight;
        m_digitWeight *= 0.1;
    }
    return true;
}

// Returns false also if the number ends after its "e".
// Kept: a plus sign after the "e" begins the next token.
bool JsonReader::scanExponent()
{
    if (current() != 'e' && current() != 'E')
        return false;
    becomeFloat();
    ++m_cursor;
    const bool divides = current() == '-';
    if (divides)
        ++m_cursor;
    else if (!isDigit(current()))
        return false;
    for (; isDigit(current()); ++m_cursor)
        m_exponent = appendDigit(m_exponent, *m_cursor);
    scale(divides ? 0.1 : 10.0);
    return true;
}

void JsonReader::becomeFloat() noexcept
{
    const std::uint64_t integer = token.value.integer;
    if (token.kind == JsonTokenKind::negativeInteger)
        token.value.real = static_cast<double>(static_cast<std::int64_t>(integer));
    else if (token.kind == JsonTokenKind::unsignedInteger)
        token.value.real = static_cast<double>(integer);
    else
        return;
    token.kind = JsonTokenKind::floatNumber;
    m_digitWeight = 0.1;
}

// Stops when the value no longer changes, at 0 or infinity, so that a huge exponent takes no time.
void JsonReader::scale(double factor) noexcept
{
    for (; m_exponent > 0; --m_exponent) {
        const double scaled = token.value.real * factor;
        if (!(scaled < token.value.real || scaled > token.value.real))
            break;
        token.value.real = scaled;
    }
    m_exponent = 0;
}

} // namespace ajson
