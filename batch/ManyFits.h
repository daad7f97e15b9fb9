#pragma once

namespace vk {

struct FitArguments;

/// Fits the same model to each of the files, every one in a process of its own, `jobs` at a time, and prints the fits
/// in the order of the files: as screens behind their names, or as lines. A file that cannot be read, a fit that fails
/// and a process that breaks down are told, also in their line, and stop no other one. Gives 0, or 1 when one of them
/// failed. What is wrong with all of them raises `UsageError`.
int runManyFits(const FitArguments& arguments);

}  // namespace vk
