#include "statusmeaning.h"

#include <tavoroctl/arguments/texts.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Ctl", text)

struct MeaningRow {
    int status;
    const char *meaning;
};

// clang-format off
constexpr MeaningRow rows[] = {
    {1,  TEXT("unknown command, or the device does not support it with this type")},
    {2,  TEXT("the command does not accept this body")},
    {3,  TEXT("the body or the filters name an object that does not exist")},
    {4,  TEXT("a value is out of range")},
    {5,  TEXT("not the expected packet of a split exchange")},
    {6,  TEXT("the answer whose further packet was requested is not kept")},
    {7,  TEXT("the packet, or the whole of a split write, is longer than the device accepts")},
    {8,  TEXT("not possible now, for example because of other work or of a limit")},
    {9,  TEXT("length or hash of a file's content differ from those announced")},
    {10, TEXT("storage is full or has failed")},
    {67, TEXT("another client holds control of the device")},
    {68, TEXT("the device's data was changed by another client: synchronise first")},
};
// clang-format on

/// The control library's text for statuses of devices, in the language of the application.
QRegularExpression statusPattern()
{
    const QString text =
        QCoreApplication::translate("Tavoro::Control::ControlHelper", "hardware error:%1");
    return QRegularExpression(
        QRegularExpression::escape(text).replace(QStringLiteral("\\%1"), QStringLiteral("(\\d+)")));
}

} // namespace

QString meaningOfStatus(int status)
{
    const auto *const found =
        std::find_if(std::begin(rows), std::end(rows),
                     [=](const MeaningRow &row) { return row.status == status; });
    return found == std::end(rows) ? Texts::tr("a status that only this device defines")
                                   : Texts::tr(found->meaning);
}

QString withMeanings(const QString &text)
{
    const QRegularExpressionMatch match = statusPattern().match(text);
    if (!match.hasMatch())
        return text;
    QString explained = text;
    return explained.insert(
        match.capturedEnd(),
        QStringLiteral(" (%1)").arg(meaningOfStatus(match.captured(1).toInt())));
}

} // namespace Tavoro::Ctl
