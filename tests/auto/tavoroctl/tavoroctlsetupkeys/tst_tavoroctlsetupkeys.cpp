// Which keys of a setup can be written.

#include <support/tavoroctl/setupcalls.h>

#include <tavoroctl/model/readonlykeys.h>
#include <tavoroctl/model/setup.h>
#include <tavoroctl/model/setupwrites.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <set>

using namespace Tavoro::Ctl;
using Tavoro::Operations::ScopeKind;

namespace {

/// The paths of all texts and numbers in \a value.
QList<QStringList> leavesOf(const QJsonValue &value)
{
    QList<QStringList> leaves;
    const auto add = [&](const QString &step, const QJsonValue &member) {
        for (const QStringList &rest : leavesOf(member))
            leaves += QStringList{step} + rest;
    };
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QString &key : object.keys())
            add(key, object.value(key));
    } else if (value.isArray()) {
        for (int i = 0; i < value.toArray().size(); ++i)
            add(QString::number(i), value.toArray().at(i));
    } else {
        leaves += QStringList();
    }
    return leaves;
}

/// The path as differences name it: "subcards[0].online".
QString pathText(const QStringList &steps)
{
    QString text;
    for (const QString &step : steps) {
        bool isIndex = false;
        step.toInt(&isIndex);
        if (isIndex)
            text += QLatin1Char('[') + step + QLatin1Char(']');
        else
            text += (text.isEmpty() ? QString() : QStringLiteral(".")) + step;
    }
    return text;
}

struct ListOfKind {
    ScopeKind kind;
    const char *key;
    bool isIdentity(const QString &path) const
    {
        static const QStringList keys{QStringLiteral("screenId"), QStringLiteral("screenType"),
                                      QStringLiteral("fileId"), QStringLiteral("fileType")};
        return keys.contains(path) || path.startsWith(QLatin1String("layerIdenti."))
            || path.startsWith(QLatin1String("interfaceId."));
    }
};

constexpr ListOfKind lists[] = {
    {ScopeKind::Device, "device"},   {ScopeKind::Interfaces, "interfaces"},
    {ScopeKind::Screens, "screens"}, {ScopeKind::Layers, "layers"},
    {ScopeKind::Files, "files"},
};

} // namespace

class tst_TavoroCtlSetupKeys : public QObject, private SetupCalls {
    Q_OBJECT

private Q_SLOTS:
    void init() { startDevice(); }
    void cleanup() { m_bench.reset(); }

    void everyKeyIsWrittenOrReadOnly_data();
    void everyKeyIsWrittenOrReadOnly();
    void readOnlyKeysAreThose();
};

void tst_TavoroCtlSetupKeys::everyKeyIsWrittenOrReadOnly_data()
{
    QTest::addColumn<int>("list");
    for (std::size_t i = 0; i < std::size(lists); ++i)
        QTest::newRow(lists[i].key) << int(i);
}

void tst_TavoroCtlSetupKeys::everyKeyIsWrittenOrReadOnly()
{
    QFETCH(int, list);
    const ListOfKind &row = lists[list];
    const QString key = QLatin1String(row.key);
    const QJsonObject present = sync();
    const QJsonValue records = present.value(key);
    QStringList place{key};
    if (records.isArray())
        place += QString::number(0);
    const QList<QStringList> leaves =
        leavesOf(records.isArray() ? records.toArray().at(0) : records);
    QVERIFY(leaves.size() > 4);
    for (const QStringList &leaf : leaves) {
        const QString path = pathText(leaf);
        if (row.isIdentity(path))
            continue;
        const QJsonObject wanted =
            changedAt(present, place + leaf, [](const QJsonValue &value) -> QJsonValue {
                return value.isString() ? QJsonValue(value.toString() + QLatin1Char('x'))
                                        : QJsonValue(value.toInt() == 0 ? 1 : 0);
            }).toObject();
        QString fault;
        const std::vector<SetupChange> changes = compareSetups(present, wanted, fault);
        QCOMPARE(fault, QString());
        if (isReadOnly(row.kind, path)) {
            QVERIFY2(changes.empty(), qPrintable(path));
            continue;
        }
        QVERIFY2(changes.size() == 1 && changes.front().differences.size() == 1, qPrintable(path));
        QCOMPARE(changes.front().differences.front().path, path);
        const std::vector<SetupWrite> writes = writesFor(changes, fault);
        QVERIFY2(fault.isEmpty(), qPrintable(path + QStringLiteral(": ") + fault));
        QVERIFY2(!writes.empty(), qPrintable(path));
    }
}

