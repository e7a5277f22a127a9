// Links of the documentation lead to files and headings that exist.

#include <support/common/filecontent.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

namespace {

/// The lines of a page without its blocks of code.
QStringList proseOf(const QString &path)
{
    QStringList prose;
    bool isCode = false;
    const QStringList lines = QString::fromUtf8(contentOf(path)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("```")))
            isCode = !isCode;
        else if (!isCode)
            prose << line;
    }
    return prose;
}

/// The anchor that a heading gets: lower case, blanks as hyphens, without other characters.
QString anchorOf(QString heading)
{
    static const QRegularExpression marks(QStringLiteral("^#+ "));
    static const QRegularExpression others(QStringLiteral("[^\\w\\- ]"));
    heading.remove(marks);
    heading.remove(others);
    return heading.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QStringList anchorsOf(const QString &path)
{
    QStringList anchors;
    for (const QString &line : proseOf(path)) {
        if (line.startsWith(QLatin1Char('#')))
            anchors << anchorOf(line);
    }
    return anchors;
}

/// The targets of the links of a page, except other sites, and pictures, which scripts/screenshots
/// makes.
QStringList targetsOf(const QString &path)
{
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    QStringList targets;
    auto links = link.globalMatch(proseOf(path).join(QLatin1Char('\n')));
    while (links.hasNext()) {
        const QString target = links.next().captured(1);
        if (!target.contains(QLatin1String("://")) && !target.endsWith(QLatin1String(".png")))
            targets << target;
    }
    return targets;
}

bool exists(const QString &target, const QString &page)
{
    const QString name = target.section(QLatin1Char('#'), 0, 0);
    const QString anchor = target.section(QLatin1Char('#'), 1);
    const QString file = name.isEmpty() ? page : QFileInfo(page).dir().filePath(name);
    return QFileInfo::exists(file) && (anchor.isEmpty() || anchorsOf(file).contains(anchor));
}

} // namespace

class tst_PageLinks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linksLeadSomewhere_data();
    void linksLeadSomewhere();
    void missingFilesAndHeadingsAreFound();
};

void tst_PageLinks::linksLeadSomewhere_data()
{
    QTest::addColumn<QString>("page");
    const QStringList markdown{QStringLiteral("*.md")};
    int links = 0;
    for (const QDir &folder :
         {QDir(QStringLiteral(PROJECT)), QDir(QStringLiteral(PROJECT "/docs"))}) {
        for (const QString &name : folder.entryList(markdown)) {
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
            links += targetsOf(folder.filePath(name)).size();
        }
    }
    QVERIFY(links > 100);
}

void tst_PageLinks::linksLeadSomewhere()
{
    QFETCH(QString, page);
    for (const QString &target : targetsOf(page))
        QVERIFY2(exists(target, page), qPrintable(target));
}

void tst_PageLinks::missingFilesAndHeadingsAreFound()
{
    const QString page = QStringLiteral(PROJECT "/docs/session.md");
    QVERIFY(exists(QStringLiteral("model.md#timeouts-of-commands"), page));
    QVERIFY(exists(QStringLiteral("#states"), page));
    QVERIFY(!exists(QStringLiteral("missing.md"), page));
    QVERIFY(!exists(QStringLiteral("model.md#missing"), page));
}

QTEST_GUILESS_MAIN(tst_PageLinks)
#include "tst_pagelinks.moc"
