#include "gral/CallByName.h"

#include <utility>

#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {
namespace {

using Arguments = std::span<const GralValue>;

template <class T>
const T& held(const GralValue& value) {
  if (const T* found = std::get_if<T>(&value)) return *found;
  throw RuntimeError(kTypeMismatch);
}

std::string_view textOf(const GralValue& value) {
  if (std::string* const* variable = std::get_if<std::string*>(&value)) return **variable;
  return held<std::string>(value);
}

/// The argument as the type of a parameter.
template <class T>
struct Taken {
  static T from(const GralValue& value) { return static_cast<T>(toInt32(held<double>(value))); }
};
template <>
struct Taken<double> {
  static double from(const GralValue& value) { return held<double>(value); }
};
template <>
struct Taken<float> {
  static float from(const GralValue& value) { return toSingle(held<double>(value)); }
};
template <>
struct Taken<Colour> {
  static Colour from(const GralValue& value) { return Colour::fromBgr(toInt32(held<double>(value))); }
};
template <>
struct Taken<bool> {
  static bool from(const GralValue& value) { return held<double>(value) != 0; }
};
template <>
struct Taken<std::string_view> {
  static std::string_view from(const GralValue& value) { return textOf(value); }
};
template <>
struct Taken<std::string> {
  static std::string from(const GralValue& value) { return std::string(textOf(value)); }
};
template <class T>
struct Taken<T&> {
  static T& from(const GralValue& value) { return *held<T*>(value); }
};
template <>
struct Taken<Device*> {
  static Device* from(const GralValue& value) { return held<Device*>(value); }
};

template <class T>
GralValue given(const T& value) {
  if constexpr (std::is_convertible_v<T, double>) {
    return static_cast<double>(value);
  } else {
    return value;
  }
}

template <class Method>
struct Caller;

template <class Result, class... Parameters>
struct Caller<Result (GralCls::*)(Parameters...)> {
  static constexpr std::size_t kCount = sizeof...(Parameters);

