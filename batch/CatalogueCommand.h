#pragma once

#include <string>
#include <vector>

namespace vk {

/// `catalogue`: prints the functions f and g of which f[g(x)] is composed, with their numbers, formulas and parameters,
/// as a table or as a JSON object. Gives 0.
int runCatalogue(bool json);

/// What `--catalogue` may say: "f,g" of all functions.
std::vector<std::string> cataloguePairs();

}  // namespace vk
