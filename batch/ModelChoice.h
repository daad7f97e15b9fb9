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
  bool trace = false;        ///< tell also what the compiler reports
};

/// Builds the catalogue and makes the model the session's current one. `names` is the comma list of the
/// parameters of a formula. What cannot be found or compiled raises `UsageError`.
void chooseModel(Session& session, Files& files, const ModelArguments& model, const std::string& names);

}  // namespace vk
