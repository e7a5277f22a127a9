#include "documentmaker.h"

#include <utility>

namespace {

using namespace std::string_literals;

// clang-format off
const std::vector<std::string> oddValues = {
    "{}", "[]", "[{}]", "{}{}", "null", "true", "TRUE", "tRuE", "false", "nil\\u0041", "a/b", "+5", ".5", "-", "-0", "-1", "-1.5", "1.5",
    "1e2", "1E2", "1e-2", "1e+2", "1e", "1e-", "1e2.5", "1e2e1", "1.2.3", "1.5e3", "0.29e2", "1e999999999", "-1e400", "1e-999999999",
    "1e12345678901", "12abc", "12\"", "0x10", "007", "4294967296", "18446744073709551616", "99999999999999999999999", "-2147483648",
    "-9223372036854775808", "9223372036854775807.5", "-9223372036854775808.0", "18446744073709551615e0", "1e19", "-129", "300", "65536",
    "\"7\"", "\"-5\"", "\" 12\"", "\"300\"", "\"true\"", "\"True\"", "\"1\"", "\"}\"", "\",\"", "\":\"", "\"]\"", "\"\"", "\"a\tb\"",
    "\"a\nb\"", "\"\\n\\\"\\/\\\\\\b\\f\\r\\t\"", "\"\\u00e9\\uD83D\\uDE00\"", "\"\\u0000\"", "\"\\u12\"", "\"\\x\"", "\"\\\n\"",
    "\"\xC3\xA9\"", "\"\xF0\x9F\x98\x80\"", "\"\xC3\"", "\"\x80\x7F\"", "\"\x01\"", "\xFFword", "\f", "\f 12", "word\\", "", " ", "1 2",
    ":", ",", "}", "]", "{", "[", "{\"a\":1,}", "[1,]", "[,,1 2]", "[1,[2,{\"k\":[}]]]", "{\"a\":}", "{1:2}", "[:]", "[}]", "\"open",
};

const std::vector<std::string> blanks = {
    " ", "\n", "\r\n", "\t", "  \n", "// note\n", "//\r\n//\n", "/* note */", "/*", "/**/", "/*/", "/", "/x", "\v", "\xA0",
};

const std::vector<std::string> words = {
    "\"\"", "\"a\"", "\"N/A\"", "\"192.168.0.10\"", "\"Screen 12, left\"", "\"a name that is longer than any short one\"",
    "\"exactly fifteen\"", "\"exactly sixteen.\"", "\"\\u00E9t\\u00E9\"", "\"tab\\tquote\\\"\"",
    "\"sixteen plain an\\u00E9d more\"", "\"thirty-two plain characters and \\n\"", "bare",
};

const std::vector<std::string> snippets = {
    "{", "}", "[", "]", ":", ",", "\"", "\\", "/", "/*", "*/", "//", "\n", "\r", " ", "-", ".", "e", "0", "9", "\xFF", "\x80", "{}", "[]",
    "\"id\":", "\"x\":1,", ",\"y\":3", "null", "\\u", "\\u00", "1e9", "}}", "]]", ",,", "a",
};
// clang-format on

} // namespace

std::string DocumentMaker::bytes(std::size_t maxSize)
{
    std::string bytes(below(maxSize + 1), '\0');
    const std::vector<std::string> escaped = {
        "\t", "\"", "\\", "\x01", "\x7F", "\xC3\xA9", "\xF0\x9F\x98\x80"};
    for (char &c : bytes)
        c = static_cast<char>(' ' + below('~' - ' '));
    for (std::size_t count = below(4); count > 0; --count)
        bytes.insert(below(bytes.size() + 1), oneOf(escaped));
    return bytes;
}

std::string DocumentMaker::blank()
{
    return isOdd() ? oneOf(blanks) : "";
}

std::string DocumentMaker::number(bool isSigned)
{
    const std::uint64_t digits[] = {10, 100, 256, 70000, 5000000000U, ~std::uint64_t(0)};
    const std::string magnitude = std::to_string(m_random() % digits[below(6)]);
    const bool isNegative = isSigned ? below(4) == 0 : isOdd();
    return (isNegative ? "-" : "") + magnitude;
}

std::string DocumentMaker::word()
{
    return oneOf(words);
}

std::string DocumentMaker::oddValue()
{
    if (below(30) == 0)
        return nested(1 + below(80));
    return below(200) == 0 ? "\0"s : oneOf(oddValues);
}

std::string DocumentMaker::nested(std::size_t depth)
{
    std::string open;
    std::string close;
    for (std::size_t i = 0; i < depth; ++i) {
        const bool object = below(2) == 0;
        open += object ? "{\"k\":" : "[";
        close.insert(0, object ? "}" : "]");
    }
    return open + oneOf(oddValues) + close;
}

std::string DocumentMaker::key(const std::string &name)
{
    if (isOdd())
        return oneOf({name, "\"" + name + "x\"", "\"unknown\"", "\"\"", "\"" + name + "\" ", "7",
                      "\"" + name.substr(1) + "\"", "\"" + name + "\"// c\n"});
    return "\"" + name + "\"";
}

std::string DocumentMaker::joined(std::vector<std::string> fields)
{
    if (fields.size() > 1 && isOdd())
        std::swap(fields[below(fields.size())], fields[below(fields.size())]);
    if (!fields.empty() && isOdd())
        fields.insert(fields.begin() + static_cast<std::ptrdiff_t>(below(fields.size())),
                      fields[below(fields.size())]);
    if (isOdd())
        fields.push_back("\"unknown\":" + oddValue());
    std::string object = "{" + blank();
    for (std::size_t i = 0; i < fields.size(); ++i)
        object += (i == 0 ? "" : ",") + blank() + fields[i];
    return object + (isOdd() ? ",}" : "}") + blank();
}

std::string DocumentMaker::mutated(std::string text)
{
    for (std::size_t count = below(8); count > 4; --count)
        mutateOnce(text);
    return text;
}

void DocumentMaker::mutateOnce(std::string &text)
{
    const std::size_t at = below(text.size() + 1);
    switch (below(6)) {
    case 0:
        text.resize(at);
        break;
    case 1:
        text.erase(at, 1 + below(4));
        break;
    case 2:
        text.insert(at, oneOf(snippets));
        break;
    case 3:
        text.insert(at, text.substr(below(text.size() + 1), 1 + below(20)));
        break;
    case 4:
        if (at < text.size())
            text[at] = static_cast<char>(m_random());
        break;
    case 5:
        if (at < text.size())
            text[at] = oneOf(snippets)[0];
        break;
    }
}
