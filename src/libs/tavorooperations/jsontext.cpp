#include <tavorooperations/jsontext.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace Tavoro::Operations {

QString jsonText(const QJsonValue &value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

QJsonValue jsonValue(const std::string &text)
{
    const QByteArray list = '[' + QByteArray::fromStdString(text) + ']';
    return QJsonDocument::fromJson(list).array().at(0);
}

} // namespace Tavoro::Operations
