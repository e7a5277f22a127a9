#pragma once

#include <QByteArrayList>
#include <QStringList>

/// The texts of UTF-8 bytes, for rows of tables with literals.
inline QStringList toTexts(const QByteArrayList &bytes)
{
    QStringList texts;
    for (const QByteArray &text : bytes)
        texts += QString::fromUtf8(text);
    return texts;
}
