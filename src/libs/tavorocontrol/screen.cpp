#include <tavorocontrol/screen.h>

#include "logging_p.h"
#include "operation_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control {

using namespace Internal;
using namespace ProtoModel::Screen;
using ProtoModel::s_ScreenId;
using SSProxy::Command;

template <class Record>
using List = std::vector<Record>;

Screen::Screen(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Screen::~Screen() = default;

OperationTarget Screen::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the list and sends it as a write; the status bar shows a success. Which lists are passed by value and
// which by reference is part of the interface.
bool Screen::writeScreenEnable         (const List<s_Enable> &l,          QString &error) { return write(target(), Command::ScreenEnable,          l, error); }
bool Screen::writeScreenGeneral        (const List<s_General> &l,         QString &error) { return write(target(), Command::ScreenGeneral,         l, error); }
bool Screen::writeScreenBackgroundColor(const List<s_BackgroundColor> &l, QString &error) { return write(target(), Command::ScreenBackgroundColor, l, error); }
bool Screen::writeLayout               (const List<s_Layout> &l,          QString &error) { return write(target(), Command::ScreenLayout,          l, error); }
bool Screen::writePhysicalSize         (List<s_PhysicalSize> l,           QString &error) { return write(target(), Command::ScreenPhysicalSize,    l, error); }
bool Screen::writePGMEdit              (List<s_PGMEdit> l,                QString &error) { return write(target(), Command::ScreenPGMEdit,         l, error); }
bool Screen::writeSelected             (List<s_Selected> l,               QString &error) { return write(target(), Command::ScreenSelected,        l, error); }
bool Screen::writeImageQuality         (List<s_ImageQuality> l,           QString &error) { return write(target(), Command::ScreenImageQuality,    l, error); }
bool Screen::writeFreeze               (List<s_Freeze> l,                 QString &error) { return write(target(), Command::ScreenFreeze,          l, error); }
bool Screen::writeFTB                  (List<s_FTB> l,                    QString &error) { return write(target(), Command::ScreenFTB,             l, error); }
bool Screen::writeTestPattern          (List<s_TestPattern> l,            QString &error) { return write(target(), Command::ScreenTestPattern,     l, error); }
bool Screen::writeSwitchEffect         (const List<s_SwitchEffect> &l,    QString &error) { return write(target(), Command::ScreenSwitchEffect,    l, error); }
bool Screen::writeTBar                 (const List<s_TBar> &l,            QString &error) { return write(target(), Command::ScreenTBar,            l, error); }
bool Screen::writeScreenDeleted        (const List<s_ScreenId> &l,        QString &error) { return write(target(), Command::ScreenDeleted,         l, error); }
bool Screen::writeScreenHDR            (const List<s_HDR> &l,             QString &error) { return write(target(), Command::ScreenHDR,             l, error); }
bool Screen::writeScreenZelk           (const List<s_ScreenZeLKFull> &l,  QString &error) { return write(target(), Command::ScreenZelk,            l, error); }
// clang-format on

bool Screen::writeTake(const List<s_SwitchEffect> &list, QString &error)
{
    return write(target(), Command::ScreenTake, list, error, Timeout{15000});
}

bool Screen::readDetails(int screenId, int screenType, int third,
                         std::vector<s_ScreenFullDetail> &result, QString &error)
{
    return readRecord(target(), Command::ScreenDetail, result, error,
                      {{34, screenId}, {33, screenType}, {32, third}});
}

bool Screen::updateScreenZelkInfo(const std::string &body, QString &error)
{
    std::vector<s_ScreenZeLKFull> report;
    if (!decode(body, report, error))
        return false;
    const auto device = m_device.lock();
    if (!device) {
        qCWarning(controlLog) << "Process auto report screen Zelk info failed: device is null.";
        return false; // Kept: without a text.
    }
    for (const s_ScreenZeLKFull &element : report) {
        if (const auto screen = device->findScreen(element.screenType, element.screenId).lock())
            screen->setScreenZelk(element.screenZeLK);
        else // Kept: does not log the identity, unlike the reports of interfaces.
            qCWarning(controlLog) << "Process auto report screen zelk info failed";
    }
    return true;
}

} // namespace Tavoro::Control
