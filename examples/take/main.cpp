// Performs a take on an ordinary screen with the transition that is set on the device, and prints
// what became of it: take HOST PORT SCREEN

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/screen.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

namespace {

void finish(const QString &text, int exitCode)
{
    QTextStream(stdout) << text << '\n';
    QCoreApplication::exit(exitCode);
}

void take(DeviceSession *device, quint8 screenId)
{
    const int type = BizModel::Enum::Screen::OrdinaryScreen;
    const auto screen = device->device()->findScreen(type, screenId).lock();
    if (!screen)
        return finish(QStringLiteral("%1 does not have the screen.").arg(device->name()), 1);

    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = screenId;
    effect.screenType = type;
    effect.switchEffect = screen->detail().switchEffect;
    device->call(&Control::Screen::writeTake, {effect}).then(device, [](const Outcome &outcome) {
        finish(outcome.text(), outcome ? 0 : 1);
    });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); // no line per request
    const QStringList arguments = application.arguments();

    Session session;
    DeviceSession *const device = session.open(arguments.value(1), arguments.value(2).toUShort());
    const auto screenId = static_cast<quint8>(arguments.value(3).toUInt());
    QObject::connect(device, &DeviceSession::stateChanged, device, [device, screenId] {
        if (device->isReady())
            take(device, screenId);
    });
    QObject::connect(device, &DeviceSession::stateDetailsChanged, device,
                     [device] { finish(device->stateText(), 1); });
    return application.exec();
}
