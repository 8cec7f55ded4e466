#include "files/PropImage.h"

#include "files/FieldImage.h"

namespace dorvane {
namespace {

// Offsets in the image; fields that follow each other share the offset of the first.
constexpr std::size_t kHeadAt = 0;
constexpr std::size_t kRes1At = 2;
constexpr std::size_t kEgcAt = 30;
constexpr std::size_t kTwoThetaAt = 54;
constexpr std::size_t kVoltAt = 62;
constexpr std::size_t kCurrentAt = 70;
constexpr std::size_t kPressAt = 78;
constexpr std::size_t kTempAt = 86;
constexpr std::size_t kMiriVoltAt = 94;
constexpr std::size_t kCntRateAt = 102;
constexpr std::size_t kRes2At = 110;
constexpr std::size_t kRealTimeAt = 112;
constexpr std::size_t kLiveTimeAt = 120;
constexpr std::size_t kFlagsAt = 128;
constexpr std::size_t kPressPositionAt = 130;
constexpr std::size_t kHGonioAt = 162;
constexpr std::size_t kVGonioAt = 194;
constexpr std::size_t kLoadAt = 226;
constexpr std::size_t kRamStrokeAt = 234;
constexpr std::size_t kPowerAt = 242;
constexpr std::size_t kRegistanceAt = 250;
constexpr std::size_t kNpdValAt = 258;
constexpr std::size_t kIncidentSlitAt = 274;
constexpr std::size_t kReceivingSlitAt = 314;
constexpr std::size_t kCollimeterSizeAt = 354;
constexpr std::size_t kCurrent2At = 362;
constexpr std::size_t kRes3At = 370;
static_assert(kRes3At + std::tuple_size_v<decltype(MeasProp::PropRes3)> == kPropImageSize);

template <typename Visit, typename... Floats>
void VisitFloats(Visit& visit, std::size_t offset, Floats&... fields) {
  ((visit(offset, fields), offset += sizeof(double)), ...);
}

template <typename Visit, typename Prop>
void VisitProp(Visit visit, Prop& prop) {
  visit(kHeadAt, prop.PropHead);
  visit(kRes1At, prop.PropRes1);
  VisitFloats(visit, kEgcAt, prop.EGC[0], prop.EGC[1], prop.EGC[2]);
  visit(kTwoThetaAt, prop.TwoTheta);
  visit(kVoltAt, prop.Volt);
  visit(kCurrentAt, prop.Current);
  visit(kPressAt, prop.Press);
  visit(kTempAt, prop.Temp);
  visit(kMiriVoltAt, prop.MiriVolt);
  visit(kCntRateAt, prop.CntRate);
  visit(kRes2At, prop.PropRes2);
  visit(kRealTimeAt, prop.RealTime);
  visit(kLiveTimeAt, prop.LiveTime);
  visit(kFlagsAt, prop.Flags);
  VisitFloats(visit, kPressPositionAt, prop.PressX, prop.PressY, prop.PressZ, prop.PressTZ);
  VisitFloats(visit, kHGonioAt, prop.HGonioX, prop.HGonioY, prop.HGonioZ, prop.HGonioRes);
  VisitFloats(visit, kVGonioAt, prop.VGonioX, prop.VGonioY, prop.VGonioZ, prop.VGonioDAngle);
  visit(kLoadAt, prop.Load);
  visit(kRamStrokeAt, prop.RamStroke);
  visit(kPowerAt, prop.Power);
  visit(kRegistanceAt, prop.Registance);
  VisitFloats(visit, kNpdValAt, prop.NpdVal1, prop.NpdVal2);
  VisitFloats(visit, kIncidentSlitAt, prop.InV, prop.InH, prop.InX, prop.InZ, prop.InTY);
  VisitFloats(visit, kReceivingSlitAt, prop.ReV, prop.ReH, prop.ReX, prop.ReZ, prop.ReTY);
  visit(kCollimeterSizeAt, prop.CollimeterSize);
  visit(kCurrent2At, prop.Current2);
  visit(kRes3At, prop.PropRes3);
}

}  // namespace

void ReadPropImage(ByteReader& image, MeasProp& prop) {
  VisitProp(FieldReader(image), prop);
}

void WritePropImage(ByteWriter& image, const MeasProp& prop) {
  VisitProp(FieldWriter(image), prop);
}

}  // namespace dorvane
