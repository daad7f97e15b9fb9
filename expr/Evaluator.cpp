#include <algorithm>
#include <array>

#include "expr/CmpMod.h"
#include "expr/CodeReader.h"
#include "expr/Distributions.h"
#include "expr/PlainOperations.h"

namespace vk {
namespace {

// An argument count is a byte.
constexpr int kMostArguments = 255;

/// The machine of one evaluation. Each line of an instruction is a statement of its own: what fails stores
/// nothing, sets `ErrFlag`, and the next one runs with what the registers held.
class Machine {
 public:
  Machine(Session& session, Dialogs& dialogs, std::string_view code, std::span<double> slots)
      : session_(session), dialogs_(dialogs), code_(code), slots_(slots) {}

  double run() {
    for (std::size_t at = 0; at < code_.size();) {
      const Instruction instruction = readInstruction(code_, at);
      read(instruction);
      execute(instruction);
      writeBack(instruction.target);
      at = instruction.end;
    }
    return X_;
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
        assign(statisticValue(session_, dialogs_, opcode, X_, further(further_)));
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

  void fail() { session_.ErrFlag = kTrue; }

  Session& session_;
  Dialogs& dialogs_;
  std::string_view code_;
  std::span<double> slots_;
  double X_ = 0;
  double Y_ = 0;
  int further_ = 0;
  std::array<double, kMostArguments> arguments_;  // only the first `further_` have values
};

}  // namespace

double EvaluateCode(Session& session, Dialogs& dialogs, const std::string& code, Array<double>& Slots) {
  session.ErrFlag = kFalse;
  return Machine(session, dialogs, code, Slots.span(0, Slots.upper())).run();
}

void loadSlots(CompiledExpression& compiled) {
  const std::span<double> slots = compiled.Slots.span(0, compiled.Slots.upper());
  const std::span<const double> values = compiled.Values.span(0, compiled.Values.upper());
  const std::string& map = compiled.OperandMap;
  const auto count = std::min({slots.size(), map.size(), static_cast<std::size_t>(compiled.LastSlot + 1)});
  for (std::size_t i = 0; i < count; ++i) {
    const auto index = static_cast<unsigned char>(map[i]);
    if (index < values.size()) slots[i] = values[index];
  }
}

}  // namespace vk