  template <class Method, std::size_t... I>
  static GralValue call(GralCls& drawing, Method method, Arguments arguments, std::index_sequence<I...>) {
    if constexpr (std::is_void_v<Result>) {
      (drawing.*method)(Taken<Parameters>::from(arguments[I])...);
      return {};
    } else {
      return given((drawing.*method)(Taken<Parameters>::from(arguments[I])...));
    }
  }
};

template <class Result, class... Parameters>
struct Caller<Result (GralCls::*)(Parameters...) const> : Caller<Result (GralCls::*)(Parameters...)> {};

template <auto Method>
GralValue call(GralCls& drawing, Arguments arguments) {
  using Called = Caller<decltype(Method)>;
  if (arguments.size() != Called::kCount) throw RuntimeError(kInvalidCall);
  return Called::call(drawing, Method, arguments, std::make_index_sequence<Called::kCount>());
}

struct NamedMethod {
  std::string_view name;
  GralValue (*call)(GralCls&, Arguments);
};

constexpr NamedMethod kMethods[] = {
    {"GralGrStr", call<&GralCls::GralGrStr>},
    {"GralGrEnd", call<&GralCls::GralGrEnd>},
    {"GralCls", call<&GralCls::GralClear>},
    {"GralRefresh", call<&GralCls::GralRefresh>},
    {"GralHide", call<&GralCls::GralHide>},
    {"GralShow", call<&GralCls::GralShow>},
    {"GralXMap", call<&GralCls::GralXMap>},
    {"GralYMap", call<&GralCls::GralYMap>},
    {"xLog2Scr", call<&GralCls::xLog2Scr>},
    {"xScr2Log", call<&GralCls::xScr2Log>},
    {"xUsr2Log", call<&GralCls::xUsr2Log>},
    {"xLog2Usr", call<&GralCls::xLog2Usr>},
    {"xUsr2Scr", call<&GralCls::xUsr2Scr>},
    {"xScr2Usr", call<&GralCls::xScr2Usr>},
    {"yLog2Scr", call<&GralCls::yLog2Scr>},
    {"yScr2Log", call<&GralCls::yScr2Log>},
    {"yUsr2Log", call<&GralCls::yUsr2Log>},
    {"yLog2Usr", call<&GralCls::yLog2Usr>},
    {"yUsr2Scr", call<&GralCls::yUsr2Scr>},
    {"yScr2Usr", call<&GralCls::yScr2Usr>},
    {"xUsr2Pixel", call<&GralCls::xUsr2Pixel>},
    {"yUsr2Pixel", call<&GralCls::yUsr2Pixel>},
    {"xScr2Pixel", call<&GralCls::xScr2Pixel>},
    {"yScr2Pixel", call<&GralCls::yScr2Pixel>},
    {"xPixel2Usr", call<&GralCls::xPixel2Usr>},
    {"yPixel2Usr", call<&GralCls::yPixel2Usr>},
    {"GralColor", call<&GralCls::GralColor>},
    {"GralFillColor", call<&GralCls::GralFillColor>},
    {"GralFillStyle", call<&GralCls::GralFillStyle>},
    {"GralPen", call<&GralCls::GralPen>},
    {"GralLine", call<&GralCls::GralLine>},
    {"GralLineScr", call<&GralCls::GralLineScr>},
    {"GralTraLine", call<&GralCls::GralTraLine>},
    {"GralBox", call<&GralCls::GralBox>},
    {"GralClip", call<&GralCls::GralClip>},
    {"GralMakeMark", call<&GralCls::GralMakeMark>},
    {"GralMark", call<&GralCls::GralMark>},
    {"GralOaxis", call<&GralCls::GralOaxis>},
    {"GralVaxis", call<&GralCls::GralVaxis>},
    {"Makescale", call<&GralCls::Makescale>},
    {"basnum2str", call<&GralCls::basnum2str>},
    {"Shift", call<&GralCls::Shift>},
    {"GralWPrint", call<&GralCls::GralWPrint>},
    {"GralWinPrintString", call<&GralCls::GralWinPrintString>},
    {"MakLenLett", call<&GralCls::MakLenLett>},
    {"GralDraw", call<&GralCls::GralDraw>},
    {"GralCurve", call<&GralCls::GralCurve>},
    {"PlotData", call<&GralCls::PlotData>},
    {"GralFill", call<&GralCls::GralFill>},
    {"GralPrintScreen", call<&GralCls::GralPrintScreen>},
    {"GralContour", call<&GralCls::GralContour>},
    {"Surf3D", call<&GralCls::Surf3D>},
    {"GralLego3d", call<&GralCls::GralLego3d>},
    {"GralFrame3d", call<&GralCls::GralFrame3d>},
    {"Frame3D", call<&GralCls::Frame3D>},
};

template <auto Field>
GralValue read(GralCls& drawing) {
  return given(drawing.*Field);
}

template <auto Field>
void write(GralCls& drawing, const GralValue& value) {
  auto& field = drawing.*Field;
  field = Taken<std::remove_reference_t<decltype(field)>>::from(value);
}

struct NamedField {
  std::string_view name;
  GralValue (*read)(GralCls&);
  void (*write)(GralCls&, const GralValue&);
};

template <auto Field>
constexpr NamedField field(std::string_view name) {
  return {name, read<Field>, write<Field>};
}

constexpr NamedField kFields[] = {
    field<&GralCls::GralDev>("GralDev"),
    field<&GralCls::GralCaption>("GralCaption"),
    field<&GralCls::GralMarkDim>("GralMarkDim"),
    field<&GralCls::GralMarkTyp>("GralMarkTyp"),
    field<&GralCls::XlLog>("XlLog"),
    field<&GralCls::XrLog>("XrLog"),
    field<&GralCls::xScaleL2S>("xScaleL2S"),
    field<&GralCls::YtLog>("YtLog"),
    field<&GralCls::YbLog>("YbLog"),
    field<&GralCls::yScaleL2S>("yScaleL2S"),
    field<&GralCls::XlUsr>("XlUsr"),
    field<&GralCls::XrUsr>("XrUsr"),
    field<&GralCls::xScaleU2L>("xScaleU2L"),
    field<&GralCls::YtUsr>("YtUsr"),
    field<&GralCls::YbUsr>("YbUsr"),
    field<&GralCls::yScaleU2L>("yScaleU2L"),
    field<&GralCls::GralUseTra>("GralUseTra"),
    field<&GralCls::GralPenTra>("GralPenTra"),
    field<&GralCls::kGralPen>("kGralPen"),
};

template <class Table>
const auto& entryOf(const Table& table, std::string_view name) {
  for (const auto& entry : table) {
    if (equalIgnoringCase(entry.name, name)) return entry;
  }
  throw RuntimeError(kInvalidCall);
}

template <class Table>
std::vector<std::string_view> namesOf(const Table& table) {
  std::vector<std::string_view> names;
  for (const auto& entry : table) names.push_back(entry.name);
  return names;
}

}  // namespace

GralValue callByName(GralCls& drawing, std::string_view method, Arguments arguments) {
  return entryOf(kMethods, method).call(drawing, arguments);
}

GralValue readField(GralCls& drawing, std::string_view field) {
  return entryOf(kFields, field).read(drawing);
}

void writeField(GralCls& drawing, std::string_view field, const GralValue& value) {
  entryOf(kFields, field).write(drawing, value);
}

std::vector<std::string_view> methodNames() {
  return namesOf(kMethods);
}

std::vector<std::string_view> fieldNames() {
  return namesOf(kFields);
}

}  // namespace vk
