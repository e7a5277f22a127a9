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
struct Link;
}

/// Commands the screens of one device: creates, names, places, switches, freezes and fades them.
///
/// Cheap to make; holds no state of the screens. Every list may name many screens: they travel in
/// one command and get one answer. An empty list is sent as it stands.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone. A device without
/// a channel takes every write as done, and answers every read with nothing, which then fails to
/// decode. Writes do not touch the model: it follows by the device's own reports and by the next
/// synchronisation.
class TAVOROCONTROL_EXPORT Screen : public QObject, public std::enable_shared_from_this<Screen> {
    Q_OBJECT

public:
    explicit Screen(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Screen() override;

    /// Reads screens (code 0x1300) and appends them to \a result. -1 restricts nothing, and so does
    /// 0 as \a screenType; of each filter only the low byte travels. The meaning of \a third
    /// belongs to the device: pass -1. An answer that cannot be decoded gives "Decode json failed:
    /// …" in \a error.
    bool readDetails(int screenId, int screenType, int third,
                     std::vector<ProtoModel::Screen::s_ScreenFullDetail> &result, QString &error);

    /// Brings screens into being, with their outputs and their place (0x1301).
    bool writeScreenEnable(const std::vector<ProtoModel::Screen::s_Enable> &screens,
                           QString &error);
    /// Renames screens (0x1302).
    bool writeScreenGeneral(const std::vector<ProtoModel::Screen::s_General> &screens,
                            QString &error);
    /// Colours what no layer covers (0x1303).
    bool
    writeScreenBackgroundColor(const std::vector<ProtoModel::Screen::s_BackgroundColor> &screens,
                               QString &error);
    /// Moves screens on the canvas (0x1304). The outputs of a screen are not touched.
    bool writeLayout(const std::vector<ProtoModel::Screen::s_Layout> &screens, QString &error);
    /// Tells the device how large the screens are in the room (0x1305).
    bool writePhysicalSize(std::vector<ProtoModel::Screen::s_PhysicalSize> screens, QString &error);
    /// Switches between editing the preview and editing the programme (0x1306).
    bool writePGMEdit(std::vector<ProtoModel::Screen::s_PGMEdit> screens, QString &error);
    /// Selects screens for the device's own panel (0x1307).
    bool writeSelected(std::vector<ProtoModel::Screen::s_Selected> screens, QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma (0x1308).
    bool writeImageQuality(std::vector<ProtoModel::Screen::s_ImageQuality> screens, QString &error);
    /// Freezes or releases the picture (0x1309).
    bool writeFreeze(std::vector<ProtoModel::Screen::s_Freeze> screens, QString &error);
    /// Fades to black, or back in (0x130A).
    bool writeFTB(std::vector<ProtoModel::Screen::s_FTB> screens, QString &error);
    /// Shows or hides a test pattern (0x130B).
    bool writeTestPattern(std::vector<ProtoModel::Screen::s_TestPattern> screens, QString &error);
    /// Chooses the transition of the next take (0x130C).
    bool writeSwitchEffect(const std::vector<ProtoModel::Screen::s_SwitchEffect> &screens,
                           QString &error);
    /// Moves the T-bar (0x130D). At its end it does what a take does.
    bool writeTBar(const std::vector<ProtoModel::Screen::s_TBar> &screens, QString &error);
    /// Takes: what is in preview goes to programme, with the given transition (0x130E).
    bool writeTake(const std::vector<ProtoModel::Screen::s_SwitchEffect> &screens, QString &error);
    /// Deletes screens with their layers (0x130F).
    bool writeScreenDeleted(const std::vector<ProtoModel::s_ScreenId> &screens, QString &error);
    /// Sets the dynamic range of the outputs (0x1310).
    bool writeScreenHDR(const std::vector<ProtoModel::Screen::s_HDR> &screens, QString &error);
    /// Switches the ZeLK feature of screens (0x1314).
    bool writeScreenZelk(const std::vector<ProtoModel::Screen::s_ScreenZeLKFull> &screens,
                         QString &error);

    /// Applies the device's report of the ZeLK feature to the model. \a body is the report's JSON.
    /// A screen that the model does not have is logged and passed over. False with "Decode json
    /// failed: …" for a body that cannot be decoded, false without a text if the model device is
    /// gone.
    bool updateScreenZelkInfo(const std::string &body, QString &error);

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
