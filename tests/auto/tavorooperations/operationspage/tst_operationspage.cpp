// The list in docs/operations.md is that of the table.

#include <tavorooperations/operation.h>

#include <QFile>
#include <QTest>

using namespace Tavoro::Operations;

class tst_OperationsPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pageListsTheTable();
};

namespace {

QString code(const QString &text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

QString argumentsOf(const Operation &operation)
{
    QStringList texts;
    for (const Argument &argument : operation.arguments())
        texts += argument.name + QLatin1Char(' ') + code(argument.type);
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral(", "));
}

/// "all files", or "files by `fileType`, `fileId`".
QString textOf(const Change &change)
{
    if (change.kind == ScopeKind::Device)
        return QStringLiteral("the device");
    const QString kind = QStringLiteral("interfaces files screens layers")
                             .section(QLatin1Char(' '), int(change.kind) - 1, int(change.kind) - 1);
    if (change.keys.isEmpty())
        return QStringLiteral("all ") + kind;
    QStringList keys;
    for (const QString &key : change.keys)
        keys += code(key);
    return kind + QStringLiteral(" by ") + keys.join(QStringLiteral(", "));
}

QString resultOf(const Operation &operation)
{
    if (!operation.answer().isEmpty())
        return QStringLiteral("returns ") + code(operation.answer());
    if (operation.direction() == Direction::Read)
        return QStringLiteral("only changes the model");
    QStringList texts;
    for (const Change &change : operation.changes())
        texts += textOf(change);
    if (texts.isEmpty())
        return QStringLiteral("changes no scope: ") + operation.whyNothingChanges();
    return QStringLiteral("changes ") + texts.join(QStringLiteral("; "));
}

QStringList expectedLines()
{
    QStringList lines = {QStringLiteral("| operation | what it does | arguments | result |"),
                         QStringLiteral("|---|---|---|---|")};
    for (const Operation &operation : all())
        lines += QStringLiteral("| `%1` | %2 | %3 | %4 |")
                     .arg(operation.name(), operation.summary(), argumentsOf(operation),
                          resultOf(operation));
    return lines;
}

} // namespace

void tst_OperationsPage::pageListsTheTable()
{
    QFile page(QStringLiteral(OPERATIONS_PAGE));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const QStringList lines = text.mid(text.indexOf(QStringLiteral("\n| operation |")) + 1)
                                  .trimmed()
                                  .split(QLatin1Char('\n'));
    const QStringList expected = expectedLines();
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(lines.value(i), expected.at(i));
    QCOMPARE(lines.size(), expected.size());
}

QTEST_GUILESS_MAIN(tst_OperationsPage)
#include "tst_operationspage.moc"
