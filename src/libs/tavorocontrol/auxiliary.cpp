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

template <class Record>
using List = std::vector<Record>;

Auxiliary::Auxiliary(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Auxiliary::~Auxiliary() = default;

Link Auxiliary::link() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Every row: encode the record, send it as a write, report success on the status bar.
bool Auxiliary::writeRestartShutdown(const s_AuxiliaryOpt &r,  QString &error) { return write(link(), Command::AuxiliaryRestartShutdown, r, error); }
bool Auxiliary::writeFactoryType    (const s_AuxiliaryOpt &r,  QString &error) { return write(link(), Command::AuxiliaryFactoryReset,    r, error); }
bool Auxiliary::writeSourceLostCnt  (const s_AuxiliaryOpt &r,  QString &error) { return write(link(), Command::AuxiliarySourceLossCount, r, error); }
bool Auxiliary::pickCutoutPos       (const s_CutoutPos &r,     QString &error) { return write(link(), Command::AuxiliaryCutoutPosition,  r, error); }
bool Auxiliary::setUgradeConfig     (const s_UpgradeDetail &r, QString &error) { return write(link(), Command::AuxiliaryUpgradeDetail,   r, error); }
bool Auxiliary::setDeviceTime       (const s_DeviceTime &r,    QString &error) { return write(link(), Command::AuxiliaryDeviceTime,      r, error); }

// Every row: ask without filters, read the answer into the record.
bool Auxiliary::readSourceLossStatResult(List<s_SourceLossStat> &r, QString &error) { return readRecord(link(), Command::AuxiliarySourceLossResult, r, error); }
bool Auxiliary::readUpgradeProgress     (s_UpgradePercent &r,       QString &error) { return readRecord(link(), Command::AuxiliaryUpgradePercent,   r, error); }
bool Auxiliary::readDeviceVersion       (s_DeviceVersion &r,        QString &error) { return readRecord(link(), Command::AuxiliaryDeviceVersion,    r, error); }
// clang-format on

bool Auxiliary::saveDeviceData(QString &error)
{
    return writeBody(link(), Command::AuxiliarySave, {}, error, Timeout{200000});
}

bool Auxiliary::readDeviceSelfCheckDetail(s_DeviceSelfCheckDetail &detail, QString &error)
{
    std::string answer;
    if (!read(link(), Command::AuxiliarySelfCheck, {}, answer, error))
        return false;
    if (decode(answer, detail, error))
        return true;
    error += translated(undecodedBody) + QString::fromStdString(answer);
    return false;
}

// Kept: the text is the call's own, so that a failure is told by the bool alone.
bool Auxiliary::readDeviceLoadTransferProgress(s_DeviceProcess &progress, QString error)
{
    return readRecord(link(), Command::AuxiliaryLoadProgress, progress, error);
}

// Kept: the colour is applied by the handler of the device's report.
bool Auxiliary::updateCutoutRGB()
{
    return false;
}

} // namespace Tavoro::Control
