#include "expr/SingleMachine.h"

#include <algorithm>
#include <array>

#include "expr/PlainOperations.h"
#include "expr/StatisticOperations.h"

namespace vk {
namespace {

/// Arguments of a function behind the first one; only as many as were read have values.
using Arguments = std::array<double, kMostArguments>;

/// The machine of one evaluation. Its arguments lie outside: they are handed on by address, and the registers then
/// need none. Each line of an instruction is a statement of its own: what fails stores
/// nothing, and the next one runs with what the registers held.
class Machine {
 public:
  Machine(std::string_view code, std::span<double> slots, Arguments& arguments, EvaluationListener& listener)
      : code_(code), slots_(slots), arguments_(arguments), listener_(listener) {}

  Evaluation run(std::span<const Instruction> program) {
    for (const Instruction& instruction : program) {
      read(instruction);
      execute(instruction);
      writeBack(instruction.target);
    }
    return {X_, fault_};
  }

 private:
  void read(const Instruction& instruction) {
    load(X_, instruction.target);
    if (!instruction.function) {
      load(Y_, instruction.right);
    } else if (instruction.count > 1) {
      readArguments(instruction);
    }
  }

  // QUIRK: a function with one argument leaves the arguments of an earlier one in place, and a later function
  // that was called with too few works with them.
  void readArguments(const Instruction& instruction) {
    further_ = instruction.count - 1;
    for (int i = 1; i <= further_; ++i) {
      double& argument = arguments_[static_cast<std::size_t>(i - 1)];
      argument = 0;
      load(argument, argumentSlot(code_, instruction, i));
    }
  }

  void execute(const Instruction& instruction) {
    const int opcode = instruction.opcode;
    switch (kKinds[static_cast<std::size_t>(opcode)]) {
      case OpKind::kOperator:
        assign(operatorValue(opcode, X_, Y_));
        break;
      case OpKind::kElementary:
        assign(elementaryValue(opcode, X_));
        break;
      case OpKind::kList:
        assign(listValue(opcode, X_, further(std::min(further_, instruction.count - 1)), instruction.count));
        break;
      case OpKind::kStatistic:
        assign(statisticValue(opcode, X_, further(further_), listener_));
        break;
      case OpKind::kRegister:
        break;
    }
  }

  std::span<const double> further(int count) const {
    return {arguments_.data(), static_cast<std::size_t>(std::max(0, count))};
  }

  void assign(double value) {
    if (isFinite(value)) {
      X_ = value;
    } else {
      fail();
    }
  }

  void assign(const Evaluation& evaluation) {
    if (evaluation.fault == Fault::kNone) {
      X_ = evaluation.value;
    } else {
      fault_ = evaluation.fault;
    }
  }

  void load(double& target, int slot) {
    if (const auto index = static_cast<std::size_t>(slot); index < slots_.size()) {
      target = slots_[index];
    } else {
      fail();
    }
  }

  void writeBack(int slot) {
    if (const auto index = static_cast<std::size_t>(slot); index < slots_.size()) {
      slots_[index] = X_;
    } else {
      fail();
    }
  }

  void fail() { fault_ = Fault::kDomain; }

  std::string_view code_;
  std::span<double> slots_;
  Fault fault_ = Fault::kNone;
  double X_ = 0;
  double Y_ = 0;
  int further_ = 0;
  Arguments& arguments_;
  EvaluationListener& listener_;
};

}  // namespace

Evaluation runInstructions(std::string_view code, std::span<const Instruction> program,
                           std::span<double> slots, EvaluationListener& listener) {
  Arguments arguments;
  return Machine(code, slots, arguments, listener).run(program);
}

}  // namespace vk
