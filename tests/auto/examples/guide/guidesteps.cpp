#include "guidesteps.h"

#include <support/common/filecontent.h>

#include <QFile>
#include <QRegularExpression>

namespace {

QString inserted(const QString &content, const GuideBlock &block, QString &fault)
{
    static const QRegularExpression after(QStringLiteral("^after the line `(.*)`$"));
    if (block.place.isEmpty())
        return block.text;
    if (block.place == QLatin1String("at the end"))
        return content + block.text;
    const QString wanted = after.match(block.place).captured(1);
    QStringList lines = content.split(QLatin1Char('\n'));
    int found = -1;
    int count = 0;
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].trimmed() == wanted) {
            found = i;
            ++count;
        }
    }
    if (wanted.isEmpty() || count != 1) {
        fault = QStringLiteral("%1 has %2 lines \"%3\"").arg(block.file).arg(count).arg(wanted);
        return content;
    }
    lines.insert(found + 1, block.text.chopped(1));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

GuidePage GuidePage::parse(const QString &page)
{
    static const QRegularExpression heading(QStringLiteral("^## (\\d+)\\. "));
    static const QRegularExpression place(QStringLiteral("^\\*\\*`([^`]+)`\\*\\*(?:, (.*))?:$"));
    GuidePage result;
    GuideBlock block;
    QString language;
    bool isCode = false;
    for (const QString &line : page.split(QLatin1Char('\n'))) {
        if (isCode && line == QLatin1String("```")) {
            isCode = false;
            if (!block.file.isEmpty())
                result.blocks << block;
            else if (language == QLatin1String("cpp") || language == QLatin1String("cmake"))
                result.faults << block.text;
            block.file.clear();
        } else if (isCode) {
            block.text += line + QLatin1Char('\n');
            if (language == QLatin1String("console") && line.startsWith(QLatin1String("$ ")))
                result.commands << line.mid(2);
        } else if (line.startsWith(QLatin1String("```"))) {
            isCode = true;
            language = line.mid(3);
            block.text.clear();
        } else if (heading.match(line).hasMatch()) {
            block.step = heading.match(line).captured(1).toInt();
        } else if (place.match(line).hasMatch()) {
            block.file = place.match(line).captured(1);
            block.place = place.match(line).captured(2);
        }
    }
    return result;
}

QVector<int> GuidePage::steps() const
{
    QVector<int> numbers;
    for (const GuideBlock &block : blocks) {
        if (!numbers.contains(block.step))
            numbers << block.step;
    }
    return numbers;
}

QString GuidePage::type(int step, const QDir &folder) const
{
    QString fault;
    for (const GuideBlock &block : blocks) {
        if (block.step != step)
            continue;
        const QString path = folder.filePath(block.file);
        const QString content = QString::fromUtf8(contentOf(path));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)
            || file.write(inserted(content, block, fault).toUtf8()) < 0)
            return file.errorString();
    }
    return fault;
}
