/// Unit GralCls: its operations, called by their names.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "gral/Plotting.h"

/// The drawing class by name, for callers that learn at run time what they are to call.
namespace vk {

/// An argument or a result. Numbers and truth values are double (not 0 is true); what a method changes is
/// handed in as a pointer, and so are arrays and the device.
using GralValue =
    std::variant<std::monostate, double, std::string, double*, std::string*, Device*, const Array<double>*,
                 Array<std::string>*, const Array<float>*, const Array<Colour>*, const Array2<float>*>;

/// Calls a public method by its name, in any case. The method that clears the form is named `GralCls`.
/// Integer arguments are rounded, ties to even. An unknown name or a wrong number of arguments is run-time
/// error 5, an argument of the wrong type 13; the method's own failures come through.
GralValue callByName(GralCls& drawing, std::string_view method, std::span<const GralValue> arguments);

/// Reads or writes a public field by its name, in any case; errors as above. Singles narrow what is stored.
GralValue readField(GralCls& drawing, std::string_view field);
void writeField(GralCls& drawing, std::string_view field, const GralValue& value);

/// The names, in the order of the class.
std::vector<std::string_view> methodNames();
std::vector<std::string_view> fieldNames();

}  // namespace vk
