// The configuration file of the gateway, and what is said about mistakes in it.

#include <tavorogate/config/gateconfig.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Tavoro;

class tst_GatewayConfig : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKeyIsRead();
    void shortFileHasDefaults();
    void mistakesAreNamed_data();
    void mistakesAreNamed();
    void missingFileIsNamed();

private:
    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the file");
        return file.fileName();
    }

    QTemporaryDir m_folder;
    QString m_error;
};

void tst_GatewayConfig::everyKeyIsRead()
{
    const QByteArray folder = m_folder.path().toLocal8Bit();
    write(QStringLiteral("password"), "secret\n");
    write(QStringLiteral("file.pem"), "x");
    QByteArray text = R"({
    "name": "stage left",
    "broker": {
        "host": "broker.example", "port": 8883, "user": "gate", "passwordFile": "FOLDER/password",
        "keepAlive": 30,
        "tls": {"authorities": "FOLDER/file.pem", "certificate": "FOLDER/file.pem", "key": "FOLDER/file.pem"}
    },
    "devices": ["192.0.2.7", "wall.example:7000", "[2001:db8::1]:7001"],
    "discovery": true,
    "controlIdleSeconds": 60,
    "calls": {"requireUser": true},
    "metricsFile": "/run/tavorogate.prom"
})";
    text.replace("FOLDER", folder);
    const auto config = Gate::readConfig(write(QStringLiteral("gate.json"), text), m_error);
    QVERIFY2(config, qPrintable(m_error));
    QCOMPARE(config->name, QStringLiteral("stage left"));
    QCOMPARE(config->broker.clientId, QStringLiteral("tavorogate-stage left"));
    QCOMPARE(config->broker.host, QStringLiteral("broker.example"));
    QCOMPARE(config->broker.port, quint16(8883));
    QCOMPARE(config->broker.user, QStringLiteral("gate"));
    QCOMPARE(config->broker.password, QByteArray("secret"));
    QCOMPARE(config->broker.keepAliveSeconds, 30);
    QCOMPARE(config->broker.tls.authorities, m_folder.filePath(QStringLiteral("file.pem")));
    QCOMPARE(config->broker.tls.certificate, m_folder.filePath(QStringLiteral("file.pem")));
    QCOMPARE(config->broker.tls.key, m_folder.filePath(QStringLiteral("file.pem")));
    const QList<QPair<QString, quint16>> devices{{QStringLiteral("192.0.2.7"), quint16(6630)},
                                                 {QStringLiteral("wall.example"), quint16(7000)},
                                                 {QStringLiteral("2001:db8::1"), quint16(7001)}};
    QCOMPARE(config->devices, devices);
    QVERIFY(config->usesDiscovery);
    QCOMPARE(config->controlIdleSeconds, 60);
    QVERIFY(config->calls.requiresUser);
    QCOMPARE(config->metricsFile, QStringLiteral("/run/tavorogate.prom"));
}

void tst_GatewayConfig::shortFileHasDefaults()
{
    const auto config = Gate::readConfig(
        write(QStringLiteral("gate.json"), R"({"devices": ["192.0.2.7"]})"), m_error);
    QVERIFY2(config, qPrintable(m_error));
    QCOMPARE(config->name, QSysInfo::machineHostName());
    QCOMPARE(config->broker.host, QStringLiteral("127.0.0.1"));
    QCOMPARE(config->broker.port, quint16(1883));
    QVERIFY(!config->broker.tls.isEnabled());
    QCOMPARE(config->controlIdleSeconds, 5);
    QVERIFY(!config->calls.requiresUser);
}

