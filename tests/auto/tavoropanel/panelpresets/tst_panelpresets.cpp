// Presets, saved, applied, renamed and deleted with mouse and keyboard on a simulated device.

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/presets/presetlist.h>
#include <tavoropanel/presets/presetpicture.h>
#include <tavoropanel/presets/presetsview.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QToolButton>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

constexpr int devicePreset = 8;
constexpr int screenPreset = 6;

class PresetsBench : public PanelBench {
public:
    PresetsBench()
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<PresetsView>(selection, messages, changes, actions);
        view->resize(700, 320);
        view->show();
        list = view->findChild<PresetList *>();
    }

    template <class Widget>
    Widget *find(const char *name) const
    {
        return view->findChild<Widget *>(QLatin1String(name));
    }
    std::shared_ptr<BizModel::File> preset(int type, int id) const
    {
        return model()->findFile(static_cast<BizModel::Enum::File::FileType>(type), id).lock();
    }
    /// Saves a preset of the selected screens with the keyboard.
    bool save(const QString &name)
    {
        QTest::mouseClick(find<QToolButton>("savePreset"), Qt::LeftButton);
        auto *const line = find<QLineEdit>("presetName");
        QTest::keyClicks(line, name); // replaces the proposed name, which is selected
        const int before = list->model()->rowCount();
        QTest::keyClick(line, Qt::Key_Return);
        return QTest::qWaitFor([=] { return list->model()->rowCount() == before + 1; }, 60000);
    }
    void click(int row)
    {
        const QPoint place = list->visualRect(list->model()->index(row, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    }
    /// Sets the opacity of a layer of the programme.
    bool setOpacity(int percent)
    {
        return bool(resultOf(wall->call(&Control::Layer::writeOpacity,
                                        {{layerId(1, Scene::Programme), percent}})))
            && resultOf(wall->modelUpdate());
    }
    int opacity(Scene scene) const
    {
        return model()->findLayer(layerId(1, scene)).lock()->detail().opacity;
    }

    std::unique_ptr<PresetsView> view;
    PresetList *list = nullptr;
};

} // namespace

class tst_PanelPresets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void savedPresetIsOnTheDevice();
    void presetOfAllScreensIsOnTheDevice();
    void numbersInUseAreNotTakenAgain();
    void clickAppliesToThePreview();
    void returnAppliesAsSaved();
    void pictureShowsTheLayers();
    void unknownContentHasAPictureThatSaysSo();
    void pictureFollowsTheContent();
    void renamedPresetIsOnTheDeviceAndCanBeUndone();
    void deletedOnlyAfterTheQuestion();
    void refusedApplyIsReported();
    void presetsCannotBeAppliedWithoutConnection();
    void everyControlHasItsTexts();
};

