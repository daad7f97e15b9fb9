#pragma once

#include <optional>
#include <span>

#include "data/foreign/Cells.h"
#include "data/foreign/Lines.h"

namespace vk {

/// What is known of the dialect beforehand.
struct KnownDialect {
  std::optional<char> separator, decimal;
};

/// The dialect in which most cells are numbers. Lines with fewer than two numbers everywhere, and lines that give
/// different numbers in two dialects that fit as well, are a `Refusal`; the second one names both readings.
Dialect guessDialect(std::span<const ForeignLine> lines, const KnownDialect& known);

}  // namespace vk