void tst_GatewayConfig::mistakesAreNamed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const char *text, const char *message) {
        QTest::newRow(name) << QByteArray(text) << QString::fromLatin1(message);
    };
    const char *const noPassword = "line 1: \"broker.passwordFile\" must be a file that can be "
                                   "read: No such file or directory";
    const char *const addresses =
        "line 1: \"devices\" must be a list of addresses, each \"HOST\" or \"HOST:PORT\"";
    const char *const noKey = "line 1: \"broker.tls.key\" must be a file that can be read: "
                              "No such file or directory";
    const char *const noAddress =
        "line 1: \"devices\" must be a list of addresses, each \"HOST\" or \"HOST:PORT\", but "
        "entry 2 is \"192.0.2.7:0x\"";
    const char *const number =
        "line 1: \"devices\" must be a list of addresses, each \"HOST\" or \"HOST:PORT\", but "
        "entry 1 is 7";
    // clang-format off
    row("no JSON",         "{\n} x",                                          "line 2: garbage at the end of the document");
    row("no object",       "[]",                                              "expected a JSON object");
    row("unknown key",     "{\n\n\"broker\": {\"prot\": 1}}",                 "line 3: unknown key \"broker.prot\"; did you mean \"broker.port\"");
    row("not a port",      "{\"broker\": {\n\"port\": 0}}",                   "line 2: \"broker.port\" must be a whole number from 1 to 65535");
    row("not a number",    "{\"controlIdleSeconds\": \"5\"}",                 "line 1: \"controlIdleSeconds\" must be a whole number from 1 to 3600");
    row("not a flag",      "{\"discovery\": 1}",                              "line 1: \"discovery\" must be true or false");
    row("not a name",      "{\"name\": \"a/b\"}",                             "line 1: \"name\" must be a text without the characters / + #, and not empty");
    row("not a host",      "{\"broker\": {\"host\": \"\"}}",                  "line 1: \"broker.host\" must be a text that is not empty");
    row("not a list",      "{\"devices\": \"192.0.2.7\"}",                    addresses);
    row("not an address",  "{\"devices\": [\"192.0.2.7\", \"192.0.2.7:0x\"]}", noAddress);
    row("not a text",      "{\"devices\": [7]}",                              number);
    row("object for list", "{\"devices\": {}}",                               addresses);
    row("object for text", "{\"name\": {\"x\": 1}}",                          "line 1: \"name\" must be a text without the characters / + #, and not empty");
    row("text for object", "{\"broker\": \"x\"}",                             "line 1: \"broker\" must be an object, but it is \"x\"");
    row("list for object", "{\n\"calls\": []}",                              "line 2: \"calls\" must be an object, but it is []");
    row("number for tls",  "{\"broker\": {\"tls\": 1}}",                      "line 1: \"broker.tls\" must be an object, but it is 1");
    row("unknown object",  "{\"brokr\": {\"port\": 1}}",                      "line 1: unknown key \"brokr\"; did you mean \"broker\"");
    row("no certificate",  "{\"broker\": {\"tls\": {\"key\": \"/x\"}}}",      noKey);
    row("directory",       "{\"broker\": {\"tls\": {\"authorities\": \"/\"}}}", "line 1: \"broker.tls.authorities\" must be a file, but / is a directory");
    row("not a file name", "{\"broker\": {\"passwordFile\": 1}}",             "line 1: \"broker.passwordFile\" must be the name of a file");
    row("no password",     "{\"broker\": {\"passwordFile\": \"/x\"}}",        noPassword);
    row("nothing to do",   "{}",                                              "there is nothing to do: set \"devices\" or \"discovery\"");
    // clang-format on
}

void tst_GatewayConfig::mistakesAreNamed()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const QString name = write(QStringLiteral("gate.json"), text);
    QVERIFY(!Gate::readConfig(name, m_error));
    const QString separator =
        message.startsWith(QLatin1String("line")) ? QStringLiteral(", ") : QStringLiteral(": ");
    QCOMPARE(m_error, name + separator + message);
}

void tst_GatewayConfig::missingFileIsNamed()
{
    QVERIFY(!Gate::readConfig(QStringLiteral("/nowhere.json"), m_error));
    QCOMPARE(m_error, QStringLiteral("/nowhere.json: No such file or directory"));
}

QTEST_GUILESS_MAIN(tst_GatewayConfig)
#include "tst_gatewayconfig.moc"
