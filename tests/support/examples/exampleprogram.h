#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// An example as a process, with the lines that it prints.
class ExampleProgram {
public:
    ExampleProgram(const char *path, const QStringList &arguments)
    {
        process.start(QString::fromLocal8Bit(path), arguments);
    }
    ~ExampleProgram()
    {
        process.kill();
        process.waitForFinished(patience);
    }

    /// The next line; empty after the end of the program.
    QString readLine()
    {
        while (!process.canReadLine() && process.waitForReadyRead(patience)) { }
        return QString::fromUtf8(process.readLine()).remove(QLatin1Char('\n'));
    }
    /// Waits for the end, and returns what the program printed after the lines that were read.
    QString readAll()
    {
        process.waitForFinished(patience);
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    static constexpr int patience = 20000; ///< Milliseconds.
    QProcess process;
};
