#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "expr/EvaluateHelp.h"

namespace vk {

/// An expression as a tree, made independently of the compiler: what it means is told by `valueOf` below.
struct Node {
  enum Kind { kNumber, kVariable, kNegation, kOperator, kFunction };
  Kind kind;
  std::string text;  ///< number, name, sign or function name
  double number = 0;
  std::size_t variable = 0;
  std::vector<std::unique_ptr<Node>> parts{};
};

/// The tree's text, with parentheses only where precedence asks for them.
std::string textOf(const Node& node);

/// The value of the tree; what fails has the value of its first part and sets `failed`.
double valueOf(const Node& node, const std::vector<double>& variables, bool& failed);

/// True when the compiler's arity check, which looks at the first function only and then at what it left
/// behind, passes the text of this tree. Every function in it has a right number of arguments.
bool passesArityCheck(const Node& node);

/// Makes random expressions, always the same ones for a seed.
class ExpressionMaker {
 public:
  ExpressionMaker(unsigned seed, std::vector<std::string> names) : random_(seed), names_(std::move(names)) {}

  std::unique_ptr<Node> make(int depth);
  std::size_t below(std::size_t limit) { return random_() % limit; }
  bool oneIn(std::size_t n) { return below(n) == 0; }

 private:
  std::unique_ptr<Node> leaf();
  std::unique_ptr<Node> function(int depth);

  std::mt19937 random_;
  std::vector<std::string> names_;
};

}  // namespace vk
