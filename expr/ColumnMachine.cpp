#include "expr/ColumnMachine.h"

#include <algorithm>

#include "expr/Distributions.h"

namespace vk {

ColumnMachine::ColumnMachine(const CompiledExpression& compiled, int varying)
    : compiled_(compiled), varying_(varying) {
  const auto operands = static_cast<std::size_t>(compiled.LastSlot + 1);
  usable_ = compiled.OperandMap.size() >= operands && compiled.Slots.upper() >= compiled.LastSlot;
  for (std::size_t i = 0; usable_ && i < operands; ++i) {
    usable_ = codeByte(compiled.OperandMap, i) <= compiled.Values.upper();
  }
  if (!usable_) return;
  slots_.resize(operands);
  readCode();
}

void ColumnMachine::readCode() {
  const std::string_view code = compiled_.Code;
  bufferOf_.resize(slots_.size(), slots_.size());
  program_.reserve(code.size() / 3 + 1);
  std::size_t written = 0;
  for (std::size_t at = 0; usable_ && at < code.size();) {
    const Instruction instruction = readInstruction(code, at);
    usable_ = canRun(instruction);
    if (!usable_) return;
    program_.push_back(instruction);
    std::size_t& buffer = bufferOf_[static_cast<std::size_t>(instruction.target)];
    if (buffer == slots_.size()) buffer = written++;
    at = instruction.end;
  }
  buffers_ = std::make_unique_for_overwrite<double[]>(written * kBlockPoints);
}

bool ColumnMachine::canRun(const Instruction& instruction) const {
  const int last = compiled_.LastSlot;
  if (instruction.target > last || instruction.right > last) return false;
  for (int i = 1; instruction.function && i < instruction.count; ++i) {
    if (argumentSlot(compiled_.Code, instruction, i) > last) return false;
  }
  const Operation& operation = operationOf(instruction.opcode);
  return operation.kind != OpKind::kStatistic || instruction.count >= operation.arity;
}

bool ColumnMachine::run(Session& session, Dialogs& dialogs, std::span<const double* const> columns,
                        std::size_t count) {
  count_ = count;
  loadOperands(columns);
  return std::all_of(program_.begin(), program_.end(),
                     [&](const Instruction& instruction) { return execute(session, dialogs, instruction); });
}

void ColumnMachine::loadOperands(std::span<const double* const> columns) {
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const int index = codeByte(compiled_.OperandMap, i);
    const bool varies = index >= 1 && index <= varying_;
    slots_[i] = varies ? Operand{columns[static_cast<std::size_t>(index - 1)], 0}
                       : Operand{nullptr, compiled_.Values[index]};
  }
}

bool ColumnMachine::execute(Session& session, Dialogs& dialogs, const Instruction& instruction) {
  switch (kKinds[static_cast<std::size_t>(instruction.opcode)]) {
    case OpKind::kOperator:
      return runOperator(instruction);
    case OpKind::kElementary:
      return runElementary(instruction);
    case OpKind::kList:
    case OpKind::kStatistic:
      return runWithArguments(session, dialogs, instruction);
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
  const Operand left = slots_[static_cast<std::size_t>(instruction.target)];
  const Operand right = slots_[static_cast<std::size_t>(instruction.right)];
  return withOperator(instruction.opcode, [&](auto f) {
    const double* const a = left.column;
    const double* const b = right.column;
    const double x = left.value;
    const double y = right.value;
    if (!a && !b) return storeForAll(instruction.target, f(x, y));
    double* const out = columnFor(instruction.target);
    if (!a) return fillColumn(out, count_, [=](std::size_t i) { return f(x, b[i]); });
    if (!b) return fillColumn(out, count_, [=](std::size_t i) { return f(a[i], y); });
    return fillColumn(out, count_, [=](std::size_t i) { return f(a[i], b[i]); });
  });
}

bool ColumnMachine::runElementary(const Instruction& instruction) {
  const Operand argument = slots_[static_cast<std::size_t>(instruction.target)];
  return withElementary(instruction.opcode, [&](auto f) {
    const double* const a = argument.column;
    if (!a) return storeForAll(instruction.target, f(argument.value));
    return fillColumn(columnFor(instruction.target), count_, [=](std::size_t i) { return f(a[i]); });
  });
}

std::vector<Operand> ColumnMachine::argumentsOf(const Instruction& instruction) const {
  std::vector<Operand> arguments{slots_[static_cast<std::size_t>(instruction.target)]};
  for (int i = 1; i < instruction.count; ++i) {
    arguments.push_back(slots_[static_cast<std::size_t>(argumentSlot(compiled_.Code, instruction, i))]);
  }
  return arguments;
}

bool ColumnMachine::runWithArguments(Session& session, Dialogs& dialogs, const Instruction& instruction) {
  const std::vector<Operand> arguments = argumentsOf(instruction);
  std::vector<double> values(arguments.size());
  const auto valueAt = [&](std::size_t point) {
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = arguments[i].at(point);
    const std::span<const double> further(values.begin() + 1, values.end());
    return kKinds[static_cast<std::size_t>(instruction.opcode)] == OpKind::kList
               ? listValue(instruction.opcode, values[0], further, instruction.count)
               : statisticValue(session, dialogs, instruction.opcode, values[0], further);
  };
  const bool uniform =
      std::none_of(arguments.begin(), arguments.end(), [](const Operand& o) { return o.column; });
  if (uniform) return storeForAll(instruction.target, valueAt(0));
  double* const out = columnFor(instruction.target);
  for (std::size_t i = 0; i < count_; ++i) {
    out[i] = valueAt(i);
    if (!isFinite(out[i])) return false;
  }
  return true;
}

Operand ColumnMachine::result() const {
  return program_.empty() ? Operand{} : slots_[static_cast<std::size_t>(program_.back().target)];
}

}  // namespace vk
