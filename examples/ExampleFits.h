#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "session/Session.h"

namespace vk {

/// A fit of a sample of this folder that works.
struct ExampleFit {
  std::string name;           ///< of the data file, without ".dat"
  int outer, inner;           ///< the model in the catalogue; inner 0 for the first entry of `library`
  std::string library;        ///< a function file
  std::vector<double> start;  ///< starting values; all parameters are free
};

const std::vector<ExampleFit>& exampleFits();

/// Reads the data and makes the model and its starting values the current ones. The files are looked for in
/// the current folder.
void prepareExample(Session& session, Files& files, const ExampleFit& example);

}  // namespace vk
