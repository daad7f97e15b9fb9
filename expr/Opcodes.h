#pragma once

#include <array>
#include <string>
#include <string_view>

/// The one table of the machine's operations. The enum, the names that the compiler searches, the digits of
/// its arity check, the classes of the evaluators and the texts of the lister are all taken from it.
///
/// An operator is stored as opcode, left slot, right slot; everything from `kFirstFunction` on as opcode,
/// argument count, and the slot of each argument. The result replaces the left slot or the first argument.
namespace vk {

/// How an operation is computed.
enum class OpKind {
  kOperator,    ///< of two slots, by plain arithmetic
  kElementary,  ///< of one argument, by plain arithmetic
  kList,        ///< of the whole argument list, by plain arithmetic
  kStatistic,   ///< by the kernels of the numerics, which give a fault with their value
  kRegister,    ///< nothing is computed: X is written back
};

// name in the code, text in the language, number of arguments (0: any number from one), kind
#define VK_OPERATIONS(OP)       \
  OP(Power, "^", 2, kOperator)  \
  OP(Times, "*", 2, kOperator)  \
  OP(Divide, "/", 2, kOperator) \
  OP(Plus, "+", 2, kOperator)   \
  OP(Minus, "-", 2, kOperator)

// In the order of their numbers, which is also the order in which the compiler searches them: a name that
// ends like another stands before it (ASIN before SIN, LNGAM before GAM).
#define VK_FUNCTIONS(OP)                         \
  OP(Abs, "ABS", 1, kElementary)                 \
  OP(Sqr, "SQR", 1, kElementary)                 \
  OP(Exp, "EXP", 1, kElementary)                 \
  OP(Log, "LOG", 1, kElementary)                 \
  OP(Asin, "ASIN", 1, kElementary)               \
  OP(Acos, "ACOS", 1, kElementary)               \
  OP(Atan, "ATAN", 1, kElementary)               \
  OP(Sin, "SIN", 1, kElementary)                 \
  OP(Cos, "COS", 1, kElementary)                 \
  OP(Tan, "TAN", 1, kElementary)                 \
  OP(Sgn, "SGN", 1, kElementary)                 \
  OP(LnGam, "LNGAM", 1, kStatistic)              \
  OP(Gam, "GAM", 1, kStatistic)                  \
  OP(Sum, "SUM", 0, kList)                       \
  OP(Avg, "AVG", 0, kList)                       \
  OP(Std, "STD", 0, kList)                       \
  OP(BinomialDensity, "D_B", 3, kStatistic)      \
  OP(BinomialCumulative, "C_B", 3, kStatistic)   \
  OP(PoissonDensity, "D_P", 2, kStatistic)       \
  OP(PoissonCumulative, "C_P", 2, kStatistic)    \
  OP(NormalDensity, "D_N", 3, kStatistic)        \
  OP(NormalCumulative, "C_N", 3, kStatistic)     \
  OP(ChiSquareDensity, "D_X2", 2, kStatistic)    \
  OP(ChiSquareCumulative, "C_X2", 2, kStatistic) \
  OP(StudentDensity, "D_T", 2, kStatistic)       \
  OP(StudentCumulative, "C_T", 2, kStatistic)    \
  OP(FisherDensity, "D_F", 3, kStatistic)        \
  OP(FisherCumulative, "C_F", 3, kStatistic)     \
  OP(LowerTail, "P", 1, kStatistic)              \
  OP(UpperTail, "Q", 1, kStatistic)              \
  OP(CentralArea, "A", 1, kStatistic)            \
  OP(Int, "INT", 1, kElementary)

/// Opcodes of functions are their numbers plus this.
inline constexpr int kFirstFunction = 10;
/// The number of the pseudo-function that wraps the whole expression.
inline constexpr int kWrapper = 98;

#define VK_ENUMERATOR(name, text, arity, kind) kOp##name,
enum Opcode : int {
  kBeforeOperators = 0,
  VK_OPERATIONS(VK_ENUMERATOR)  //
  kBeforeFunctions = kFirstFunction - 1,
  VK_FUNCTIONS(VK_ENUMERATOR)  //
  kBehindFunctions,
  kOpClosing = kFirstFunction + kWrapper,  ///< X is the value of the expression
  kOpNegate,                               ///< X = -X; reserved: it has no name in the language
};
#undef VK_ENUMERATOR

/// Functions of the language.
inline constexpr int kFunctionCount = kBehindFunctions - kFirstFunction;

// Code that was written down elsewhere holds these numbers.
static_assert(kOpPower == 1 && kOpTimes == 2 && kOpDivide == 3 && kOpPlus == 4 && kOpMinus == 5);
static_assert(kOpAbs == 10 && kOpAtan == 16 && kOpSgn == 20 && kOpLnGam == 21 && kOpSum == 23);
static_assert(kOpBinomialDensity == 26 && kOpNormalDensity == 30 && kOpFisherCumulative == 37);
static_assert(kOpLowerTail == 38 && kOpInt == 41 && kOpClosing == 108 && kOpNegate == 109);
static_assert(kFunctionCount == 32);

/// A row of the table.
struct Operation {
  int opcode;
  std::string_view name;
  int arity;  ///< 0: any number of arguments from one
  OpKind kind;
};

#define VK_ROW(name, text, arity, kind) Operation{kOp##name, text, arity, OpKind::kind},
/// All rows: the operators, the functions, the wrapper and the negation.
inline constexpr std::array kOperations{VK_OPERATIONS(VK_ROW) VK_FUNCTIONS(VK_ROW)  //
                                        Operation{kOpClosing, "value", 1, OpKind::kRegister},
                                        Operation{kOpNegate, "negate", 1, OpKind::kElementary}};
#undef VK_ROW
#undef VK_OPERATIONS
#undef VK_FUNCTIONS

/// Function 0..31 of the language.
constexpr const Operation& functionOf(int number) {
  return kOperations[static_cast<std::size_t>(kOpMinus + number)];
}
static_assert(functionOf(0).opcode == kOpAbs && functionOf(kFunctionCount - 1).opcode == kOpInt);

/// What stands for an opcode that no row has: X is written back and nothing else happens.
inline constexpr Operation kUnknownOperation{-1, "?", 0, OpKind::kRegister};

/// The row of any byte.
constexpr const Operation& operationOf(int opcode) {
  for (const Operation& operation : kOperations) {
    if (operation.opcode == opcode) return operation;
  }
  return kUnknownOperation;
}

/// The kind of any byte, for the evaluators.
inline constexpr std::array kKinds = [] {
  std::array<OpKind, 256> kinds{};
  for (std::size_t i = 0; i < kinds.size(); ++i) kinds[i] = operationOf(static_cast<int>(i)).kind;
  return kinds;
}();

/// The number of arguments of any byte, for the evaluators.
inline constexpr std::array kArities = [] {
  std::array<int, 256> arities{};
  for (std::size_t i = 0; i < arities.size(); ++i) arities[i] = operationOf(static_cast<int>(i)).arity;
  return arities;
}();

/// The arity digits in the order of the function numbers.
inline std::string arityDigits() {
  std::string digits;
  for (int i = 0; i < kFunctionCount; ++i) digits += static_cast<char>('0' + functionOf(i).arity);
  return digits;
}

}  // namespace vk
