#pragma once

#include <QString>
#include <QTranslator>

/// Translates the texts of one context by putting them between angle brackets.
class MarkingTranslator : public QTranslator {
public:
    explicit MarkingTranslator(const char *context) : m_context(context) { }

    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return qstrcmp(context, m_context) == 0
            ? QStringLiteral("<%1>").arg(QString::fromUtf8(source))
            : QString();
    }
    bool isEmpty() const override { return false; }

private:
    const char *const m_context;
};
