/// Unit Vor_Kel: the panels of the main window.
#pragma once

#include "base/Int16.h"
#include "platform/Dialogs.h"
#include "platform/MainWindow.h"
#include "platform/SettingsPanels.h"
#include "ui/DirectoryPanel.h"
#include "ui/GraphicPanel.h"

namespace vk {

struct Session;

enum class Panel { kDirectory, kGraphics };

/// The two frames inside the main window, `FraDir` and `FraGra`.
class PanelView {
 public:
  virtual ~PanelView() = default;
  /// Places the frame, shows it and gives it the focus.
  virtual void showPanel(Panel panel) = 0;
  virtual void hidePanel(Panel panel) = 0;
  /// Shows anew what stands in the engine of the panel.
  virtual void syncPanel(Panel panel) = 0;
};

/// The busy states of the main window under a panel.
class MainPanels : public SettingsPanels {
 public:
  MainPanels(Session& session, Files& files, MainWindow& window);

  void setView(PanelView& view) { view_ = &view; }

  void MenSerImpDir() override;
  void MenSerImpGra() override;

  /// Buttons of the panels: 0 "&Rinuncia", 1 "&Esegui" or "&Accetta".
  void CmdWrkDir(int index);
  void CmdImpGra(int index);

  void shut() override;

  DirectoryPanel& directory() { return directory_; }
  GraphicPanel& graphics() { return graphics_; }
  bool isOpen() const override { return !PanelClosed; }

  Flag PanelClosed = kTrue;

 private:
  void open(Panel panel, const WindowText& caption);
  void close();

  DirectoryPanel directory_;
  GraphicPanel graphics_;
  Session& session_;
  MainWindow& window_;
  PanelView* view_ = nullptr;
  Panel present_ = Panel::kDirectory;  ///< the one that is open, or was last
};

}  // namespace vk
