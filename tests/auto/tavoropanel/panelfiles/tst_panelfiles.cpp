// Images that are pushed to a simulated device and pulled from it.

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/files/filesview.h>
#include <tavoropanel/files/imagelist.h>
#include <tavoropanel/files/transferrow.h>

#include <tavorobizmodel/file.h>

#include <QAccessible>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUrl>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

class FilesBench : public PanelBench {
public:
    explicit FilesBench(const Sim::SimOptions &device = smallDevice())
        : PanelBench(patientOptions(), device)
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<FilesView>(selection, messages, changes, actions);
        view->resize(500, 500);
        view->show();
        list = view->findChild<ImageList *>();
    }

    /// A local image with pixels that do not compress.
    QString makeImage(const QString &name, int width = 64, int height = 36) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        quint32 pixel = 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, pixel = pixel * 1664525U + 1013904223U);
        }
        const QString path = folder.filePath(name);
        if (!image.save(path))
            qFatal("the image cannot be saved");
        return path;
    }
    /// Drops files onto the list. Returns whether the list accepted them.
    bool drop(const QStringList &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        const QPoint place = list->viewport()->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(list->viewport(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list->viewport(), &dropped);
        return dropped.isAccepted();
    }
    std::shared_ptr<BizModel::File> file(int type, int id) const
    {
        return model()->findFile(static_cast<BizModel::Enum::File::FileType>(type), id).lock();
    }
    std::string contentOf(int type, int id)
    {
        return resultOf(wall->files().fetch({id, type})).record();
    }
    static std::string bytesOf(const QString &path)
    {
        QFile local(path);
        if (!local.open(QIODevice::ReadOnly))
            qFatal("no file %s", qUtf8Printable(path));
        return local.readAll().toStdString();
    }
    QToolButton *button(const char *name) const
    {
        return view->findChild<QToolButton *>(QLatin1String(name));
    }
    TransferRow *transfer() const { return view->findChild<TransferRow *>(); }

    QTemporaryDir folder;
    std::unique_ptr<FilesView> view;
    ImageList *list = nullptr;
};

/// A device to which an image takes many packets.
Sim::SimOptions deviceOfSmallPackets()
{
    Sim::SimOptions device = PanelBench::smallDevice();
    device.packetSize = 4096;
    return device;
}

/// The device answers some packets of a file and then no more: a transfer stays under way.
constexpr char heldTransfer[] = "silent,code=0xFA03,skip=6";
/// A transfer takes some seconds. One that is cancelled ends with its packet.
constexpr char slowTransfer[] = "late=200,code=0xFA03";

} // namespace

class tst_PanelFiles : public QObject {
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
    void renamedImageIsOnTheDevice();
    void deletedOnlyAfterTheQuestion();
    void selectedImageIsShownInTheDetails();
    void listThatGetsTheFocusSelectsNoImage();
    void everyControlHasItsTexts();
};

void tst_PanelFiles::droppedImageIsOnTheDevice()
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

void tst_PanelFiles::severalImagesGetTheirOwnNumbers()
{
    FilesBench bench;
    QVERIFY(bench.drop(
        {bench.makeImage(QStringLiteral("a.png")), bench.makeImage(QStringLiteral("b.png"))}));
    QTRY_COMPARE(bench.list->model()->rowCount(), 2);
    QCOMPARE(bench.file(0, 0)->listEntry().general.name, std::string("a.png"));
    QCOMPARE(bench.file(0, 1)->listEntry().general.name, std::string("b.png"));
}

void tst_PanelFiles::chosenTypeIsThatOfTheFile()
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

void tst_PanelFiles::whatIsNotAnImageIsNotSent()
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

void tst_PanelFiles::listAcceptsNoFilesWithoutConnection()
{
    FilesBench bench;
    const QString path = bench.makeImage(QStringLiteral("sky.png"));
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench.button("pushImages")->isEnabled());
    bench.drop({path});
    QVERIFY(!bench.transfer());
}

void tst_PanelFiles::progressAndRateAreShown()
{
    FilesBench bench(deviceOfSmallPackets());
    QVERIFY(bench.addFault(heldTransfer));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"), 160, 90)}));
    const auto *const bar = bench.view->findChild<QProgressBar *>();
    QVERIFY(bar);
    QCOMPARE(bar->accessibleName(), QStringLiteral("↑ sky.png"));
    QTRY_VERIFY(bar->value() > 0 && bar->value() < bar->maximum());
    QTRY_VERIFY(bar->text().contains(QRegularExpression(QStringLiteral("^\\d+ %, [1-9].*/s$"))));
    QTRY_VERIFY(bench.file(0, 0));
}

void tst_PanelFiles::cancelledTransferLeavesNoFile()
{
    FilesBench bench(deviceOfSmallPackets());
    QVERIFY(bench.addFault(slowTransfer));
    QVERIFY(bench.drop({bench.makeImage(QStringLiteral("sky.png"), 320, 180)}));
    auto *const cancel = bench.transfer()->findChild<QToolButton *>();
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    QTest::mouseClick(cancel, Qt::LeftButton);
    const auto *const result = bench.view->findChild<QLabel *>(QStringLiteral("transferResult"));
    QTRY_COMPARE(result->text(), QStringLiteral("Cancelled"));
    QCOMPARE(cancel->text(), QStringLiteral("Close"));
    QVERIFY(!bench.file(0, 0));
    QTest::mouseClick(cancel, Qt::LeftButton);
    QTRY_VERIFY(!bench.transfer());
}

void tst_PanelFiles::failedTransferStaysWithItsReason()
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

void tst_PanelFiles::savedCopyHasTheContentOfTheFile()
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

void tst_PanelFiles::draggedImageIsAFileWithItsContent()
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
