#pragma once

namespace vk {

/// The entries of the menus, by their control names, in the order of the menus. The entries of the recent lists are
/// numbered from 0.
enum class Control : unsigned char {
  MenDat,
  MenDatLet,
  MenDatMod,
  MenDatSav,
  MenDatTra,
  MenDatSim,
  MenDatOld0,
  MenDatOld1,
  MenDatOld2,
  MenDatOld3,

  MenFun,
  MenFunSel,
  MenFunVar,
  MenFunLet,
  MenFunMod,
  MenFunCar,
  MenFunOld0,
  MenFunOld1,
  MenFunOld2,
  MenFunOld3,

  MenGra,
  MenGraDat,
  MenGraDatVis,
  MenGraDatGra,
  MenGraFun,
  MenGraFunVis,
  MenGraFunGra,
  MenGraDif,
  MenGraDifVis,
  MenGraDifGra,
  MenGraDifSav,
  MenGraLetFil,
  MenGraModFil,
  MenGraVisFil,
  MenGraPriFil,
  MenGraOld0,
  MenGraOld1,
  MenGraOld2,
  MenGraOld3,

  MenAda,
  MenAdaPar,
  MenAdaAda,

  MenSer,
  MenSerCal,
  MenSerPro,
  MenSerMod,
  MenSerOpz,
  MenSerImpDir,
  MenSerImpGra,
  MenSerErr,
};

}  // namespace vk
