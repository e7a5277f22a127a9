#pragma once

#include <QDir>
#include <QString>
#include <QStringList>
#include <QVector>

/// A block of code that the guide lets its reader type.
struct GuideBlock {
    int step = 0; ///< The number in the heading of the section.
    QString file;
    QString place; ///< "", "at the end", or "after the line `…`".
    QString text;
};

/// docs/guide.md as its reader follows it. A bold line above a block names the file and the place:
/// \code
/// **`FILE`**:
/// **`FILE`**, after the line `LINE`:
/// **`FILE`**, at the end:
/// \endcode
class GuidePage {
public:
    static GuidePage parse(const QString &page);

    /// The steps that change files.
    QVector<int> steps() const;
    /// Types the blocks of a step into the files of \a folder. Returns what is wrong, or nothing.
    QString type(int step, const QDir &folder) const;

    QVector<GuideBlock> blocks;
    QStringList commands; ///< The lines "$ COMMAND".
    QStringList faults; ///< Blocks of code that do not belong to a file.
};