void tst_PanelPresets::savedPresetIsOnTheDevice()
{
    PresetsBench bench;
    auto *const stack = bench.view->findChild<QStackedWidget *>();
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(bench.save(QStringLiteral("Opening")));
    QCOMPARE(stack->currentIndex(), 1);
    const auto saved = bench.preset(screenPreset, 0);
    QVERIFY(saved);
    QCOMPARE(saved->detail().general.name, std::string("Opening"));
    QCOMPARE(bench.list->model()->index(0, 0).data().toString(), QStringLiteral("Opening"));
    QTRY_COMPARE(bench.list->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Main; layers: 2"));
}

void tst_PanelPresets::presetOfAllScreensIsOnTheDevice()
{
    PresetsBench bench;
    bench.actions.action(ActionId::SavePreset).trigger();
    QTest::mouseClick(bench.find<QRadioButton>("allScreens"), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::keyClick(bench.find<QLineEdit>("presetName"), Qt::Key_Return);
    QTRY_VERIFY(bench.preset(devicePreset, 0));
    QCOMPARE(bench.preset(devicePreset, 0)->detail().general.name, std::string("Preset 1"));
    QTRY_COMPARE(bench.list->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Main, Blend; layers: 4"));
}

void tst_PanelPresets::numbersInUseAreNotTakenAgain()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    QVERIFY(bench.save(QStringLiteral("two")));
    QCOMPARE(bench.preset(screenPreset, 0)->detail().general.name, std::string("one"));
    QCOMPARE(bench.preset(screenPreset, 1)->detail().general.name, std::string("two"));
}

void tst_PanelPresets::clickAppliesToThePreview()
{
    PresetsBench bench;
    QVERIFY(bench.setOpacity(33));
    QVERIFY(bench.save(QStringLiteral("a third")));
    QVERIFY(bench.setOpacity(80));
    QCOMPARE(bench.opacity(Scene::Preview), 100);
    bench.click(0);
    QTRY_COMPARE(bench.opacity(Scene::Preview), 33);
    QCOMPARE(bench.opacity(Scene::Programme), 80);
    QTRY_VERIFY(bench.hasMessage(Severity::Information, "The preset \"a third\" was applied."));
}

void tst_PanelPresets::returnAppliesAsSaved()
{
    PresetsBench bench;
    QVERIFY(bench.setOpacity(33));
    QVERIFY(bench.save(QStringLiteral("a third")));
    QVERIFY(bench.setOpacity(80));
    auto *const target = bench.find<QComboBox>("presetTarget");
    target->setFocus();
    QTest::keyClick(target, Qt::Key_Down);
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::keyClick(bench.list, Qt::Key_Return);
    QTRY_COMPARE(bench.opacity(Scene::Programme), 33);
    QCOMPARE(bench.opacity(Scene::Preview), 100);
}

void tst_PanelPresets::pictureShowsTheLayers()
{
    const auto layout = readPresetLayout(
        R"({"screens":[{"screenId":1,"screenType":1,"general":{"name":"Main"},)"
        R"("mosaic":{"window":{"width":200,"height":100}},"backgroundColor":{"R":1,"G":2,"B":3}}],)"
        R"("layers":[{"layerIdenti":{"screenId":1,"screenType":1,"sceneType":4},"zorder":1,)"
        R"("window":{"x":100,"y":0,"width":100,"height":100}},)"
        R"({"layerIdenti":{"screenId":1,"screenType":1,"sceneType":2},"zorder":1,)"
        R"("window":{"x":0,"y":0,"width":100,"height":100}}]})");
    QVERIFY(layout);
    const QImage picture =
        presetPicture(layout, {206, 106}, 1, QGuiApplication::palette()).toImage();
    QCOMPARE(picture.pixelColor(53, 53), QColor(1, 2, 3)); // the layer there is in the preview
    const QColor layer = picture.pixelColor(190, 20);
    QVERIFY(layer.value() > 150);
    QVERIFY(picture.pixelColor(0, 0).alpha() == 0);
}

void tst_PanelPresets::unknownContentHasAPictureThatSaysSo()
{
    for (const char *const content :
         {"", "GARBLED", "[]", R"({"screens":[]})", R"({"screens":[{}]})"})
        QVERIFY2(!readPresetLayout(content), content);
    const QImage picture =
        presetPicture(std::nullopt, {60, 40}, 2, QGuiApplication::palette()).toImage();
    QCOMPARE(picture.size(), QSize(120, 80));
}

void tst_PanelPresets::pictureFollowsTheContent()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    QTRY_COMPARE(bench.list->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Main; layers: 2"));
    ProtoModel::File::s_CreatePresetFile other;
    other.fileType = screenPreset;
    other.screens = {{1, 1}, {2, 2}};
    QVERIFY(resultOf(bench.wall->call(&Control::File::writeCreatePresetFile, {other})));
    QTRY_COMPARE(bench.list->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Main, Blend; layers: 4"));
}

void tst_PanelPresets::renamedPresetIsOnTheDeviceAndCanBeUndone()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::mouseClick(bench.find<QToolButton>("renamePreset"), Qt::LeftButton);
    auto *const line = bench.list->findChild<QLineEdit *>();
    QVERIFY(line);
    QTest::keyClicks(line, QStringLiteral("Finale"));
    QTest::keyClick(line, Qt::Key_Return);
    const auto name = [&] {
        return bench.preset(screenPreset, 0)->detail().general.name;
    };
    QTRY_COMPARE(name(), std::string("Finale"));
    QTRY_VERIFY(bench.changes.canUndo());
    bench.changes.undo();
    QTRY_COMPARE(name(), std::string("one"));
}

void tst_PanelPresets::deletedOnlyAfterTheQuestion()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
    QTest::keyClick(bench.list, Qt::Key_Delete);
    auto *question = bench.view->findChild<QMessageBox *>();
    QVERIFY(question->text().contains(QStringLiteral("\"one\"")));
    QTest::keyClick(question, Qt::Key_Escape);
    QTRY_VERIFY(!bench.view->findChild<QMessageBox *>());
    QVERIFY(bench.preset(screenPreset, 0));
    QTest::mouseClick(bench.find<QToolButton>("deletePreset"), Qt::LeftButton);
    question = bench.view->findChild<QMessageBox *>();
    for (QAbstractButton *const button : question->buttons()) {
        if (question->buttonRole(button) == QMessageBox::DestructiveRole)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QTRY_VERIFY(!bench.preset(screenPreset, 0));
    QTRY_COMPARE(bench.list->model()->rowCount(), 0);
    QVERIFY(!bench.find<QToolButton>("deletePreset")->isEnabled());
}

void tst_PanelPresets::refusedApplyIsReported()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    QVERIFY(bench.addFault("status=8,code=0x1501,count=1"));
    bench.click(0);
    QTRY_VERIFY(bench.hasMessage(Severity::Error, "wall 1"));
}

void tst_PanelPresets::presetsCannotBeAppliedWithoutConnection()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
    QVERIFY(bench.list->isEnabled());
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench.list->isEnabled());
    QCOMPARE(bench.list->model()->rowCount(), 1);
    QVERIFY(!bench.find<QToolButton>("renamePreset")->isEnabled());
    QVERIFY(bench.execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(bench.list->isEnabled());
}

void tst_PanelPresets::everyControlHasItsTexts()
{
    PresetsBench bench;
    QVERIFY(bench.save(QStringLiteral("one")));
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

QTEST_MAIN(tst_PanelPresets)
#include "tst_panelpresets.moc"
