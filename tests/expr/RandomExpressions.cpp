#include "expr/RandomExpressions.h"

#include <cmath>
#include <limits>
#include <map>

#include "numeric/Elementary.h"

namespace vk {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

struct Literal {
  const char* text;
  double value;
};
// Awkward ones among them: the ends of the range, halves, whole numbers for powers.
const std::vector<Literal> kLiterals{{"0", 0},           {"1", 1},       {"2", 2},        {"3", 3},
                                     {"0.5", .5},        {".25", .25},   {"1.7", 1.7},    {"12.5", 12.5},
                                     {"1E3", 1e3},       {"1e-3", 1e-3}, {"2.5E+2", 250}, {"1E300", 1e300},
                                     {"1E-300", 1e-300}, {"7", 7},       {"100", 100},    {"3.25", 3.25}};

struct FunctionName {
  const char* name;
  int opcode;
  int arity;
};
const std::vector<FunctionName> kFunctionNames{
    {"ABS", 10, 1},  {"SQR", 11, 1}, {"EXP", 12, 1}, {"LOG", 13, 1}, {"ASIN", 14, 1}, {"ACOS", 15, 1},
    {"ATAN", 16, 1}, {"SIN", 17, 1}, {"COS", 18, 1}, {"TAN", 19, 1}, {"SGN", 20, 1},  {"LNGAM", 21, 1},
    {"GAM", 22, 1},  {"SUM", 23, 0}, {"AVG", 24, 0}, {"STD", 25, 0}, {"D_B", 26, 3},  {"C_B", 27, 3},
    {"D_P", 28, 2},  {"C_P", 29, 2}, {"D_N", 30, 3}, {"C_N", 31, 3}, {"D_X2", 32, 2}, {"C_X2", 33, 2},
    {"D_T", 34, 2},  {"C_T", 35, 2}, {"D_F", 36, 3}, {"C_F", 37, 3}, {"P", 38, 1},    {"Q", 39, 1},
    {"A", 40, 1},    {"INT", 41, 1}};

const FunctionName& functionNamed(const std::string& name) {
  for (const FunctionName& f : kFunctionNames) {
    if (name == f.name) return f;
  }
  throw std::logic_error(name);
}

/// 3 for "^", 2 for "*" and "/", 1 for "+" and "-", 4 for all that needs no parentheses.
int tightness(const Node& node) {
  if (node.kind != Node::kOperator) return 4;
  return node.text == "^" ? 3 : node.text == "*" || node.text == "/" ? 2 : 1;
}

std::string inParentheses(const Node& node, bool needed) {
  return needed ? "(" + textOf(node) + ")" : textOf(node);
}

/// What plain arithmetic gives; not a number for a function that only the kernels know.
double plainFunction(const std::string& name, const std::vector<double>& a) {
  constexpr double kPi = 3.1415926;
  const double x = a[0];
  const auto asin = [](double v) {
    return v >= 1 ? kPi / 2 : v <= -1 ? -kPi / 2 : elementary::atan(v / std::sqrt(1 - v * v));
  };
  if (name == "ABS") return std::fabs(x);
  if (name == "SQR") return x < 0 ? kNotANumber : std::sqrt(x);
  if (name == "EXP") return elementary::exp(x);
  if (name == "LOG") return x <= 0 ? kNotANumber : elementary::log(x);
  if (name == "ASIN") return asin(x);
  if (name == "ACOS") return kPi / 2 - asin(x);
  if (name == "ATAN") return elementary::atan(x);
  if (name == "SIN") return elementary::sin(x);
  if (name == "COS") return elementary::cos(x);
  if (name == "TAN") return elementary::tan(x);
  if (name == "SGN") return x < 0 ? -1 : 1;
  if (name == "INT") return std::floor(x);
  double sum = x;
  double squares = x * x;
  for (std::size_t i = 1; i < a.size(); ++i) {
    sum += a[i];
    squares += a[i] * a[i];
    if (!std::isfinite(sum)) return kNotANumber;
  }
  const double n = static_cast<double>(a.size());
  if (name == "SUM") return sum;
  if (name == "AVG") return sum / n;
  const double s2 = squares - n * (sum / n) * (sum / n);
  return n == 1 || s2 < 0 ? kNotANumber : std::sqrt(s2 / (n - 1));
}

/// One instruction of the machine, whose statistical rows have tests of their own.
double kernelFunction(const FunctionName& f, const std::vector<double>& arguments, bool& failed) {
  std::vector<double> slots = arguments;
  std::string code{static_cast<char>(f.opcode), static_cast<char>(arguments.size())};
  for (std::size_t i = 0; i < slots.size(); ++i) code += static_cast<char>(i);
  const Evaluation found = evaluatedCode(code, slots);
  failed = failed || found.fault != Fault::kNone;
  return found.value;
}

double kept(double value, double first, bool& failed) {
  if (std::isfinite(value)) return value;
  failed = true;
  return first;
}

double plainOperator(const std::string& sign, double x, double y) {
  switch (sign[0]) {
    case '^':
      return elementary::pow(x, y);
    case '*':
      return x * y;
    case '/':
      return y == 0 ? kNotANumber : x / y;
    case '+':
      return x + y;
    default:
      return x - y;
  }
}

bool passes(const Node& node, std::string& digits) {
  for (const auto& part : node.parts) {
    if (!passes(*part, digits)) return false;
  }
  if (node.kind != Node::kFunction) return true;
  const auto number = static_cast<std::size_t>(functionNamed(node.text).opcode - 10);
  if (number >= digits.size()) return true;
  const std::string count = std::to_string(node.parts.size());
  digits = digits[number] == '0' ? count : digits.substr(number, 1);
  return digits == count;
}

}  // namespace

