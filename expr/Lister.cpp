#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CodeReader.h"
#include "expr/Compiler.h"

namespace vk {
namespace {

std::string bytesOf(const std::string& code, const Instruction& instruction) {
  std::string text;
  for (std::size_t at = instruction.begin; at < instruction.end; ++at) {
    text += " " + std::to_string(codeByte(code, at));
  }
  return text;
}

std::string slot(int number) {
  return "s" + std::to_string(number);
}

std::string argumentList(const std::string& code, const Instruction& instruction) {
  std::string list = slot(instruction.target);
  for (int i = 1; i < instruction.count; ++i) list += "," + slot(argumentSlot(code, instruction, i));
  return "(" + list + ")";
}

/// The instruction as an assignment to the slot that it writes back.
std::string meaning(const std::string& code, const Instruction& instruction) {
  const std::string name(operationOf(instruction.opcode).name);
  const std::string target = slot(instruction.target);
  if (instruction.function) return target + " = " + name + argumentList(code, instruction);
  return target + " = " + target + " " + name + " " + slot(instruction.right);
}

std::string valueLine(const CompiledExpression& compiled, int i) {
  const std::string start = "v" + std::to_string(i);
  if (i <= compiled.nVar) return start + " variable\n";
  if (i <= compiled.nVar + compiled.nPar) return start + " parameter\n";
  return start + " = " + generalText(compiled.Values[i]) + "\n";
}

}  // namespace

std::string listCode(const CompiledExpression& compiled) {
  const std::string& code = compiled.Code;
  std::string bytes = "code";
  std::string lines;
  for (std::size_t at = 0; at < code.size();) {
    const Instruction instruction = readInstruction(code, at);
    bytes += (at > 0 ? " |" : "") + bytesOf(code, instruction);
    lines += meaning(code, instruction) + "\n";
    at = instruction.end;
  }
  std::string map = "map";
  for (const char index : compiled.OperandMap) map += " " + std::to_string(vk::code(index));
  std::string text = bytes + "\n" + map + "\nLastSlot " + std::to_string(compiled.LastSlot) + "\n" + lines;
  for (int i = 1; i <= compiled.Values.upper(); ++i) text += valueLine(compiled, i);
  return text;
}

}  // namespace vk
