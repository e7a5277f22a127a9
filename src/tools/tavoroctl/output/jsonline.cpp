#include "jsonline.h"

#include <QJsonDocument>

namespace Tavoro::Ctl {

std::string formatHead()
{
    return R"({"formatVersion":)" + std::to_string(formatVersion) + ',';
}

std::string jsonLine(QJsonObject object)
{
    object.insert(QStringLiteral("formatVersion"), formatVersion);
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

std::string indented(const std::string &json)
{
    std::string text;
    std::size_t depth = 0;
    bool isInText = false;
    const auto newLine = [&] {
        text += '\n' + std::string(2 * depth, ' ');
    };
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char each = json[i];
        const bool opens = !isInText && (each == '{' || each == '[');
        const bool closes = !isInText && (each == '}' || each == ']');
        const bool isEmpty = closes && (json[i - 1] == '{' || json[i - 1] == '[');
        depth -= closes ? 1 : 0;
        if (closes && !isEmpty)
            newLine();
        text += each;
        depth += opens ? 1 : 0;
        if (isInText && each == '\\')
            text += json[++i];
        else if (each == '"')
            isInText = !isInText;
        else if (!isInText && each == ':')
            text += ' ';
        const bool isBeforeEnd = i + 1 < json.size() && (json[i + 1] == '}' || json[i + 1] == ']');
        if ((opens && !isBeforeEnd) || (!isInText && each == ','))
            newLine();
    }
    return text;
}

} // namespace Tavoro::Ctl
