#pragma once

#include <QtGlobal>

/// The codes of commands that tests send to a device, and one body. They are written by hand, since
/// a test does not take them from the catalogue that it checks.
namespace CommandCodes {

constexpr quint16 controlCode = 0x0101;
constexpr quint16 outcomeCode = 0x0102;
constexpr quint16 leaseCode = 0x0103;
constexpr quint16 deviceDetail = 0x1100;
constexpr quint16 deviceSwap = 0x1107;
constexpr quint16 groupInfo = 0x110A;
constexpr quint16 screenEnable = 0x1301;
constexpr quint16 screenFreeze = 0x1309;
constexpr quint16 screenTake = 0x130E;
constexpr quint16 screenDeleted = 0x130F;
constexpr quint16 presetApply = 0x1501;
constexpr quint16 projectApply = 0x1601;
constexpr quint16 fileDelete = 0xFA01;
constexpr quint16 fileGeneral = 0xFA02;
constexpr quint16 fileImport = 0xFA03;
constexpr quint16 fileExport = 0xFA04;
constexpr quint16 fileProgress = 0xFA05;
constexpr quint16 createImage = 0xFA06;
constexpr quint16 createPreset = 0xFA07;
constexpr quint16 createProject = 0xFA08;
constexpr quint16 createLog = 0xFA09;
constexpr quint16 createEdid = 0xFA0B;
constexpr quint16 restartShutdown = 0xFC01;
constexpr quint16 factoryReset = 0xFC02;
constexpr quint16 save = 0xFC03;
constexpr quint16 lossCount = 0xFC04;
constexpr quint16 lossResult = 0xFC05;
constexpr quint16 cutoutPosition = 0xFC06;
constexpr quint16 upgradeDetail = 0xFC08;
constexpr quint16 upgradePercent = 0xFC09;
constexpr quint16 versions = 0xFC0A;
constexpr quint16 selfCheck = 0xFC0B;
constexpr quint16 deviceTime = 0xFC0C;
constexpr quint16 loadProgress = 0xFC0D;

/// Body of \c deviceSwap that changes the factory setup.
constexpr char swapOff[] = R"({"swap":0})";

} // namespace CommandCodes
