// Operates the panel on the simulated device and saves pictures of its window:
// panelscreenshots FOLDER SUFFIX. The factor of high-resolution screens is QT_SCALE_FACTOR.

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavoropanel/demo/demobar.h>
#include <tavoropanel/demo/demodevice.h>
#include <tavoropanel/theme/theme.h>
#include <tavoropanel/window/mainwindow.h>
#include <tavorosession/session.h>

#include <QAction>
#include <QApplication>
#include <QLoggingCategory>
#include <QTest>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

/// The panel in the states that the pictures show.
class Photographer {
public:
    Photographer(QString folder, QString suffix)
        : m_folder(std::move(folder)), m_suffix(std::move(suffix))
    {
        QString error;
        if (!m_demo.start(error))
            qFatal("%s", qUtf8Printable(error));
        m_window.addTopBar(*new DemoBar(m_demo));
        m_device = m_session.open(QStringLiteral("127.0.0.1"), m_demo.port());
        m_window.resize(1600, 960);
        m_window.show();
        waitFor([this] { return m_device->isReady(); });
    }

    void takeAll()
    {
        m_demo.moveInputs();
        savePreset(1, QStringLiteral("Three pictures"));
        moveLayer(1, {0, 0, 3840, 1080});
        moveLayer(2, {2520, 600, 1200, 400});
        moveLayer(3, {2520, 80, 1200, 400});
        trigger(ActionId::Take); // the pictures of presets show the programme
        savePreset(2, QStringLiteral("Speaker"));
        trigger(ActionId::Take);
        selectLayer();
        save(QStringLiteral("panel"));
        applyTheme(Theme::Light);
        save(QStringLiteral("panel-light"));
        applyTheme(Theme::Dark);
        freezeAndFade();
        failTake();
        loseDevice();
    }

private:
    template <class Condition>
    void waitFor(Condition condition)
    {
        if (!QTest::qWaitFor(condition, 30000))
            qFatal("the panel did not get into the wanted state");
    }

    template <class Result>
    void waitForEnd(const PendingCall<Result> &call)
    {
        waitFor([&] { return call.future().isFinished(); });
        QTest::qWait(300); // the model is read again, and the window follows it
    }

    static Selection::LayerId layerInPreview(quint8 number)
    {
        Selection::LayerId layer;
        layer.screenId = 1;
        layer.screenType = 1;
        layer.layerId = number;
        layer.layerType = 1;
        layer.sceneType = static_cast<int>(Scene::Preview);
        return layer;
    }
    void selectLayer() { m_window.selection().setLayer(layerInPreview(2)); }
    void moveLayer(quint8 number, const ProtoModel::Screen::s_Rect &place)
    {
        ProtoModel::Layer::s_LayerWindow window;
        window.layerIdenti = layerInPreview(number);
        window.window = place;
        waitForEnd(m_window.changes().call(*m_device, &Control::Layer::writeWindow, {window}));
    }
    void savePreset(int number, const QString &name)
    {
        ProtoModel::File::s_CreatePresetFile preset;
        preset.fileType = BizModel::Enum::File::ScreenPreset;
        preset.fileId = number;
        preset.general.name = name.toStdString();
        preset.screens = {{1, 1}};
        waitForEnd(
            m_window.changes().call(*m_device, &Control::File::writeCreatePresetFile, {preset}));
    }
    void trigger(ActionId id)
    {
        QAction &action = m_window.actions().action(id);
        bool isAnswered = false;
        QObject context;
        QObject::connect(m_device, &DeviceSession::callFinished, &context,
                         [&](const Outcome &) { isAnswered = true; });
        action.trigger();
        waitFor([&] { return isAnswered; });
        QTest::qWait(300); // the model is read again, and the window follows it
    }
    void freezeAndFade()
    {
        trigger(ActionId::Freeze);
        m_window.selection().setScreens({{2, 2}});
        trigger(ActionId::FadeToBlack);
        save(QStringLiteral("panel-frozen"));
        trigger(ActionId::FadeToBlack);
        m_window.selection().setScreens({{1, 1}});
        trigger(ActionId::Freeze);
    }
    void failTake()
    {
        m_demo.execute(QStringLiteral("fault add status=8,code=0x130E,count=1"));
        trigger(ActionId::Take);
        save(QStringLiteral("panel-failed"));
    }
    void loseDevice()
    {
        m_demo.setOn(false);
        waitFor([this] { return m_device->state().kind == DeviceState::Lost; });
        save(QStringLiteral("panel-lost"));
    }
    void save(const QString &name)
    {
        QTest::qWait(400); // until all parts have been painted
        const QString path = QStringLiteral("%1/%2%3.png").arg(m_folder, name, m_suffix);
        if (!m_window.grab().save(path))
            qFatal("cannot write %s", qUtf8Printable(path));
    }

    const QString m_folder;
    const QString m_suffix;
    DemoDevice m_demo;
    Session m_session;
    MainWindow m_window{m_session};
    DeviceSession *m_device = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    applyTheme(Theme::Dark);
    const QStringList arguments = QApplication::arguments();
    Photographer(arguments.value(1), arguments.value(2)).takeAll();
    return 0;
}
