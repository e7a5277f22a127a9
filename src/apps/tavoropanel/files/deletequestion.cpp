#include "deletequestion.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace Tavoro::Panel {

namespace {

class QuestionTexts {
    Q_DECLARE_TR_FUNCTIONS(DeleteQuestion)
};

} // namespace

void askToDelete(const QString &name, QWidget *parent, const std::function<void()> &confirmed)
{
    auto *const question = new QMessageBox(
        QMessageBox::Question, QuestionTexts::tr("Delete"),
        QuestionTexts::tr("Delete \"%1\" from the device? This cannot be undone.").arg(name),
        QMessageBox::Cancel, parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    const QAbstractButton *const confirm =
        question->addButton(QuestionTexts::tr("Delete"), QMessageBox::DestructiveRole);
    question->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(question, &QMessageBox::buttonClicked, parent,
                     [confirm, confirmed](const QAbstractButton *clicked) {
                         if (clicked == confirm)
                             confirmed();
                     });
    question->open();
}

} // namespace Tavoro::Panel
