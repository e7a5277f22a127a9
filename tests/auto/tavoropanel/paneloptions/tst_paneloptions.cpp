// The command line of the panel and its man page.

#include <programhelp/manpage.h>
#include <tavoropanel/options.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void optionsAreRead();
    void unknownThemeEndsWithTwo();
    void unknownOptionEndsWithTwo();
    void manPageListsAllOptions();
};

void tst_PanelOptions::optionsAreRead()
{
    const Options options = readOptions(
        {QStringLiteral("tavoropanel"), QStringLiteral("--demo"), QStringLiteral("--theme"),
         QStringLiteral("light"), QStringLiteral("--store"), QStringLiteral("walls.sqlite"),
         QStringLiteral("192.0.2.7"), QStringLiteral("[2001:db8::7]:6630")});
    QVERIFY(options.isDemo);
    QCOMPARE(options.theme, QStringLiteral("light"));
    QCOMPARE(options.store, QStringLiteral("walls.sqlite"));
    QCOMPARE(options.devices,
             QStringList({QStringLiteral("192.0.2.7"), QStringLiteral("[2001:db8::7]:6630")}));
    QCOMPARE(options.text, QString());
}

void tst_PanelOptions::unknownThemeEndsWithTwo()
{
    const Options options = readOptions(
        {QStringLiteral("tavoropanel"), QStringLiteral("--theme"), QStringLiteral("pink")});
    QCOMPARE(options.status, 2);
    QCOMPARE(options.text, QStringLiteral("\"pink\" is not a theme; use dark, light or system."));
}

void tst_PanelOptions::unknownOptionEndsWithTwo()
{
    const Options options = readOptions({QStringLiteral("tavoropanel"), QStringLiteral("--fly")});
    QCOMPARE(options.status, 2);
    QCOMPARE(options.text, QStringLiteral("Unknown option 'fly'."));
}

void tst_PanelOptions::manPageListsAllOptions()
{
    const QString page = Help::manPage(describeProgram());
    QCOMPARE(page.section(QStringLiteral(".SH OPTIONS\n"), 1), QStringLiteral(R"(.TP
\fB\-\-help\fR
Shows this help.
.TP
\fB\-\-version\fR
Shows the version.
.TP
\fB\-\-demo\fR
Starts with a simulated device. Other devices are neither opened nor stored.
.TP
\fB\-\-theme\fR \fIdark|light|system\fR
Colours: dark, light or system.
.TP
\fB\-\-store\fR \fIFILE\fR
File that keeps the devices.
.SH DETAILS
.nf
DEVICE is a device to open: HOST or HOST:PORT.
.fi
.SH EXIT STATUS
.TP
\fB0\fR
The window was closed.
.TP
\fB2\fR
The command line is not valid.
.SH SEE ALSO
\fBtavoroctl\fR(1), \fBtavorosim\fR(1)
)"));
}

QTEST_GUILESS_MAIN(tst_PanelOptions)
#include "tst_paneloptions.moc"
