#pragma once

#include "message.h"

#include <tavorosession/outcome.h>

#include <QAbstractTableModel>

#include <deque>

namespace Tavoro::Panel {

/// The messages of this run, oldest first: what the library shows on the status bar, outcomes of
/// calls, and what the parts of the window report. The log view and the status bar show them.
///
/// Keeps the last maxMessages. All members are called on the application's thread.
class Messages : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The columns.
    enum Column {
        TimeColumn,
        SeverityColumn,
        DeviceColumn,
        TextColumn,
        columns
    };
    /// The role whose value is the Severity as a number.
    static constexpr int severityRole = Qt::UserRole;
    static constexpr int maxMessages = 2000;

    explicit Messages(QObject *parent = nullptr);

    /// Reports what became of a call. Reports nothing if it was carried out, since the library does
    /// so, and nothing if a newer call has replaced it.
    void report(const Outcome &outcome);
    /// Reports a sentence, which may concern a device.
    void report(Severity severity, const QString &text, const QString &device = {});

    const Message &message(int row) const { return m_messages[static_cast<std::size_t>(row)]; }
    /// The word for a severity.
    static QString severityName(Severity severity);
    /// A message as one line: time, severity, device and sentence, separated by tabs.
    static QString line(const Message &message);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// A message was added.
    void reported(const Tavoro::Panel::Message &message);

private:
    std::deque<Message> m_messages;
};

} // namespace Tavoro::Panel