void tst_TavoroCtlSetupKeys::readOnlyKeysAreThose()
{
    static const QRegularExpression index(QStringLiteral("\\[\\d+\\]"));
    std::set<QString> found; // Down to the third key.
    const QJsonObject present = sync();
    for (const ListOfKind &row : lists) {
        const QJsonValue records = present.value(QLatin1String(row.key));
        const QJsonValue record = records.isArray() ? records.toArray().at(0) : records;
        for (const QStringList &leaf : leavesOf(record)) {
            const QString path = pathText(leaf);
            const QString shown = path.section(QLatin1Char('.'), 0, 2);
            if (isReadOnly(row.kind, path))
                found.insert(QLatin1String(row.key) + QLatin1Char('.')
                             + QString(shown).replace(index, QStringLiteral("[]")));
        }
    }
    QByteArray list;
    for (const QString &path : found)
        list += path.toUtf8() + '\n';
    QCOMPARE(list,
             QByteArray("device.general.status\n"
                        "device.genlockSignal.extSignalIn\n"
                        "device.genlockSignal.status\n"
                        "device.networks[].MAC\n"
                        "device.networks[].index\n"
                        "device.powers[].iSignal\n"
                        "device.powers[].powerId\n"
                        "device.powers[].status\n"
                        "device.subcards[].boardId\n"
                        "device.subcards[].cardType\n"
                        "device.subcards[].connectors[].id\n"
                        "device.subcards[].connectors[].type\n"
                        "device.subcards[].modelId\n"
                        "device.subcards[].online\n"
                        "device.subcards[].slotId\n"
                        "files.size.hashSum\n"
                        "files.size.height\n"
                        "files.size.length\n"
                        "files.size.width\n"
                        "files.source.id\n"
                        "files.source.type\n"
                        "files.source.zoomRatio\n"
                        "interfaces.HDCP.actualType\n"
                        "interfaces.HDR.colorGamut.actualColorGamut\n"
                        "interfaces.HDR.dynamicRange.actualDynamicRange\n"
                        "interfaces.actualTiming.compatMode\n"
                        "interfaces.actualTiming.horizontal.addTime\n"
                        "interfaces.actualTiming.horizontal.frontPorch\n"
                        "interfaces.actualTiming.horizontal.sync\n"
                        "interfaces.actualTiming.horizontal.syncPolarity\n"
                        "interfaces.actualTiming.horizontal.totalTime\n"
                        "interfaces.actualTiming.interlaced\n"
                        "interfaces.actualTiming.refresh\n"
                        "interfaces.actualTiming.vertical.addTime\n"
                        "interfaces.actualTiming.vertical.frontPorch\n"
                        "interfaces.actualTiming.vertical.sync\n"
                        "interfaces.actualTiming.vertical.syncPolarity\n"
                        "interfaces.actualTiming.vertical.totalTime\n"
                        "interfaces.colorDepths.actualColorDepth\n"
                        "interfaces.colorRanges.actualColorRange\n"
                        "interfaces.colorSpaces.actualColorSpace\n"
                        "interfaces.general.type\n"
                        "screens.HDR.colorGamut.actualColorGamut\n"
                        "screens.HDR.dynamicRange.actualDynamicRange\n"
                        "screens.screenZeLK.status\n"
                        "screens.tbar.percent\n"));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlSetupKeys)
#include "tst_tavoroctlsetupkeys.moc"