std::string textOf(const Node& node) {
  switch (node.kind) {
    case Node::kNumber:
    case Node::kVariable:
      return node.text;
    case Node::kNegation:
      return "(-" + inParentheses(*node.parts[0], tightness(*node.parts[0]) == 1) + ")";
    case Node::kOperator: {
      const int own = tightness(node);
      return inParentheses(*node.parts[0], tightness(*node.parts[0]) < own) + node.text +
             inParentheses(*node.parts[1], tightness(*node.parts[1]) <= own);
    }
    case Node::kFunction:
      break;
  }
  std::string list;
  for (const auto& part : node.parts) list += (list.empty() ? "" : ",") + textOf(*part);
  return node.text + "(" + list + ")";
}

double valueOf(const Node& node, const std::vector<double>& variables, bool& failed) {
  std::vector<double> parts;
  for (const auto& part : node.parts) parts.push_back(valueOf(*part, variables, failed));
  switch (node.kind) {
    case Node::kNumber:
      return node.number;
    case Node::kVariable:
      return variables[node.variable];
    case Node::kNegation:
      return 0 - parts[0];
    case Node::kOperator:
      return kept(plainOperator(node.text, parts[0], parts[1]), parts[0], failed);
    case Node::kFunction:
      break;
  }
  const FunctionName& f = functionNamed(node.text);
  const bool plain = f.opcode <= 20 || f.arity == 0 || f.opcode == 41;
  return plain ? kept(plainFunction(node.text, parts), parts[0], failed) : kernelFunction(f, parts, failed);
}

bool passesArityCheck(const Node& node) {
  std::string digits = "11111111111110003322332222331111";
  return passes(node, digits);
}

std::unique_ptr<Node> ExpressionMaker::make(int depth) {
  if (depth <= 0 || oneIn(6)) return leaf();
  if (oneIn(10)) {
    auto node = std::make_unique<Node>(Node{Node::kNegation, "-"});
    node->parts.push_back(make(depth - 1));
    return node;
  }
  if (oneIn(3)) return function(depth);
  auto node = std::make_unique<Node>(Node{Node::kOperator, std::string(1, "^**//++--"[below(9)])});
  node->parts.push_back(make(depth - 1));
  node->parts.push_back(make(depth - 1));
  return node;
}

std::unique_ptr<Node> ExpressionMaker::leaf() {
  if (oneIn(2)) {
    const Literal& literal = kLiterals[below(kLiterals.size())];
    return std::make_unique<Node>(Node{Node::kNumber, literal.text, literal.value});
  }
  const std::size_t variable = below(names_.size());
  return std::make_unique<Node>(Node{Node::kVariable, names_[variable], 0, variable});
}

std::unique_ptr<Node> ExpressionMaker::function(int depth) {
  const FunctionName& f = kFunctionNames[below(kFunctionNames.size())];
  auto node = std::make_unique<Node>(Node{Node::kFunction, f.name});
  const std::size_t count = f.arity > 0 ? static_cast<std::size_t>(f.arity) : 1 + below(4);
  for (std::size_t i = 0; i < count; ++i) node->parts.push_back(make(depth - 1));
  return node;
}

}  // namespace vk
