// Skips the value of a key that the record does not have.
//
//   value  = word | number | array | object | nothing
//   array  = "[" { value [ "," ] } "]"
//   object = "{" { ( word | number ) ":" value [ "," ] } "}"
//
// "nothing" precedes the end of the input, and a symbol that does not begin a value. An array that
// contains such a symbol, other than a comma, could neither continue nor end: that is an error.

#include "valuereader.h"

#include <vector>

namespace ajson {

namespace {

constexpr char badDocument[] = "invalid json document!";

// Which of the open containers are objects, one bit each: the first 64 levels allocate no memory.
class Nesting {
public:
    bool isEmpty() const { return m_depth == 0; }
    bool isInArray() const { return m_depth != 0 && (m_innermost & 1) == 0; }
    bool isInObject() const { return (m_innermost & 1) != 0; }

    void open(bool object)
    {
        if (m_depth != 0 && m_depth % 64 == 0)
            m_outer.push_back(m_innermost);
        m_innermost = m_innermost << 1 | (object ? 1 : 0);
        ++m_depth;
    }

    void close()
    {
        m_innermost >>= 1;
        --m_depth;
        if (m_depth != 0 && m_depth % 64 == 0) {
            m_innermost = m_outer.back();
            m_outer.pop_back();
        }
    }

private:
    std::uint64_t m_innermost = 0;
    std::vector<std::uint64_t> m_outer;
    std::size_t m_depth = 0;
};

void skipKey(JsonReader &reader)
{
    if (reader.token.kind >= JsonTokenKind::symbol)
        reader.fail(badDocument);
    reader.next();
    if (!reader.token.isSymbol(':'))
        reader.fail(badDocument);
    reader.next();
}

void skipComma(JsonReader &reader, const Nesting &nesting)
{
    if (!nesting.isEmpty() && reader.token.isSymbol(','))
        reader.next();
}

// Skips a value that contains no others, or a missing value.
void skipScalar(JsonReader &reader, const Nesting &nesting)
{
    if (reader.token.kind < JsonTokenKind::symbol)
        reader.next();
    else if (nesting.isInArray() && !reader.token.isSymbol(','))
        reader.fail(badDocument);
    skipComma(reader, nesting);
}

bool closes(const JsonToken &token, const Nesting &nesting)
{
    return !nesting.isEmpty() && token.isSymbol(nesting.isInObject() ? '}' : ']');
}

} // namespace

void skipValue(JsonReader &reader)
{
    Nesting nesting;
    do {
        const bool object = reader.token.isSymbol('{');
        if (object || reader.token.isSymbol('[')) {
            nesting.open(object);
            reader.next();
        } else {
            skipScalar(reader, nesting);
        }
        while (closes(reader.token, nesting)) {
            nesting.close();
            reader.next();
            skipComma(reader, nesting);
        }
        if (nesting.isInObject())
            skipKey(reader);
    } while (!nesting.isEmpty());
}

} // namespace ajson
