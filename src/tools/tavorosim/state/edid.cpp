#include "edid.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace Tavoro::Sim {

namespace {

// position  bytes
//   0       00 FF FF FF FF FF FF 00
//   8       manufacturer, three letters of five bits, big-endian
//  10       product, serial number, week and year since 1990
//  18       version 1.3
//  20       digital input, size unknown, gamma 2.2, RGB, colours of sRGB
//  35       no established timings; eight unused standard timings of 01 01
//  54       four descriptors of 18 bytes: the timing, the name, two empty ones
// 126       number of extensions, checksum that makes the sum of all bytes 0
constexpr std::size_t descriptorSize = 18;
constexpr std::size_t nameLength = 13;

const unsigned char fixedPart[] = {
    0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x4D, 0x2D, 0x01, 0x00, 0x01, 0x00,
    0x00, 0x00, 0x01, 0x24, 0x01, 0x03, 0x80, 0x00, 0x00, 0x78, 0x0A, 0xEE, 0x91, 0xA3,
    0x54, 0x4C, 0x99, 0x26, 0x0F, 0x50, 0x54, 0x00, 0x00, 0x00, 0x01, 0x01, 0x01, 0x01,
    0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01,
};

char byteOf(qint64 number)
{
    return static_cast<char>(number & 0xFF);
}

/// Two numbers of 12 bits: low bytes, then both high nibbles in one byte.
std::string twelveBits(qint32 first, qint32 second)
{
    return {byteOf(first), byteOf(second), byteOf((first >> 8 & 15) << 4 | (second >> 8 & 15))};
}

std::string timingDescriptor(const ProtoModel::s_TimingDetailBody &timing)
{
    const ProtoModel::s_TimingAxisBody &h = timing.horizontal;
    const ProtoModel::s_TimingAxisBody &v = timing.vertical;
    const qint64 clock = qint64{h.totalTime} * v.totalTime * timing.refresh / 10000; // 10 kHz
    std::string bytes = {byteOf(clock), byteOf(clock >> 8)};
    bytes += twelveBits(h.addTime, h.totalTime - h.addTime);
    bytes += twelveBits(v.addTime, v.totalTime - v.addTime);
    bytes += {byteOf(h.frontPorch), byteOf(h.sync), byteOf(v.frontPorch << 4 | (v.sync & 15)),
              byteOf((h.frontPorch >> 8 & 3) << 6 | (h.sync >> 8 & 3) << 4
                     | (v.frontPorch >> 4 & 3) << 2 | (v.sync >> 4 & 3))};
    bytes.resize(descriptorSize - 1); // Size in millimetres and borders: 0.
    bytes += byteOf(0x18 | v.syncPolarity << 2 | h.syncPolarity << 1);
    return bytes;
}

std::string textDescriptor(unsigned char tag, std::string text)
{
    text.resize(std::min(text.size(), nameLength));
    if (text.size() < nameLength)
        text += '\n';
    text.resize(nameLength, ' ');
    return std::string{0, 0, 0, static_cast<char>(tag), 0} + text;
}

} // namespace

std::string encodeEdid(const ProtoModel::Interface::s_InterfaceDetail &interface)
{
    constexpr unsigned char nameTag = 0xFC;
    constexpr unsigned char emptyTag = 0x10;
    std::string bytes(std::begin(fixedPart), std::end(fixedPart));
    bytes += timingDescriptor(interface.presetTiming);
    bytes += textDescriptor(nameTag, interface.general.name);
    bytes += textDescriptor(emptyTag, {});
    bytes += textDescriptor(emptyTag, {});
    bytes += '\0'; // No extensions.
    bytes += byteOf(-std::accumulate(bytes.begin(), bytes.end(), 0));
    Q_ASSERT(bytes.size() == 128);
    return bytes;
}

} // namespace Tavoro::Sim
