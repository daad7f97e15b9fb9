#include "expr/ColumnMachine.h"

#include <algorithm>
#include <array>
#include <limits>

#include "expr/BlockNumber.h"
#include "expr/PlainOperations.h"
#include "expr/StatisticOperations.h"

namespace vk {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

bool hasItsOperands(const CompiledExpression& compiled) {
  const auto operands = static_cast<std::size_t>(compiled.LastSlot + 1);
  if (compiled.OperandMap.size() < operands || compiled.Slots.upper() < compiled.LastSlot) return false;
  return std::all_of(
      compiled.OperandMap.begin(), compiled.OperandMap.begin() + compiled.LastSlot + 1,
      [&](char index) { return static_cast<unsigned char>(index) <= compiled.Values.upper(); });
}

bool canRun(const CompiledExpression& compiled, const Instruction& instruction) {
  const int last = compiled.LastSlot;
  if (instruction.target > last || instruction.right > last) return false;
  for (int i = 1; instruction.function && i < instruction.count; ++i) {
    if (argumentSlot(compiled.Code, instruction, i) > last) return false;
  }
  const Operation& operation = operationOf(instruction.opcode);
  return operation.kind != OpKind::kStatistic || instruction.count >= operation.arity;
}

// The kernels stand in the order of the opcodes.
static_assert(simd::kMinus == kOpMinus - kOpPower && simd::kDivide == kOpDivide - kOpPower);
static_assert(simd::kSgn == kOpSgn - kOpAbs && simd::kAsin == kOpAsin - kOpAbs &&
              simd::kCos == kOpCos - kOpAbs);

/// The kernel of an operation of kind `kElementary`.
int kernelOf(int opcode) {
  if (opcode == kOpInt) return simd::kInt;
  return opcode == kOpNegate ? simd::kNegate : opcode - kOpAbs;
}

}  // namespace

ColumnMachine::ColumnMachine(const CompiledExpression& compiled, std::span<const Instruction> program) {
  usable_ = hasItsOperands(compiled) && std::ranges::all_of(program, [&](const Instruction& instruction) {
              return canRun(compiled, instruction);
            });
  if (!usable_) return;
  slots_.resize(static_cast<std::size_t>(compiled.LastSlot + 1));
  placeBuffers(program);
}

void ColumnMachine::placeBuffers(std::span<const Instruction> program) {
  bufferOf_.resize(slots_.size(), slots_.size());
  for (const Instruction& instruction : program) {
    std::size_t& buffer = bufferOf_[static_cast<std::size_t>(instruction.target)];
    if (buffer == slots_.size()) buffer = written_++;
  }
}

bool ColumnMachine::run(const CompiledExpression& compiled, std::span<const Instruction> program,
                        std::span<const double* const> columns, std::size_t count) {
  if (!usable_) return false;
  points_ = count;
  count_ = inFullRegisters(count);
  buffers_.resize((written_ + columns.size()) * kBlockPoints);
  loadOperands(compiled, columns);
  for (const Instruction& instruction : program) {
    if (!execute(compiled.Code, instruction)) return false;
  }
  result_ = program.empty() ? simd::Values{} : slots_[static_cast<std::size_t>(program.back().target)];
  return true;
}

void ColumnMachine::loadOperands(const CompiledExpression& compiled, std::span<const double* const> columns) {
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const int index = codeByte(compiled.OperandMap, i);
    const auto variable = static_cast<std::size_t>(index - 1);
    slots_[i] = {nullptr, compiled.Values[index]};
    if (variable >= columns.size()) continue;
    slots_[i] = {filledUp(columns[variable], points_, &buffers_[(written_ + variable) * kBlockPoints])};
  }
}

bool ColumnMachine::execute(std::string_view code, const Instruction& instruction) {
  switch (kKinds[static_cast<std::size_t>(instruction.opcode)]) {
    case OpKind::kOperator:
      return runOperator(instruction);
    case OpKind::kElementary:
      return runElementary(instruction);
    case OpKind::kList:
    case OpKind::kStatistic:
      return runWithArguments(code, instruction);
    case OpKind::kRegister:
      break;
  }
  return true;
}

bool ColumnMachine::storeForAll(int slot, double value) {
  slots_[static_cast<std::size_t>(slot)] = {nullptr, value};
  return isFinite(value);
}

/// The column that a slot gets its values in; it may be the one that it has.
double* ColumnMachine::columnFor(int slot) {
  const auto index = static_cast<std::size_t>(slot);
  double* const column = &buffers_[bufferOf_[index] * kBlockPoints];
  slots_[index] = {column, 0};
  return column;
}

bool ColumnMachine::runOperator(const Instruction& instruction) {
  const simd::Values left = slots_[static_cast<std::size_t>(instruction.target)];
  const simd::Values right = slots_[static_cast<std::size_t>(instruction.right)];
  if (!left.column && !right.column) {
    return storeForAll(instruction.target, operatorValue(instruction.opcode, left.value, right.value));
  }
  const auto kernel = elementary::kernels().operators[instruction.opcode - kOpPower];
  return kernel(left, right, columnFor(instruction.target), count_);
}

bool ColumnMachine::runElementary(const Instruction& instruction) {
  const simd::Values argument = slots_[static_cast<std::size_t>(instruction.target)];
  if (!argument.column) {
    return storeForAll(instruction.target, elementaryValue(instruction.opcode, argument.value));
  }
  const auto kernel = elementary::kernels().functions[kernelOf(instruction.opcode)];
  return kernel(argument, columnFor(instruction.target), count_);
}

bool ColumnMachine::runWithArguments(std::string_view code, const Instruction& instruction) {
  arguments_.assign(1, slots_[static_cast<std::size_t>(instruction.target)]);
  for (int i = 1; i < instruction.count; ++i) {
    arguments_.push_back(slots_[static_cast<std::size_t>(argumentSlot(code, instruction, i))]);
  }
  NoListener nobody;
  std::array<double, kMostArguments> values;
  const std::span<const double> further(values.data() + 1, arguments_.size() - 1);
  const auto valueAt = [&](std::size_t point) {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
      values[i] = arguments_[i].column ? arguments_[i].column[point] : arguments_[i].value;
    }
    if (kKinds[static_cast<std::size_t>(instruction.opcode)] == OpKind::kList) {
      return listValue(instruction.opcode, values[0], further, instruction.count);
    }
    const Evaluation found = statisticValue(instruction.opcode, values[0], further, nobody);
    return found.fault == Fault::kNone ? found.value : kNotANumber;
  };
  const bool uniform =
      std::ranges::none_of(arguments_, [](const simd::Values& argument) { return argument.column; });
  if (uniform) return storeForAll(instruction.target, valueAt(0));
  double* const out = columnFor(instruction.target);
  for (std::size_t i = 0; i < points_; ++i) {
    out[i] = valueAt(i);
    if (!isFinite(out[i])) return false;
  }
  std::fill(out + points_, out + count_, out[points_ - 1]);
  return true;
}

}  // namespace vk
