#pragma once

#include <QString>
#include <QStringList>

namespace Tavoro::BizModel {

/// The faults in the data that a device sent, one sentence each.
class DataFaults {
public:
    void add(const QString &sentence);
    /// Adds the fault that \a what occurs twice.
    void addTwice(const QString &what);
    /// Returns true if there are no faults. Otherwise returns false, with the first few sentences
    /// in \a error.
    bool report(QString &error) const;

private:
    QStringList m_sentences; // the first few
    int m_count = 0;
};

} // namespace Tavoro::BizModel
