#include "messagebox.h"

#include <tavorobizmodel/devicelist.h>
#include <tavoropanel/messages/messages.h>

#include <QMessageBox>

namespace Tavoro::Panel {

using namespace BizModel::Enum;

namespace {

void showBox(QWidget &window, FramelessMessageBoxMsgType type, const QString &text)
{
    // A device that repeats its demand must not pile up boxes.
    for (const QMessageBox *const open : window.findChildren<QMessageBox *>()) {
        if (open->text() == text)
            return;
    }
    auto *const box =
        new QMessageBox(type == MessageBoxWarning ? QMessageBox::Warning : QMessageBox::Information,
                        window.windowTitle(), text, QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

void showMessageBoxes(QWidget &window, Messages &messages)
{
    QObject::connect(
        BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowFramelessMessageBoxMsg,
        &window, [&window, &messages](FramelessMessageBoxMsgType type, const QString &text) {
            messages.report(type == MessageBoxWarning ? Severity::Warning : Severity::Information,
                            text);
            showBox(window, type, text);
            return 0;
        });
}

} // namespace Tavoro::Panel
