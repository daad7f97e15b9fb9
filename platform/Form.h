#pragma once

namespace vk {

/// The forms of the program, where one of them has to be named as the owner of another.
enum class Form {
  kMain,        ///< `Vor_Kel`
  kInput,       ///< `InpFrm`
  kOutput,      ///< `FrmOut`
  kEditor,      ///< `FrmEdi`
  kSelect,      ///< `Sel_Fun`
  kLoad,        ///< `Loa_Fun`
  kActivePlot,  ///< the plot window in front
};

}  // namespace vk
