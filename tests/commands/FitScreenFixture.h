#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "base/Text.h"
#include "commands/FitScreen.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "platform/GridOutput.h"
#include "tests/numeric/SampleValues.h"

namespace vk {

/// A fit of the parameters `names`, the first `N` of them free, that is driven by hand.
struct DrivenScreen {
  std::string function;
  ParameterSet par;
  GridOutput output;
  ScriptedDialogs dialogs;
  StillClock clock;
  int N;
  Array<double> X;

  DrivenScreen(const std::string& title, const std::vector<std::string>& names, int free)
      : function(title), N(free) {
    const int count = static_cast<int>(names.size());
    par.ParNames = "    y    x";
    par.ParCount = count;
    par.ParNameWidth = 1;
    par.ParValues.dim(count);
    par.FreeIndex.dim(count + 1);
    X.dim(free);
    for (int i = 1; i <= count; ++i) {
      const std::string& name = names[static_cast<std::size_t>(i) - 1];
      par.ParNames += repeat(kNameSlot - length(name), ' ') + name;
      par.ParNameWidth = std::max<int>(par.ParNameWidth, length(name));
      par.ParValues[i] = i;
      par.FreeIndex[i <= free ? i : count + free + 1 - i] = i;
      if (i <= free) X[i] = i;
    }
  }

  FitScreen screen{function, par, {output, dialogs, clock}};

  void start(int M = 20) {
    screen.started({M, N, X});
    clock.now += 7;
  }
  FitProgress progress() const { return {12, 18, 1.2345, 25.5, X}; }
  const CharGrid& grid() const { return output.grid(); }
  /// What stands in a row from a column on.
  std::string at(int row, int column, int count) const { return mid(grid().rowText(row), column, count); }
  int columnOf(int row, const std::string& text) const { return position(grid().rowText(row), text); }
};

inline std::vector<std::string> parameters(int count, int nameLength = 1) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i)
    names.push_back(std::string(static_cast<std::size_t>(nameLength), static_cast<char>('a' + i)));
  return names;
}

}  // namespace vk
