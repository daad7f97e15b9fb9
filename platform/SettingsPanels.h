#pragma once

namespace vk {

/// The two panels of the main window, for the working folders and for the figures. While one is open the menus are
/// off, and only its buttons end it.
class SettingsPanels {
 public:
  virtual ~SettingsPanels() = default;

  /// Open a panel.
  virtual void MenSerImpDir() = 0;
  virtual void MenSerImpGra() = 0;

  virtual bool isOpen() const = 0;
  /// Closes the panel that is open, if one is; nothing of it is taken.
  virtual void shut() = 0;
};

}  // namespace vk
