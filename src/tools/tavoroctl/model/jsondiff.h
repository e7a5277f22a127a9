#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <vector>

namespace Tavoro::Ctl {

/// A value that differs. Undefined on the side where it does not exist.
struct Difference {
    QString path; ///< "window.x"; elements of lists are named by their index: "powers[0].status".
    QJsonValue before;
    QJsonValue after;

    /// "window.x 0 -> 960".
    QString text() const;
    /// "path", "before" and "after"; a value that does not exist has no key.
    QJsonObject toJson() const;
};

/// The differences between two values, in the order of their keys.
std::vector<Difference> differences(const QJsonValue &before, const QJsonValue &after);

/// The same as one text, separated by commas.
QString textOf(const std::vector<Difference> &differences);

} // namespace Tavoro::Ctl
