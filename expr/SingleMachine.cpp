#include "expr/SingleMachine.h"

#include <algorithm>
#include <array>

#include "expr/PlainOperations.h"
#include "expr/StatisticOperations.h"

namespace vk {
namespace {

/// The machine of one evaluation. Each line of an instruction is a statement of its own: what fails stores
/// nothing, and the next one runs with what the registers held.
class Machine {
 public:
  Machine(std::string_view code, std::span<double> slots, EvaluationListener& listener)
      : code_(code), slots_(slots), listener_(listener) {}

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
        assign(withOperator(opcode, [this](auto f) { return f(X_, Y_); }));
        break;
      case OpKind::kElementary:
        assign(withElementary(opcode, [this](auto f) { return f(X_); }));
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
  EvaluationListener& listener_;
  Fault fault_ = Fault::kNone;
  double X_ = 0;
  double Y_ = 0;
  int further_ = 0;
  std::array<double, kMostArguments> arguments_;  // only the first `further_` have values
};

}  // namespace

Evaluation runInstructions(std::string_view code, std::span<const Instruction> program,
                           std::span<double> slots, EvaluationListener& listener) {
  return Machine(code, slots, listener).run(program);
}

}  // namespace vk
