#pragma once

#include <string>

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// A formula in the byte code of a three-address machine without stack, as the compiler leaves it.
struct CompiledExpression {
  /// True when variable or parameter `index`, counted from 1 over both, stands in the formula.
  bool uses(int index) const { return OperandMap.find(static_cast<char>(index)) != std::string::npos; }

  Int16 nVar;  ///< variables: Values 1..nVar
  Int16 nPar;  ///< parameters: the nPar values after them
  /// 0..names and literals; 0 is unused. Variables and parameters are filled in by the caller before each
  /// run, constants and literals stand above them.
  Array<double> Values;
  Int16 LastSlot = -1;     ///< highest operand number
  std::string Code;        ///< instructions; empty when the compilation failed
  std::string OperandMap;  ///< byte i+1 is the index in Values that operand i loads
  Array<double> Slots;     ///< work space 0..LastSlot of a run
};

}  // namespace vk
