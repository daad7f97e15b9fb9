#pragma once

#include <string_view>
#include <vector>

#include "expr/Opcodes.h"

namespace vk {

/// An argument count is a byte.
inline constexpr int kMostArguments = 255;

/// One instruction of a code, whatever bytes it is made of.
struct Instruction {
  int opcode;
  bool function;      ///< stored with an argument count
  int target;         ///< slot that is read first and written back
  int right;          ///< second slot of an operator
  int count;          ///< arguments of a function, 0..255
  std::size_t begin;  ///< offset of the opcode
  std::size_t end;    ///< offset of the next instruction, maybe behind the end of the code
};

/// The byte at an offset; behind the end there are only zeros.
inline int codeByte(std::string_view code, std::size_t at) {
  return at < code.size() ? static_cast<unsigned char>(code[at]) : 0;
}

/// Reads the instruction at an offset. The one place that knows how instructions lie in the code.
inline Instruction readInstruction(std::string_view code, std::size_t at) {
  const int opcode = codeByte(code, at);
  const int a = codeByte(code, at + 1);
  const int b = codeByte(code, at + 2);
  if (opcode < kFirstFunction) return {opcode, false, a, b, 2, at, at + 3};
  const std::size_t further = a > 1 ? static_cast<std::size_t>(a - 1) : 0;
  return {opcode, true, b, 0, a, at, at + 3 + further};
}

/// All instructions of a code.
inline std::vector<Instruction> readInstructions(std::string_view code) {
  std::vector<Instruction> program;
  program.reserve(code.size() / 3 + 1);
  for (std::size_t at = 0; at < code.size(); at = program.back().end) {
    program.push_back(readInstruction(code, at));
  }
  return program;
}

/// Slot of argument i (1 the second one written) of a function.
inline int argumentSlot(std::string_view code, const Instruction& instruction, int i) {
  return codeByte(code, instruction.begin + 2 + static_cast<std::size_t>(i));
}

}  // namespace vk
