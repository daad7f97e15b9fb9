#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "expr/Formula.h"

namespace vk {

/// The calculator behind the window: formulas of the expression language over named values.
///
/// A line is a formula, or "name=formula", which names its value for the lines that follow. `ris` is the value
/// of the line before. Texts are code page 437.
class Calculator {
 public:
  /// One line that was calculated.
  struct Entry {
    std::string line;    ///< as it was typed, without blanks around it
    std::string result;  ///< the value as a number text
  };
  using NamedValue = std::pair<std::string, double>;

  /// Calculates a line. True when it joins the history; else `error` tells why and nothing else changes.
  bool enter(std::string_view line);

  /// Why the last line failed; empty after a good one.
  const std::string& error() const { return error_; }
  /// The lines calculated so far, the oldest first.
  const std::vector<Entry>& history() const { return history_; }
  /// The named values in the order in which they got their names, `ris` not among them.
  const std::vector<NamedValue>& values() const { return values_; }

  /// Forgets history, values and error.
  void clear();

 private:
  bool compileLine(const std::string& text, Formula& formula);
  bool evaluate(Formula& formula, double& value);
  bool fail(const std::string& reason);
  std::vector<NamedValue> variables() const;

  std::vector<Entry> history_;
  std::vector<NamedValue> values_;
  double last_ = 0;
  std::string error_;
};

}  // namespace vk
