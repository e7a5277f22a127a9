// Images that are pushed to a simulated device and pulled from it.

#include <support/tavoropanel/filesbench.h>

#include <QComboBox>
#include <QFileDialog>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QRegularExpression>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelTransfers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void droppedImageIsOnTheDevice();
    void severalImagesGetTheirOwnNumbers();
    void chosenTypeIsThatOfTheFile();
    void whatIsNotAnImageIsNotSent();
    void listAcceptsNoFilesWithoutConnection();
    void progressAndRateAreShown();
    void cancelledTransferLeavesNoFile();
    void failedTransferStaysWithItsReason();
    void savedCopyHasTheContentOfTheFile();
    void draggedImageIsAFileWithItsContent();
};

void tst_PanelTransfers::droppedImageIsOnTheDevice()
{
    FilesBench bench;
    const QString path = bench.makeImage(QStringLiteral("sky.png"));
    QVERIFY(bench.drop({path}));
    QTRY_VERIFY(bench.file(0, 0));
    const auto detail = bench.file(0, 0)->listEntry();
    QCOMPARE(detail.general.name, std::string("sky.png"));
    QCOMPARE(detail.size.width, 64);
    QCOMPARE(detail.size.height, 36);
    QCOMPARE(bench.contentOf(0, 0), FilesBench::bytesOf(path));
    const QModelIndex shown = bench.list->model()->index(0, 0);
    QVERIFY(shown.data().toString().startsWith(QStringLiteral("sky.png\nBackground, 64 × 36 ")));
    QTRY_VERIFY(!shown.data(Qt::DecorationRole).value<QIcon>().isNull());
}

void tst_PanelTransfers::severalImagesGetTheirOwnNumbers()
{
    FilesBench bench;
    QVERIFY(bench.drop(
        {bench.makeImage(QStringLiteral("a.png")), bench.makeImage(QStringLiteral("b.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 2);
    QCOMPARE(bench.file(0, 0)->listEntry().general.name, std::string("a.png"));
    QCOMPARE(bench.file(0, 1)->listEntry().general.name, std::string("b.png"));
}

void tst_PanelTransfers::chosenTypeIsThatOfTheFile()
{
    FilesBench bench;
    auto *const type = bench.view->findChild<QComboBox *>(QStringLiteral("imageType"));
    type->setFocus();
    QTest::keyClick(type, Qt::Key_Down);
    QTest::mouseClick(bench.button("pushImages"), Qt::LeftButton);
    auto *const dialog = bench.view->findChild<QFileDialog *>();
    QVERIFY(dialog);
    const QString path = bench.makeImage(QStringLiteral("mark.png"));
    Q_EMIT dialog->filesSelected({path});
    dialog->reject();
    QTRY_VERIFY(bench.file(2, 0));
    QCOMPARE(bench.file(2, 0)->listEntry().general.name, std::string("mark.png"));
}

void tst_PanelTransfers::whatIsNotAnImageIsNotSent()
{
    FilesBench bench;
    QFile text(bench.folder.filePath(QStringLiteral("notes.txt")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no pixels");
    text.close();
    QVERIFY(bench.drop({text.fileName()}));
    QVERIFY(bench.hasMessage(Severity::Error, "\"notes.txt\" is not an image."));
    QVERIFY(!bench.transfer());
}

void tst_PanelTransfers::listAcceptsNoFilesWithoutConnection()
{
    FilesBench bench;
    const QString path = bench.makeImage(QStringLiteral("sky.png"));
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench.button("pushImages")->isEnabled());
    bench.drop({path});
    QVERIFY(!bench.transfer());
}

void tst_PanelTransfers::progressAndRateAreShown()
{
    FilesBench bench(deviceOfSmallPackets());
    QVERIFY(bench.addFault(heldTransfer));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"), 160, 90)}));
    const auto *const bar = bench.view->findChild<QProgressBar *>();
    QVERIFY(bar);
    QCOMPARE(bar->accessibleName(), QStringLiteral("↑ sky.png"));
    QTRY_VERIFY(bar->value() > 0 && bar->value() < bar->maximum());
    QTRY_VERIFY(bar->text().contains(QRegularExpression(QStringLiteral("^\\d+ %, [1-9].*/s$"))));
    QTRY_VERIFY(!bench.hasFaults());
    QVERIFY(bench.releaseAnswers());
    QTRY_VERIFY(bench.file(0, 0));
}

void tst_PanelTransfers::cancelledTransferLeavesNoFile()
{
    FilesBench bench(deviceOfSmallPackets());
    QVERIFY(bench.addFault(heldTransfer));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"), 320, 180)}));
    auto *const cancel = bench.transfer()->findChild<QToolButton *>();
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    QTRY_VERIFY(!bench.hasFaults());
    QTest::mouseClick(cancel, Qt::LeftButton);
    QVERIFY(bench.releaseAnswers());
    const auto *const result = bench.view->findChild<QLabel *>(QStringLiteral("transferResult"));
    QTRY_COMPARE(result->text(), QStringLiteral("Cancelled"));
    QCOMPARE(cancel->text(), QStringLiteral("Close"));
    QVERIFY(!bench.file(0, 0));
    QTest::mouseClick(cancel, Qt::LeftButton);
    QTRY_VERIFY(!bench.transfer());
}

void tst_PanelTransfers::failedTransferStaysWithItsReason()
{
    FilesBench bench;
    QVERIFY(bench.addFault("status=8,code=0xFA03,count=1"));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"))}));
    const auto *const result = bench.view->findChild<QLabel *>(QStringLiteral("transferResult"));
    QTRY_VERIFY(result->text().startsWith(QStringLiteral("⚠ ")));
    QVERIFY(result->text().contains(QStringLiteral("busy")));
    QTRY_VERIFY(bench.hasMessage(Severity::Error, "busy"));
    QVERIFY(!bench.file(0, 0));
}

void tst_PanelTransfers::savedCopyHasTheContentOfTheFile()
{
    FilesBench bench;
    const QString path = bench.makeImage(QStringLiteral("sky.png"));
    QVERIFY(bench.drop({path}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::mouseClick(bench.button("pullImage"), Qt::LeftButton);
    auto *const dialog = bench.view->findChild<QFileDialog *>();
    QVERIFY(dialog);
    const QString copy = bench.folder.filePath(QStringLiteral("copy.png"));
    Q_EMIT dialog->fileSelected(copy);
    dialog->reject();
    QTRY_VERIFY(QFile::exists(copy));
    QCOMPARE(FilesBench::bytesOf(copy), FilesBench::bytesOf(path));
}

void tst_PanelTransfers::draggedImageIsAFileWithItsContent()
{
    FilesBench bench;
    const QString path = bench.makeImage(QStringLiteral("sky.png"));
    QVERIFY(bench.drop({path}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 1);
    const QModelIndex image = bench.list->model()->index(0, 0);
    QVERIFY(image.flags() & Qt::ItemIsDragEnabled);
    const auto drag = [&] {
        return std::unique_ptr<QMimeData>(bench.list->model()->mimeData({image}));
    };
    QTRY_VERIFY(drag());
    const QList<QUrl> urls = drag()->urls();
    QCOMPARE(urls.size(), 1);
    QCOMPARE(urls.first().fileName(), QStringLiteral("sky.png"));
    QCOMPARE(FilesBench::bytesOf(urls.first().toLocalFile()), FilesBench::bytesOf(path));
}

QTEST_MAIN(tst_PanelTransfers)
#include "tst_paneltransfers.moc"
