// The list of images on a simulated device.

#include <support/tavoropanel/filesbench.h>

#include <QAccessible>
#include <QLineEdit>
#include <QMessageBox>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void renamedImageIsOnTheDevice();
    void newNameStaysWhenTheImageChangesMeanwhile();
    void deletedOnlyAfterTheQuestion();
    void selectedImageIsShownInTheDetails();
    void listThatGetsTheFocusSelectsNoImage();
    void everyControlHasItsTexts();
};

void tst_PanelFiles::renamedImageIsOnTheDevice()
{
    FilesBench bench;
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::mouseClick(bench.button("renameImage"), Qt::LeftButton);
    auto *const line = bench.list->findChild<QLineEdit *>();
    QVERIFY(line);
    QCOMPARE(line->text(), QStringLiteral("sky.png"));
    QTest::keyClicks(line, QStringLiteral("dusk.png"));
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(bench.file(0, 0)->listEntry().general.name, std::string("dusk.png"));
}

void tst_PanelFiles::newNameStaysWhenTheImageChangesMeanwhile()
{
    FilesBench bench;
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    const QModelIndex image = bench.list->model()->index(0, 0);
    bench.list->setCurrentIndex(image);
    QTest::mouseClick(bench.button("renameImage"), Qt::LeftButton);
    auto *const line = bench.list->findChild<QLineEdit *>();
    QTest::keyClicks(line, QStringLiteral("dusk"));
    Q_EMIT bench.list->model()->dataChanged(image, image);
    QCOMPARE(line->text(), QStringLiteral("dusk"));
    QTest::keyClicks(line, QStringLiteral(".png"));
    QTest::keyClick(line, Qt::Key_Return);
    Q_EMIT bench.list->model()->dataChanged(image, image);
    QTRY_COMPARE(bench.file(0, 0)->listEntry().general.name, std::string("dusk.png"));
}

void tst_PanelFiles::deletedOnlyAfterTheQuestion()
{
    FilesBench bench;
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::keyClick(bench.list, Qt::Key_Delete);
    auto *const question = bench.view->findChild<QMessageBox *>();
    QVERIFY(question->text().contains(QStringLiteral("\"sky.png\"")));
    QVERIFY(bench.file(0, 0));
    for (QAbstractButton *const answer : question->buttons()) {
        if (question->buttonRole(answer) == QMessageBox::DestructiveRole)
            QTest::mouseClick(answer, Qt::LeftButton);
    }
    QTRY_VERIFY(!bench.file(0, 0));
}

void tst_PanelFiles::selectedImageIsShownInTheDetails()
{
    FilesBench bench;
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    const QPoint place = bench.list->visualRect(bench.list->model()->index(0, 0)).center();
    QTest::mouseClick(bench.list->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(bench.selection.file());
    QCOMPARE(bench.selection.file()->fileType, 0);
    QCOMPARE(bench.selection.file()->fileId, 0);
}

void tst_PanelFiles::listThatGetsTheFocusSelectsNoImage()
{
    FilesBench bench;
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    bench.view->activateWindow();
    bench.list->clearFocus();
    bench.list->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(bench.list->currentIndex().isValid());
    QVERIFY(!bench.selection.file());
}

void tst_PanelFiles::everyControlHasItsTexts()
{
    FilesBench bench(deviceOfSmallPackets());
    QVERIFY(bench.addFault(heldTransfer));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"), 320, 180)}));
    for (QWidget *const control : bench.view->findChildren<QWidget *>()) {
        if (!(control->focusPolicy() & Qt::TabFocus) || !control->isVisible())
            continue;
        auto *const accessible = QAccessible::queryAccessibleInterface(control);
        QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(),
                 qUtf8Printable(control->objectName()));
        QVERIFY2(!accessible->text(QAccessible::Description).isEmpty(),
                 qUtf8Printable(control->objectName()));
    }
}

QTEST_MAIN(tst_PanelFiles)
#include "tst_panelfiles.moc"
