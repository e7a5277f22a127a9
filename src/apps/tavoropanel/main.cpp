// The operator's panel: tavoropanel [--demo] [--theme THEME] [--store FILE] [DEVICE ...]

#include <programhelp/hiddenoptions.h>
#include <tavorobizmodel/devicelist.h>
#include <tavoropanel/demo/demobar.h>
#include <tavoropanel/demo/demodevice.h>
#include <tavoropanel/options.h>
#include <tavoropanel/theme/theme.h>
#include <tavoropanel/window/mainwindow.h>
#include <tavorosession/session.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <QTextStream>
#include <QUrl>

#include <memory>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

void openDevices(Session &session, MainWindow &window, const Options &options)
{
    BizModel::s_DeviceStoreOptions store;
    store.fileName = options.store;
    QString error;
    if (!BizModel::DeviceList::instance()->openDeviceStore(store, error))
        window.messages().report(Severity::Warning, error);
    session.openListed();
    for (const QString &device : options.devices) {
        const QUrl url(QStringLiteral("tcp://") + device);
        session.open(url.host(), static_cast<quint16>(url.port(SSProxy::defaultTcpPort)));
    }
}

std::unique_ptr<DemoDevice> startDemo(Session &session, MainWindow &window)
{
    auto device = std::make_unique<DemoDevice>();
    QString error;
    if (!device->start(error)) {
        window.messages().report(Severity::Error, error);
        return device;
    }
    window.addTopBar(*new DemoBar(*device));
    session.open(QStringLiteral("127.0.0.1"), device->port());
    return device;
}

QStringList wordsOf(int argc, char **argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words += QString::fromLocal8Bit(argv[i]);
    return words;
}

} // namespace

int main(int argc, char *argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    // Without a display, as builds have none.
    if (const auto status = Help::runHiddenOption(describeProgram(), nullptr, wordsOf(argc, argv)))
        return *status;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavoropanel"));
    QApplication::setOrganizationName(QStringLiteral("tavoro"));
    QApplication::setApplicationVersion(QStringLiteral(TAVORO_VERSION));
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*.info=false\ntavoro.*.debug=false"));

    const Options options = readOptions(QApplication::arguments());
    if (!options.text.isEmpty()) {
        QTextStream(options.status == 0 ? stdout : stderr) << options.text << Qt::endl;
        return options.status;
    }
    QSettings settings;
    const QString lastTheme = settings.value(QStringLiteral("window/theme")).toString();
    applyTheme(themeOf(options.theme.isEmpty() ? lastTheme : options.theme));

    Session session;
    MainWindow window(session);
    std::unique_ptr<DemoDevice> demo;
    if (options.isDemo)
        demo = startDemo(session, window);
    else
        openDevices(session, window, options);
    window.restore(settings);
    window.show();
    const int status = QApplication::exec();
    window.save(settings);
    window.selection().setDevice(nullptr);
    return status;
}
