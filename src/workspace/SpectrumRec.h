// The records of one stored spectrum: text properties, measurement properties and counts.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "support/Fixed.h"
#include "support/FixedText.h"

namespace dorvane {

constexpr int kMaxChannels = 8192;

// Energy calibration: the energy in keV of channel number n is EGC(0) + EGC(1)*n + EGC(2)*n*n.
using EgcCoef = Fixed<double, 0, 2>;

// Bits of MeasProp::Flags.
constexpr std::int16_t FlagSmooth = 2;
constexpr std::int16_t FlagBackGraund = 4;
constexpr std::int16_t FlagBackRemv = 8;
constexpr std::int16_t FlagFit = 16;

// Values of SpectrumRec::DataType.
constexpr std::int16_t kNativeData = 1;
constexpr std::int16_t kGenieData = 3;
constexpr std::int16_t kNpdData = 4;
constexpr std::int16_t kDacData = 5;

// Measurement conditions and calibration of a spectrum.
struct MeasProp {
  std::int16_t PropHead = 0;
  std::array<char, 28> PropRes1{};
  EgcCoef EGC;
  double TwoTheta = 0;  // full scattering angle, degrees
  double Volt = 0;      // V
  double Current = 0;   // ring current, mA
  double Press = 0;     // GPa
  double Temp = 0;      // degrees Celsius
  double MiriVolt = 0;  // ion chamber, mV
  double CntRate = 0;   // counts per second
  std::int16_t PropRes2 = 0;
  double RealTime = 0;  // s
  double LiveTime = 0;  // s
  std::int16_t Flags = 0;
  double PressX = 0, PressY = 0, PressZ = 0, PressTZ = 0;          // mm, degrees
  double HGonioX = 0, HGonioY = 0, HGonioZ = 0, HGonioRes = 0;     // mm
  double VGonioX = 0, VGonioY = 0, VGonioZ = 0, VGonioDAngle = 0;  // mm, degrees
  double Load = 0;                                                 // ton
  double RamStroke = 0;                                            // mm
  double Power = 0;                                                // W
  double Registance = 0;                                           // milliohm
  double NpdVal1 = 0, NpdVal2 = 0;
  double InV = 0, InH = 0, InX = 0, InZ = 0, InTY = 0;  // incident slit, mm
  double ReV = 0, ReH = 0, ReX = 0, ReZ = 0, ReTY = 0;  // receiving slit, mm
  double CollimeterSize = 0;                            // mm
  double Current2 = 0;                                  // A
  std::array<char, 294> PropRes3{};

  friend bool operator==(const MeasProp&, const MeasProp&) = default;
};

// Share of the measuring time in which the detector was blind, in percent; 0 when RealTime is 0.
inline double DeadTimePercent(const MeasProp& prop) {
  return prop.RealTime == 0 ? 0 : (prop.RealTime - prop.LiveTime) / prop.RealTime * 100;
}

struct SpectrumRec {
  std::int16_t SaveFlag = 0;  // 1 once the spectrum has been saved
  FixedText<64> MsuName;      // file name without extension
  FixedText<64> SampName;
  FixedText<8> OpDate;  // yyyymmdd
  FixedText<6> OpTime;  // hhmmss
  FixedText<6> OpTime2;
  FixedText<30> OpName;
  FixedText<100> Memo;
  std::int16_t DataType = 0;
  Fixed<std::int16_t, 0, 9> ExtInt;
  Fixed<FixedText<100>, 0, 10> ExtText;
  MeasProp Prop;

  friend bool operator==(const SpectrumRec&, const SpectrumRec&) = default;
};

// The counts of a spectrum. Channels past Count exist and may hold stale or zero counts.
struct ChannelBlock {
  std::int16_t Count = 0;  // channels in use, 0..8192
  Fixed<std::int32_t, 0, kMaxChannels - 1> Counts;

  std::span<std::int32_t> Used() { return {Counts.data(), static_cast<std::size_t>(Count)}; }
  std::span<const std::int32_t> Used() const {
    return {Counts.data(), static_cast<std::size_t>(Count)};
  }
  friend bool operator==(const ChannelBlock&, const ChannelBlock&) = default;
};

}  // namespace dorvane
