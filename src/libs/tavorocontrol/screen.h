#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/screen.h>

#include <QObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct OperationTarget;
}

/// Controls the screens of one device: creates, names, places, switches, freezes and fades them.
///
/// The device reports only changes of the ZeLK feature. After all other writes, for example a take,
/// the model has the new state after the next synchronisation.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Screen : public QObject, public std::enable_shared_from_this<Screen> {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Screen(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Screen() override;

    /// Reads screens and appends them to \a result (code 0x1300).
    ///
    /// The filters are the ID and type of the screen. -1 does not filter; 0 as \a screenType does
    /// not filter either. Pass -1 as \a third; its meaning is defined by the device. Only the low
    /// byte of each filter is sent. If the answer cannot be decoded, \a result holds the screens
    /// before the error.
    bool readDetails(int screenId, int screenType, int third,
                     std::vector<ProtoModel::Screen::s_ScreenFullDetail> &result, QString &error);

    /// Creates screens with their outputs and their position (0x1301).
    bool writeScreenEnable(const std::vector<ProtoModel::Screen::s_Enable> &screens,
                           QString &error);
    /// Renames screens (0x1302).
    bool writeScreenGeneral(const std::vector<ProtoModel::Screen::s_General> &screens,
                            QString &error);
    /// Sets the colour of the area that no layer covers (0x1303).
    bool
    writeScreenBackgroundColor(const std::vector<ProtoModel::Screen::s_BackgroundColor> &screens,
                               QString &error);
    /// Moves screens on the canvas, in pixels (0x1304). The outputs of a screen do not change.
    bool writeLayout(const std::vector<ProtoModel::Screen::s_Layout> &screens, QString &error);
    /// Sets the physical size of screens (0x1305).
    bool writePhysicalSize(std::vector<ProtoModel::Screen::s_PhysicalSize> screens, QString &error);
    /// Selects whether edits go to the preview or to the programme (0x1306).
    bool writePGMEdit(std::vector<ProtoModel::Screen::s_PGMEdit> screens, QString &error);
    /// Selects screens on the device's own panel (0x1307).
    bool writeSelected(std::vector<ProtoModel::Screen::s_Selected> screens, QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma of screens (0x1308).
    bool writeImageQuality(std::vector<ProtoModel::Screen::s_ImageQuality> screens, QString &error);
    /// Freezes or releases the picture of screens (0x1309).
    bool writeFreeze(std::vector<ProtoModel::Screen::s_Freeze> screens, QString &error);
    /// Fades screens to black, or back to the picture (0x130A). The device defines the unit of the
    /// fade time. The call does not wait for the end of the fade.
    bool writeFTB(std::vector<ProtoModel::Screen::s_FTB> screens, QString &error);
    /// Shows or hides a test pattern (0x130B).
    bool writeTestPattern(std::vector<ProtoModel::Screen::s_TestPattern> screens, QString &error);
    /// Sets the transition of the next take (0x130C). The device defines the unit of its time.
    bool writeSwitchEffect(const std::vector<ProtoModel::Screen::s_SwitchEffect> &screens,
                           QString &error);
    /// Moves the T-bar, in percent (0x130D). At 100 it has the effect of a take.
    bool writeTBar(const std::vector<ProtoModel::Screen::s_TBar> &screens, QString &error);
    /// Takes: switches the preview to programme with the given transition (0x130E). Blocks for at
    /// most 15 s, unless the application changed the timeout table.
    bool writeTake(const std::vector<ProtoModel::Screen::s_SwitchEffect> &screens, QString &error);
    /// Deletes screens with their layers (0x130F).
    bool writeScreenDeleted(const std::vector<ProtoModel::s_ScreenId> &screens, QString &error);
    /// Sets the dynamic range of the outputs of screens (0x1310).
    bool writeScreenHDR(const std::vector<ProtoModel::Screen::s_HDR> &screens, QString &error);
    /// Switches the ZeLK feature of screens on or off (0x1314).
    bool writeScreenZelk(const std::vector<ProtoModel::Screen::s_ScreenZeLKFull> &screens,
                         QString &error);

    /// Applies the device's report of the ZeLK feature to the model (0x1314). \a body is the JSON
    /// of the report. AutoReportManager calls it.
    ///
    /// A screen that the model does not have is logged and skipped. Returns false with "Decode json
    /// failed: …" in \a error for a body that cannot be decoded, and false with \a error unchanged
    /// if the model device is gone. Any thread; does not block.
    bool updateScreenZelkInfo(const std::string &body, QString &error);

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
