#pragma once

#include "grafile/GraphicCommand.h"
#include "tests/commands/FigureFixture.h"

namespace vk {

/// Graphic files of a few commands.
class GraphicCommandsTest : public FigureFixture {
 protected:
  /// Points (1,2), (2,3), (4,1) with errors 0.5 in y, in a file named THREE.DAT.
  void addThreePoints() {
    files.content["THREE.DAT"] = lines({"t", "u", " 3", "1 2 .5", "2 3 .5", "4 1 .5"});
  }
  static Array<double> column(std::initializer_list<double> values) {
    Array<double> result(static_cast<int>(values.size()));
    int i = 0;
    for (const double value : values) result[++i] = value;
    return result;
  }
};

/// Ten minutes of a clock in seconds, and a voltage that hardly changes.
inline const std::string kNarrowScales = lines({"\\PARAMETRI(Xi=1700000000, Xf=1700000600, Yi=5, Yf=5.0004)",
                                                "\\XSCALA(5,18,Xi,Xf)", "\\YSCALA(4,13,Yi,Yf)"});

inline void mapNarrowly(GralCls& d) {
  d.GralXMap(5, 18, 1.7E9, 1.7E9 + 600);
  d.GralYMap(4, 13, 5, 5.0004);
}

}  // namespace vk
