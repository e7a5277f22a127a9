#include "deletequestion.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace Tavoro::Panel {

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(DeleteQuestion)
};

} // namespace

void askToDelete(const QString &name, QWidget *parent, const std::function<void()> &confirmed)
{
    auto *const question = new QMessageBox(
        QMessageBox::Question, Texts::tr("Delete"),
        Texts::tr("Delete \"%1\" from the device? This cannot be undone.").arg(name),
        QMessageBox::Cancel, parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    const QAbstractButton *const confirm =
        question->addButton(Texts::tr("Delete"), QMessageBox::DestructiveRole);
    question->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(question, &QMessageBox::buttonClicked, parent,
                     [confirm, confirmed](const QAbstractButton *clicked) {
                         if (clicked == confirm)
                             confirmed();
                     });
    question->open();
}

} // namespace Tavoro::Panel
