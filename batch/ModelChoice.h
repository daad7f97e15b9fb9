#pragma once

#include <string>

#include "platform/Files.h"

namespace vk {

struct Session;

/// How a command line names the model function: in one of three ways.
struct ModelArguments {
  std::string function;      ///< formula in x
  std::string catalogue;     ///< "f,g": numbers of the outer and the inner function, from 1
  std::string functionFile;  ///< a function file ...
  int entry = 0;             ///< ... and its entry, from 1
};

/// Builds the catalogue and makes the model the session's current one. `names` is the comma list of the
/// parameters of a formula. What cannot be found or compiled raises `UsageError`.
void chooseModel(Session& session, Files& files, const ModelArguments& model, const std::string& names);

// The three ways, each with the same promise.

/// A formula in x, with its parameter names as a comma list.
void useFormula(Session& session, const std::string& formula, const std::string& names);
/// "f,g": the numbers of the outer and the inner function in the catalogue, from 1.
void useCatalogue(Session& session, const std::string& pair);
/// Entry `entry` (from 1) of a function file.
void useFunctionFile(Session& session, Files& files, const std::string& fileName, int entry);

}  // namespace vk
