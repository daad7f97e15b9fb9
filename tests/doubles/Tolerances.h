#pragma once

/// How far a number may lie from the one expected, by what it comes from: absolute for numbers about 1, else as a part.
/// A test that needs another figure says why beside it.
namespace vk {

inline constexpr double kLastBit = 1E-15;        ///< an operation or two
inline constexpr double kFewRoundings = 1E-14;   ///< a handful of operations, or a solution that they lead to
inline constexpr double kManyRoundings = 1E-12;  ///< sums, and roots and quotients of them
inline constexpr double kDerived = 1E-10;        ///< derivatives of formulas, and errors made of them
inline constexpr double kIterated = 1E-9;        ///< the end of a series or an iteration
inline constexpr double kThroughScales = 1E-9;   ///< places on paper, through scales and back
inline constexpr double kByDifferences = 1E-8;   ///< derivatives by differences, and errors made of them
inline constexpr double kKernelAccuracy =
    3E-7;                                 ///< incomplete gamma and beta functions, which end at such a change
inline constexpr double kMinimum = 1E-6;  ///< values at a minimum, found by their sum of squares
inline constexpr double kSingles = 1E-6;  ///< numbers that were singles on their way
inline constexpr double kSixDigits = 1E-5;    ///< figures of tables and screens, which have six digits
inline constexpr double kThreeDigits = 1E-3;  ///< figures of three digits

}  // namespace vk
