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

} // namespace Tavoro::Ctl
