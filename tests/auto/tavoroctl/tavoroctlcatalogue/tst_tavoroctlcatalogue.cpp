// The tool offers every operation of the control classes: their headers are compared with its
// table.

#include <tavoroctl/operations/operation.h>

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

class tst_TavoroCtlCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tableOffersEveryOperationOfTheHeaders_data();
    void tableOffersEveryOperationOfTheHeaders();
    void exceptionsAreMembersOfTheHeaders();
};

namespace {

/// Members that the tool cannot call by name, each with the reason.
struct Exception {
    const char *name;
    const char *reason;
};

// clang-format off
constexpr Exception exceptions[] = {
    {"Device.writeDeviceControlRequest",  "asks for control of the connection, not of the device's state"},
    {"Device.updateDeviceGroupInfo",      "applies a report"},
    {"Device.updateGenlockStatus",        "applies a report"},
    {"Device.updateTransferProgress",     "applies a report"},
    {"Device.updateInterfaceRelationInfo","applies a report"},
    {"Device.updatePowerConfig",          "applies a report"},
    {"Device.updateScreenGenlockInfo",    "applies a report"},
    {"Device.updateSubcardsInfo",         "applies a report"},
    {"Device.updateCutoutRGB",            "applies a report"},
    {"Interface.updateActualTiming",      "applies a report"},
    {"Interface.updateInterfaceGeneralInfo",     "applies a report"},
    {"Interface.updateInterfaceBitDepthInfo",    "applies a report"},
    {"Interface.updateInterfaceColorSpacesInfo", "applies a report"},
    {"Interface.updateInterfaceColorRangesInfo", "applies a report"},
    {"Interface.updateInterfaceHDRInfo",  "applies a report"},
    {"Screen.updateScreenZelkInfo",       "applies a report"},
    {"File.updateTransferProgress",       "applies a report"},
    {"Auxiliary.updateCutoutRGB",         "applies a report"},
    {"File.readBinary",                   "fetches content: the command pull"},
    {"File.importFileBinary",             "sends content: the command push"},
    {"File.writeFileBinary",              "sends content: the command push"},
    {"File.writeFile",                    "sends nothing"},
};
// clang-format on

bool isException(const QString &name)
{
    return std::any_of(std::begin(exceptions), std::end(exceptions),
                       [&](const Exception &row) { return name == QLatin1String(row.name); });
}

/// The public members of \a className that return bool.
QStringList operationsOf(const QString &className)
{
    QFile header(QStringLiteral(CONTROL_HEADERS "/%1.h").arg(className.toLower()));
    if (!header.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(header.readAll());
    text.remove(QRegularExpression(QStringLiteral("//[^\n]*")));
    text = text.section(QStringLiteral("public:"), 1).section(QStringLiteral("private:"), 0, 0);
    static const QRegularExpression member(QStringLiteral("\\bbool\\s+(\\w+)\\s*\\("));
    QStringList names;
    for (auto match = member.globalMatch(text); match.hasNext();)
        names += className + QLatin1Char('.') + match.next().captured(1);
    names.removeDuplicates();
    return names;
}

const QStringList classNames =
    QStringLiteral("Device Interface Screen Layer Preset File Auxiliary").split(QLatin1Char(' '));

} // namespace

void tst_TavoroCtlCatalogue::tableOffersEveryOperationOfTheHeaders_data()
{
    QTest::addColumn<QString>("className");
    for (const QString &name : classNames)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_TavoroCtlCatalogue::tableOffersEveryOperationOfTheHeaders()
{
    QFETCH(QString, className);
    QStringList expected;
    for (const QString &name : operationsOf(className)) {
        if (!isException(name))
            expected += name;
    }
    QStringList offered;
    for (const Tavoro::Ctl::Operation &operation : Tavoro::Ctl::allOperations()) {
        const QString name = QLatin1String(operation.name);
        if (name.startsWith(className + QLatin1Char('.')))
            offered += name;
    }
    expected.sort();
    offered.sort();
    QVERIFY(!expected.isEmpty());
    QCOMPARE(offered, expected);
}

void tst_TavoroCtlCatalogue::exceptionsAreMembersOfTheHeaders()
{
    QStringList all;
    for (const QString &name : classNames)
        all += operationsOf(name);
    for (const Exception &row : exceptions)
        QVERIFY2(all.contains(QLatin1String(row.name)), row.name);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlCatalogue)
#include "tst_tavoroctlcatalogue.moc"
