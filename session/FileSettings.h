#pragma once

#include <array>
#include <string>

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// Kinds of file, for the picker and the editor.
enum FileKindCode : int { kDataKind = 1, kFunctionKind = 2, kGraphicKind = 3 };

/// A list of the files read last, newest first.
struct RecentList {
  static constexpr int kCapacity = 4;

  Array<std::string> files{kCapacity};  ///< 1..4, as they are shown
  Array<std::string> paths{kCapacity};  ///< 1..4, as they were opened
  Int16 RecentMax = kCapacity;
  Int16 RecentCount;
  Int16 pick;  ///< entry that the next reading command takes, from 1; 0 to ask
};

/// Where files are looked for, and the files read last.
struct FileSettings {
  std::string DataDir, FunDir, GraDir;
  std::string DataExt = "DAT", FunExt = "FCN", GraExt = "GRA";
  std::array<std::string, 4> WorkDir;  ///< rows 0 all, 1 data, 2 functions, 3 graphics
  Int16 WorkRow;
  RecentList RecentData, RecentFun, RecentGra;
  std::string handed;  ///< file that the next file dialog answers with, instead of being shown; empty to ask
};

}  // namespace vk
