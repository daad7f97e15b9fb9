#pragma once

#include <deque>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/MainWindow.h"
#include "platform/Printer.h"
#include "platform/Process.h"
#include "platform/Random.h"
#include "platform/Sound.h"

namespace vk {

/// A clock that stands still until the test moves it.
class StillClock : public Clock {
 public:
  float now = 0;
  float timer() override { return now; }
};

/// Random numbers written down beforehand; asking for more than there are fails the test, and so does a
/// number left over.
class ScriptedRandom : public Random {
 public:
  ScriptedRandom(std::initializer_list<float> numbers) : numbers_(numbers) {}
  ~ScriptedRandom() override;
  float next() override;
  void giveBack(std::span<const float> numbers) override;
  void seed(float number) override { seeds.push_back(number); }

  std::vector<float> seeds;

 private:
  std::deque<float> numbers_;
};

/// The same few random numbers again and again.
class CyclingRandom : public Random {
 public:
  explicit CyclingRandom(std::vector<float> numbers) : numbers_(std::move(numbers)) {}
  float next() override { return numbers_[static_cast<std::size_t>(drawn++) % numbers_.size()]; }
  void giveBack(std::span<const float> numbers) override { drawn -= static_cast<int>(numbers.size()); }
  void seed(float number) override { seeds.push_back(number); }

  int drawn = 0;
  std::vector<float> seeds;

 private:
  std::vector<float> numbers_;
};

/// Keeps the tones that were asked for.
class RecordingSound : public Sound {
 public:
  struct Tone {
    int hertz, milliseconds;
    bool operator==(const Tone&) const = default;
  };
  std::vector<Tone> tones;
  int beeps = 0;
  std::function<void()> atTone = [] {};  ///< runs at each tone
  void tone(int hertz, int milliseconds) override {
    tones.push_back({hertz, milliseconds});
    atTone();
  }
  void beep() override { ++beeps; }
};

/// Keeps the programs that were started.
class RecordingProcess : public Process {
 public:
  std::vector<std::string> started;
  bool works = true;
  bool start(const std::string& program) override {
    started.push_back(program);
    return works;
  }
  std::vector<std::string> shown;  ///< files, with "#" before their headings
  bool show(const std::string& path, const std::string& heading) override {
    shown.push_back(path + (heading.empty() ? "" : "#") + heading);
    return works;
  }
};

/// A printer that writes down what it is asked for. The page is 11000 by 16000 twips, turned by landscape.
class RecordingPrinter : public Printer {
 public:
  Int16 orientation = kPortrait;
  std::vector<std::string> calls;  ///< "landscape", "portrait", "text", "grid", "end" in order
  std::string text, face;
  double points = 0;
  CharGrid grid;
  GridPlace place;
  int error = 0;  ///< run-time error that the end of the document raises

  bool present() override { return true; }
  Int16 Orientation() override { return orientation; }
  void setOrientation(Int16 wanted) override;
  Twips Width() override { return Twips(orientation == kLandscape ? 16000 : 11000); }
  Twips Height() override { return Twips(orientation == kLandscape ? 11000 : 16000); }
  void printText(const PlainText& printed, const std::string& fontFace, double size) override;
  void printGrid(const CharGrid& printed, const GridPlace& where) override;
  void EndDoc() override;
};

/// A clipboard that can be looked at.
class RecordingClipboard : public Clipboard {
 public:
  std::string held;
  bool complete = true;  ///< whether all characters of what is held have a place in the code page
  std::string whole;     ///< all of what is held, in UTF-8
  CharGrid grid;
  std::vector<std::string> calls;  ///< "clear", "text", "grid" in order

  void clear() override { calls.emplace_back("clear"), held.clear(), grid = CharGrid(); }
  void setText(const PlainText& text) override { calls.emplace_back("text"), held = text.bytes(); }
  void setGrid(const CharGrid& shown) override { calls.emplace_back("grid"), grid = shown; }
  ClipboardText text() override { return {Cp437Text(held), complete, {whole, true}}; }
};

/// A main window that remembers its state instead of showing it.
class RecordingMainWindow : public MainWindow {
 public:
  std::map<Control, bool> menuEnabled, menuVisible, menuChecked;
  std::map<Control, std::string> menuCaption;
  std::map<int, std::string> panels;
  std::string caption;
  std::vector<Form> holders;  ///< who holds it shut
  bool enabled = true;
  int background = 0;
  std::vector<std::string> calls;  ///< "shut", "release", "refresh", "front" in order

  void setMenuEnabled(Control control, bool on) override { menuEnabled[control] = on; }
  void setMenuVisible(Control control, bool on) override { menuVisible[control] = on; }
  void setMenuChecked(Control control, bool on) override { menuChecked[control] = on; }
  void setMenuCaption(Control control, const WindowText& text) override {
    menuCaption[control] = text.bytes();
  }
  void setPanel(int panel, const WindowText& text) override { panels[panel] = text.bytes(); }
  void setCaption(const WindowText& text) override { caption = text.bytes(); }
  void shut(Form holder) override;
  /// Ends the program when the holder has not shut the window.
  void release(Form holder) override;
  void refresh() override { calls.emplace_back("refresh"); }
  void toFront() override { calls.emplace_back("front"); }
  void setBackground(Int16 picture) override { background = picture; }
};

}  // namespace vk
