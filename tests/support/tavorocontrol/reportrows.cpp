#include "reportrows.h"

#include <support/proto/samplebodies.h>

namespace {

// clang-format off
std::string heldSubcards(const Reported &it)    { return json(it.device.model->deviceDetail().subcards); }
std::string heldGenlock(const Reported &it)     { return json(it.device.model->deviceDetail().genlockSignal); }
std::string heldGroups(const Reported &it)      { return json(it.device.model->deviceDetail().groupInfos); }
std::string heldRelations(const Reported &it)   { return json(it.device.model->deviceDetail().interfaceRelation.relation); }
std::string heldGeneral(const Reported &it)     { return json(it.interface().general); }
std::string heldTiming(const Reported &it)      { return json(it.interface().actualTiming); }
std::string heldDepth(const Reported &it)       { return json(it.interface().colorDepths); }
std::string heldSpace(const Reported &it)       { return json(it.interface().colorSpaces); }
std::string heldRange(const Reported &it)       { return json(it.interface().colorRanges); }
std::string heldHdr(const Reported &it)         { return json(it.interface().HDR); }
std::string heldGenlocks(const Reported &it)    { return json(it.device.model->screenGenlocks()); }
std::string heldZelk(const Reported &it)        { return json(it.screen().screenZeLK); }
std::string heldFileShare(const Reported &it)   { return json(it.file()->transferProgress()); }
std::string heldCutout(const Reported &it)      { return json(it.device.model->cutoutRGB()); }
std::string heldProcess(const Reported &it)     { return json(it.device.model->deviceProcess()); }

/// One element of a report on the interface.
std::string ofInterface(const char *key, const std::string &value)
{
    return R"([{"slotId":1,"connectorId":2,"splitId":3,")" + std::string(key) + R"(":)" + value + "}]";
}
// clang-format on

} // namespace

// clang-format off
const std::vector<ReportRow> reportRows = {
    {"subcards", 0x1102, "BC(11), FC(02)", "device card mode information",
     R"({"subcards":[{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}]})", heldSubcards,
     R"([{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}])",
     "Process subcard auto report info failed ", "[]", 1},
    {"power", 0x1103, "BC(11), FC(03)", "device power information",
     R"({"powers":[{"powerId":1,"iSignal":2,"status":3}]})", heldPowers,
     R"([{"powerId":1,"iSignal":2,"status":3}])",
     "Process power info auto report info failed ", "[]", 1},
    {"genlock status", 0x1105, "BC(11), FC(05)", "device genlock status information",
     R"({"genlockSignal":{"extSignalIn":1,"status":2}})", heldGenlock,
     R"({"extSignalIn":1,"status":2})",
     "Process device genlock status auto report info failed ", "[]", 1},
    {"groups", 0x110A, "BC(11), FC(0a)", "device group information",
     R"({"groupInfos":[{"groupName":"hall","groupId":"1"}]})", heldGroups,
     R"([{"groupName":"hall","groupId":"1"}])",
     "Process device group information auto report info failed ", "[]", 0},
    {"relations", 0x110C, "BC(11), FC(0c)", "input backup information",
     R"({"interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}]}})", heldRelations,
     R"([{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}])",
     "Process device interface relation auto report info failed ", "[]", 0},
    {"interface general", 0x1201, "BC(12), FC(01)", "interface general information",
     ofInterface("general", R"({"name":"Cam","nameGB2312":"C","type":7})"), heldGeneral,
     R"({"name":"Cam","nameGB2312":"C","type":7})",
     "Process interface general info auto report info failed ", "{}", 1},
    {"actual timing", 0x1204, "BC(12), FC(04)", "interface actual timing information",
     ofInterface("actualTiming", Sample::timingText), heldTiming,
     Sample::timingText,
     "Process interface actual timing auto report info failed ", "{}", 1},
    {"colour depth", 0x1209, "BC(12), FC(09)", "interface colorDepth information",
     ofInterface("colorDepths", R"({"actualColorDepth":8,"presetColorDepth":10})"), heldDepth,
     R"({"actualColorDepth":8,"presetColorDepth":10})",
     "Process interface colorDepths info auto report info failed ", "{}", 1},
    {"colour space", 0x120A, "BC(12), FC(0a)", "interface colorSpace information",
     ofInterface("colorSpaces", R"({"actualColorSpace":1,"presetColorSpace":2})"), heldSpace,
     R"({"actualColorSpace":1,"presetColorSpace":2})",
     "Process interface colorSpaces info auto report info failed ", "{}", 1},
    {"colour range", 0x120B, "BC(12), FC(0b)", "interface colorRange information",
     ofInterface("colorRanges", R"({"actualColorRange":1,"presetColorRange":2})"), heldRange,
     R"({"actualColorRange":1,"presetColorRange":2})",
     "Process interface colorRsnges info auto report info failed ", "{}", 1}, // so spelt
    {"HDR", 0x120D, "BC(12), FC(0d)", "interface HDR information",
     ofInterface("HDR", Sample::hdrText), heldHdr,
     Sample::hdrText,
     "Process interface HDR info auto report info failed ", "{}", 1},
    {"screen genlock", 0x1313, "BC(13), FC(13)", "N/A",
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}}])", heldGenlocks,
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}}])",
     "Process screen Genlock info auto report info failed ", "{}", 1},
    {"screen ZeLK", 0x1314, "BC(13), FC(14)", "screen backup information",
     R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1,"status":5}}])", heldZelk,
     R"({"enable":1,"status":5})",
     "Process screen Zelk info auto report info failed ", "{}", 1},
    {"file progress", 0xFA05, "BC(fa), FC(05)", "file transfer progress information",
     R"([{"fileId":4,"fileType":6,"type":1,"percent":40,"status":2}])", heldFileShare,
     R"({"fileId":4,"fileType":6,"type":1,"percent":40,"status":2})",
     nullptr, nullptr, 0}, // its failures have their own tests
    {"cutout colour", 0xFC07, "BC(fc), FC(07)", "cutout RGB information",
     R"({"R":1,"G":2,"B":3})", heldCutout,
     R"({"R":1,"G":2,"B":3})",
     "Process cutout RGB auto report info failed ", "[]", 1},
    {"device progress", 0xFC0D, "BC(fc), FC(0d)", "device file load progress information",
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})", heldProcess,
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})",
     "Process device file transfer progress auto report info failed ", "[]", 1},
};
// clang-format on

QStringList snapshot(const Reported &it)
{
    QStringList parts;
    for (const ReportRow &row : reportRows)
        parts << QString::fromStdString(row.held(it));
    return parts;
}
