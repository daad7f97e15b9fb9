#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "expr/CmpMod.h"
#include "expr/ColumnMachine.h"
#include "expr/CompositeFunction.h"

namespace vk {
namespace {

/// Computes result[i] at all points in blocks. `together(begin, count)` computes a block and stores it, or gives
/// false and stores nothing; then `single(i)` computes its points one by one.
template <class Together, class Single>
void inBlocks(Session& session, std::span<double> result, std::span<Int16> flags, Together together,
              Single single) {
  for (std::size_t begin = 0; begin < result.size(); begin += kBlockPoints) {
    const std::size_t count = std::min(kBlockPoints, result.size() - begin);
    if (together(begin, count)) {
      session.ErrFlag = kFalse;
      if (!flags.empty()) std::fill_n(&flags[begin], count, Int16(kFalse));
      continue;
    }
    for (std::size_t i = begin; i < begin + count; ++i) {
      result[i] = single(i);
      if (!flags.empty()) flags[i] = session.ErrFlag;
    }
  }
}

void checkLength(std::size_t length, std::size_t needed) {
  if (length < needed) throw RuntimeError(kIndexOutOfRange);
}

/// The current composite function over blocks of points.
class FunctionColumns {
 public:
  FunctionColumns(Session& session, Dialogs& dialogs) : session_(session), dialogs_(dialogs) {
    if (!isPlainInner(session.analysis.fun.InnerIndex))
      machine_ = std::make_unique<ColumnMachine>(session.analysis.model, 1);
  }

  bool together(const double* x, std::size_t count, double* result) {
    const std::optional<Operand> u = inner(x, count);
    if (!u) return false;
    std::array<double, kBlockPoints> values;
    const bool good = withOuter(session_, [&](auto f) {
      if (!u->column)
        return fillColumn(values.data(), count, [x, f, y = u->value](std::size_t i) { return f(x[i], y); });
      return fillColumn(values.data(), count, [x, f, y = u->column](std::size_t i) { return f(x[i], y[i]); });
    });
    // The result may lie where x lies, so it is stored when nothing needs x any more.
    if (good) std::copy_n(values.data(), count, result);
    return good;
  }

 private:
  /// The inner values; nothing when one of them failed.
  std::optional<Operand> inner(const double* x, std::size_t count) {
    if (machine_) {
      if (!machine_->usable() || !machine_->run(session_, dialogs_, {&x, 1}, count)) return std::nullopt;
      return machine_->result();
    }
    const bool good = withInner(session_, [&](auto g) {
      return fillColumn(inner_.data(), count, [=](std::size_t i) { return g(x[i]); });
    });
    return good ? std::optional(Operand{inner_.data(), 0}) : std::nullopt;
  }

  Session& session_;
  Dialogs& dialogs_;
  std::unique_ptr<ColumnMachine> machine_;  // none for an inner function of the catalogue
  std::array<double, kBlockPoints> inner_;
};

}  // namespace

void evaluateFunctionAt(Session& session, Dialogs& dialogs, std::span<const double> x,
                        std::span<double> result, std::span<Int16> flags) {
  if (result.empty()) return;
  checkLength(x.size(), result.size());
  if (!isPlainInner(session.analysis.fun.InnerIndex)) setModelValues(session, x[0]);
  FunctionColumns columns(session, dialogs);
  inBlocks(
      session, result, flags,
      [&](std::size_t begin, std::size_t count) {
        return columns.together(&x[begin], count, &result[begin]);
      },
      [&](std::size_t i) { return EvaluateFunction(session, dialogs, x[i]); });
}

void evaluateCodeAt(Session& session, Dialogs& dialogs, CompiledExpression& compiled,
                    std::span<const std::span<const double>> columns, std::span<double> result,
                    std::span<Int16> flags) {
  for (const std::span<const double> column : columns) checkLength(column.size(), result.size());
  const auto variables =
      std::min(columns.size(), static_cast<std::size_t>(std::max(0, compiled.Values.upper())));
  ColumnMachine machine(compiled, static_cast<int>(variables));
  std::vector<const double*> block(variables);
  inBlocks(
      session, result, flags,
      [&](std::size_t begin, std::size_t count) {
        for (std::size_t v = 0; v < variables; ++v) block[v] = columns[v].data() + begin;
        if (!machine.usable() || !machine.run(session, dialogs, block, count)) return false;
        const Operand value = machine.result();
        if (value.column) {
          std::copy_n(value.column, count, &result[begin]);
        } else {
          std::fill_n(&result[begin], count, value.value);
        }
        return true;
      },
      [&](std::size_t i) {
        for (std::size_t v = 0; v < variables; ++v) compiled.Values[static_cast<int>(v) + 1] = columns[v][i];
        loadSlots(compiled);
        return EvaluateCode(session, dialogs, compiled.Code, compiled.Slots);
      });
}

}  // namespace vk
