#include <support/wireshark/tshark.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace Tshark {

namespace {

/// tshark warns the user root, and the tests of a container run as root.
bool isError(const QString &line)
{
    return !line.isEmpty() && !line.startsWith(QLatin1String("Running as user"));
}

QStringList errorsOf(const QByteArray &output)
{
    QStringList errors;
    for (const QString &line : QString::fromUtf8(output).split(QLatin1Char('\n')))
        if (isError(line))
            errors.append(line);
    return errors;
}

/// A folder without settings and plugins.
const QTemporaryDir &emptyFolder()
{
    static const QTemporaryDir folder;
    return folder;
}

QProcessEnvironment environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "WIRESHARK_CONFIG_DIR"})
        environment.insert(QLatin1String(name), emptyFolder().path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    return environment;
}

} // namespace

bool isInstalled()
{
    return !QStandardPaths::findExecutable(QStringLiteral("tshark")).isEmpty();
}

void start(QProcess &tshark, const QStringList &arguments)
{
    tshark.setProcessEnvironment(environment());
    tshark.start(QStringLiteral("tshark"),
                 arguments
                     + QStringList{QStringLiteral("-X"), QStringLiteral("lua_script:" DISSECTOR)});
}

QString run(const QStringList &arguments)
{
    QProcess tshark;
    start(tshark, arguments);
    if (!tshark.waitForFinished(120000))
        qFatal("tshark: %s", qUtf8Printable(tshark.errorString()));
    const QStringList errors = errorsOf(tshark.readAllStandardError());
    if (!errors.isEmpty() || tshark.exitCode() != 0)
        qFatal("tshark: %s", qUtf8Printable(errors.join(QLatin1Char('\n'))));
    return QString::fromUtf8(tshark.readAllStandardOutput());
}

QStringList lines(const QString &capture, const QString &filter, const QStringList &arguments)
{
    const QStringList words{QStringLiteral("-2"), QStringLiteral("-r"), capture,
                            QStringLiteral("-Y"), filter};
    QStringList lines = run(words + arguments).split(QLatin1Char('\n'));
    lines.removeLast();
    return lines;
}

QStringList fields(const QString &capture, const QString &filter, const QStringList &fields,
                   const QStringList &arguments)
{
    QStringList words{QStringLiteral("-T"), QStringLiteral("fields"), QStringLiteral("-E"),
                      QStringLiteral("separator=|")};
    for (const QString &field : fields)
        words << QStringLiteral("-e") << field;
    return lines(capture, filter, words + arguments);
}

QStringList infos(const QString &capture, const QStringList &arguments)
{
    return fields(capture, QStringLiteral("tavoro || tavoro_discovery"),
                  {QStringLiteral("_ws.col.Info")}, arguments);
}

} // namespace Tshark
