#include "grafile/FigureStyle.h"

#include <array>

namespace vk {
namespace {

const std::array kSets{
    SetLook{kBlack, 5, 1},
    SetLook{Colour::fromRgb(0x0072B2), 8, 1},
    SetLook{Colour::fromRgb(0xD55E00), 2, 2},
    SetLook{Colour::fromRgb(0x009E73), 9, 4},
    SetLook{Colour::fromRgb(0xCC79A7), 3, 3},
    SetLook{Colour::fromRgb(0x56B4E9), 10, 5},
    SetLook{Colour::fromRgb(0xE69F00), 4, 2},
};

}  // namespace

SetLook lookOfSet(int set) {
  return kSets.at(static_cast<std::size_t>(set) % kSets.size());
}

}  // namespace vk
