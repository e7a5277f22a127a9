#include <tavorocontrol/auxiliary.h>

#include "operation_p.h"
#include "request/translation_p.h"

#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control {

using namespace Internal;
using namespace ProtoModel::Auxiliary;
using SSProxy::Command;

namespace {

constexpr char undecodedBody[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", " error json is : ");

} // namespace

using LossStats = std::vector<s_SourceLossStat>;

Auxiliary::Auxiliary(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Auxiliary::~Auxiliary() = default;

OperationTarget Auxiliary::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the record and sends it as a write; the status bar shows a success.
bool Auxiliary::writeRestartShutdown(const s_AuxiliaryOpt &r,  QString &error) { return write(target(), Command::AuxiliaryRestartShutdown, r, error); }
bool Auxiliary::writeFactoryType    (const s_AuxiliaryOpt &r,  QString &error) { return write(target(), Command::AuxiliaryFactoryReset,    r, error); }
bool Auxiliary::writeSourceLostCnt  (const s_AuxiliaryOpt &r,  QString &error) { return write(target(), Command::AuxiliarySourceLossCount, r, error); }
bool Auxiliary::pickCutoutPos       (const s_CutoutPos &r,     QString &error) { return write(target(), Command::AuxiliaryCutoutPosition,  r, error); }
bool Auxiliary::setUgradeConfig     (const s_UpgradeDetail &r, QString &error) { return write(target(), Command::AuxiliaryUpgradeDetail,   r, error); }
bool Auxiliary::setDeviceTime       (const s_DeviceTime &r,    QString &error) { return write(target(), Command::AuxiliaryDeviceTime,      r, error); }

// Each row reads without filters and decodes the answer into the record.
bool Auxiliary::readSourceLossStatResult(LossStats &r,        QString &error) { return readRecord(target(), Command::AuxiliarySourceLossResult, r, error); }
bool Auxiliary::readUpgradeProgress     (s_UpgradePercent &r, QString &error) { return readRecord(target(), Command::AuxiliaryUpgradePercent,   r, error); }
bool Auxiliary::readDeviceVersion       (s_DeviceVersion &r,  QString &error) { return readRecord(target(), Command::AuxiliaryDeviceVersion,    r, error); }
// clang-format on

bool Auxiliary::saveDeviceData(QString &error)
{
    return writeBody(target(), Command::AuxiliarySave, {}, error, Timeout{200000});
}

bool Auxiliary::readDeviceSelfCheckDetail(s_DeviceSelfCheckDetail &detail, QString &error)
{
    std::string answer;
    if (!read(target(), Command::AuxiliarySelfCheck, {}, answer, error))
        return false;
    if (decode(answer, detail, error))
        return true;
    error += translated(undecodedBody) + QString::fromStdString(answer);
    return false;
}

// Kept: the text does not reach the caller. Only the result reports a failure.
bool Auxiliary::readDeviceLoadTransferProgress(s_DeviceProcess &progress, QString error)
{
    return readRecord(target(), Command::AuxiliaryLoadProgress, progress, error);
}

// Kept: Device::updateCutoutRGB() applies the reported colour.
bool Auxiliary::updateCutoutRGB()
{
    return false;
}

} // namespace Tavoro::Control
