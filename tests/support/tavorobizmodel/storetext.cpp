#include "storetext.h"

#include "rowtext.h"
#include "storefile.h"

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/proto/codec.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QRegularExpression>

using namespace Tavoro;

namespace {

constexpr int everyScreen = 0x7FFFFFFF;

QString withoutTimes(const QString &identity)
{
    static const QRegularExpression time(QStringLiteral("\"(startTime|configTime)\":[0-9]*"));
    return QString(identity).replace(time, QStringLiteral("\"\\1\":?"));
}

QString line(const QString &owner, int kind, const QString &key, const QString &record,
             const QByteArray &content)
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(owner, QString::number(kind), key, kind == 0 ? withoutTimes(record) : record,
             QString::fromLatin1(content.toHex()));
}

/// One row of the file, with its fields separated by spaces.
QString lineOf(const QString &row)
{
    const QStringList fields = row.split(QLatin1Char(' '));
    if (fields.size() != 7)
        return row;
    const auto bytes = [&](int field) {
        return QByteArray::fromHex(fields[field].toLatin1());
    };
    const QByteArray body = bytes(5);
    const QByteArray content = bytes(6);
    const QByteArray digest =
        QCryptographicHash::hash(fields[2].toLatin1() + ' ' + fields[3].toLatin1() + ' '
                                     + QByteArray::number(body.size()) + ' ' + body + content,
                                 QCryptographicHash::Sha1);
    const QString text = line(fields[0] + QLatin1Char(' ') + fields[1], fields[2].toInt(),
                              fields[3], RowText::of(body), content);
    return bytes(4) == digest ? text : text + QStringLiteral(" (not its digest)");
}

template <class Record>
QString json(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return QString::fromStdString(text);
}

QString key(std::initializer_list<int> numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    while (texts.size() < 5)
        texts << QStringLiteral("0");
    return texts.join(QLatin1Char('/'));
}

/// Bytes that are all ASCII. RowText turns them into a string.
template <std::size_t size>
QString rawBytes(const std::array<quint8, size> &bytes)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(bytes.data()), int(size));
}

QString identityOf(const BizModel::Device &device)
{
    const ProtoModel::DeviceBaseInfo info = device.deviceBaseInfo();
    QStringList slotModels;
    for (const quint16 model : info.slotModels)
        slotModels << QString::number(model);
    QString text = QStringLiteral("{\"info\":{");
    const auto number = [&](const char *name, quint64 value) {
        text += QStringLiteral("\"%1\":%2,").arg(QLatin1String(name)).arg(value);
    };
    const auto quoted = [&](const char *name, const QString &value) {
        text += QStringLiteral("\"%1\":\"%2\",").arg(QLatin1String(name), value);
    };
    number("protocolVersion", info.protocolVersion);
    number("modelId", info.modelId);
    quoted("sn", rawBytes(info.sn));
    quoted("mac", rawBytes(info.mac));
    number("hardwareVersion", info.hardwareVersion);
    number("firmwareVersion", info.firmwareVersion);
    number("tcpPort", info.tcpPort);
    number("slotCount", info.slotCount);
    number("backupPort", info.backupPort);
    number("maxPacketSize", info.maxPacketSize);
    quoted("name", QString::fromStdString(info.name));
    text += QStringLiteral("\"slotModels\":[%1],").arg(slotModels.join(QLatin1Char(',')));
    number("features", info.features);
    number("startTime", info.startTime);
    number("configTime", info.configTime);
    number("controlState", info.controlState);
    quoted("ip", QString::fromStdString(info.ip));
    quoted("hostName", QString::fromStdString(info.hostName));
    number("extension", info.extension);
    text.chop(1);
    text += QStringLiteral("},");
    quoted("ip", device.IPAddress());
    quoted("name", device.name());
    number("modelId", device.modelId());
    text.chop(1);
    return text + QLatin1Char('}');
}

/// Collects the lines of one device.
struct Lines {
    const QString owner;
    QStringList lines;

    void add(int kind, const QString &key, const QString &record, const QByteArray &content = {})
    {
        lines << line(owner, kind, key, record, content);
    }
    template <class Objects, class Key>
    void addAll(int kind, const Objects &objects, const Key &keyOf)
    {
        for (const auto &object : objects) {
            const auto detail = object.lock()->detail();
            add(kind, keyOf(detail), json(detail));
        }
    }
};

} // namespace

QStringList StoreText::storedIn(const QString &fileName)
{
    const QStringList rows = StoreFile(fileName).query(
        QStringLiteral("SELECT sn || ' ' || mac || ' ' || kind || ' ' || key || ' ' || hex(digest)"
                       " || ' ' || hex(body) || ' ' || hex(content)"
                       " FROM device LEFT JOIN record ON record.device = device.id"
                       " ORDER BY device.id, kind, position"));
    QStringList lines;
    for (const QString &row : rows)
        lines << lineOf(row);
    return lines;
}

QStringList StoreText::expectedOf(const BizModel::Device &device)
{
    Lines all{device.sn() + QLatin1Char(' ') + device.MAC(), {}};
    all.add(0, {}, identityOf(device));
    all.add(1, {}, json(device.deviceDetail()));
    all.addAll(2, device.interfaces(), [](const auto &detail) {
        const ProtoModel::s_InterfaceID &id = detail.interfaceId;
        return key({id.slotId, id.connectorId, id.splitId});
    });
    all.addAll(3, device.screens(everyScreen), [](const auto &detail) {
        return key({detail.screenType, detail.screenId});
    });
    all.addAll(4, device.layers(), [](const auto &detail) {
        const ProtoModel::Layer::s_LayerIdentity &id = detail.layerIdenti;
        return key({id.screenType, id.screenId, id.sceneType, id.layerType, id.layerId});
    });
    for (const auto &file : device.files()) {
        const auto detail = file.lock()->detail();
        all.add(5, key({detail.fileType, detail.fileId}), json(detail),
                QByteArray::fromStdString(detail.binary));
    }
    for (const auto &genlock : device.screenGenlocks())
        all.add(6, key({genlock.screenType, genlock.screenId}), json(genlock));
    all.add(7, {}, json(device.cutoutRGB()));
    return all.lines;
}

QStringList StoreText::ofKind(const QStringList &lines, int kind)
{
    QStringList found;
    for (const QString &line : lines) {
        if (line.section(QLatin1Char(' '), 2, 2).toInt() == kind)
            found << line;
    }
    return found;
}
