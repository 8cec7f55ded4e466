// A record, channels and peaks with a value of its own in every field.
#pragma once

#include "workspace/PeakRec.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Every real number of MeasProp but the calibration.
constexpr double MeasProp::*kMeasReals[] = {&MeasProp::TwoTheta,     &MeasProp::Volt,
                                            &MeasProp::Current,      &MeasProp::Press,
                                            &MeasProp::Temp,         &MeasProp::MiriVolt,
                                            &MeasProp::CntRate,      &MeasProp::RealTime,
                                            &MeasProp::LiveTime,     &MeasProp::PressX,
                                            &MeasProp::PressY,       &MeasProp::PressZ,
                                            &MeasProp::PressTZ,      &MeasProp::HGonioX,
                                            &MeasProp::HGonioY,      &MeasProp::HGonioZ,
                                            &MeasProp::HGonioRes,    &MeasProp::VGonioX,
                                            &MeasProp::VGonioY,      &MeasProp::VGonioZ,
                                            &MeasProp::VGonioDAngle, &MeasProp::Load,
                                            &MeasProp::RamStroke,    &MeasProp::Power,
                                            &MeasProp::Registance,   &MeasProp::NpdVal1,
                                            &MeasProp::NpdVal2,      &MeasProp::InV,
                                            &MeasProp::InH,          &MeasProp::InX,
                                            &MeasProp::InZ,          &MeasProp::InTY,
                                            &MeasProp::ReV,          &MeasProp::ReH,
                                            &MeasProp::ReX,          &MeasProp::ReZ,
                                            &MeasProp::ReTY,         &MeasProp::CollimeterSize,
                                            &MeasProp::Current2};

inline MeasProp SampleProp() {
  MeasProp prop;
  prop.PropHead = 1;
  prop.PropRes1.fill('r');
  prop.EGC[0] = 0.0226609;
  prop.EGC[1] = 0.0647732;
  prop.EGC[2] = 3.87721e-8;
  double value = 1.25;
  for (const auto field : kMeasReals) {
    prop.*field = value;
    value += 1;
  }
  prop.PropRes2 = 77;
  prop.Flags = FlagSmooth | FlagFit;
  prop.PropRes3.fill('R');
  return prop;
}

inline SpectrumRec SampleRecord() {
  SpectrumRec record;
  record.SaveFlag = 1;
  record.MsuName.Set("run 12");
  record.SampName.Set("酸化アルミニウム");
  record.OpDate.Set("20031231");
  record.OpTime.Set("090503");
  record.OpTime2.Set("111213");
  record.OpName.Set("Operator");
  record.Memo.Set("a comment");
  record.DataType = kNativeData;
  for (int i = 0; i <= 9; ++i) record.ExtInt[i] = static_cast<std::int16_t>(100 + i);
  for (int i = 0; i <= 10; ++i) record.ExtText[i].Set("text " + std::to_string(i));
  record.Prop = SampleProp();
  return record;
}

// Counts 0, 3, 6, ... on a ground of 10, the last one 0.
inline ChannelBlock SampleBlock(int count) {
  ChannelBlock block;
  block.Count = static_cast<std::int16_t>(count);
  for (int i = 0; i + 1 < count; ++i) block.Counts[i] = 10 + 3 * i;
  return block;
}

inline PeakTable SamplePeaks(int count) {
  PeakTable table;
  table.Count = static_cast<std::int16_t>(count);
  for (int i = 0; i < count; ++i) {
    PeakRec& peak = table.Peaks[i];
    peak.FitDone = -1;
    peak.FuncType = kMix;
    peak.Height = 1000 + i;
    peak.GaussRatio = 0.75;
    peak.HalfWidth = 4.5;
    peak.Center = 100.25 + i;
    peak.BackConst = 12.5;
    peak.BackSlope = -0.125;
    peak.RegionStart = 90;
    peak.RegionEnd = 110;
    peak.Amplitude = 9500;
    peak.Reserved = 123456;
    peak.FitEngine = kEngineExpress;
  }
  return table;
}

}  // namespace dorvane
