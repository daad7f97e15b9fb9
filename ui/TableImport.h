/// Form FrmImp: what its window shows, and what it lets be chosen.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "data/foreign/ForeignFile.h"
#include "data/foreign/TableLines.h"

namespace vk {

inline constexpr const char* kImportCaption = "VOR_KEL: Importazione Tabella";
inline constexpr const char* kImportButton = "&Salva e Leggi";

/// The logic of the form `FrmImp`: a table of another program, what was found out about it, and what the user chooses
/// instead. All texts are UTF-8, unless said otherwise.
class TableImport {
 public:
  /// The fields that are lists, in the order of the form.
  enum Field : int { kEncoding, kSeparator, kDecimal, kX, kY, kDx, kDy, kThinning };
  static constexpr int kFields = 8;

  /// A file to begin with: everything is found out.
  void open(std::string bytes);

  static const char* caption(Field field);
  /// The entries; but for the last field the first one stands for what is found out, and names it.
  std::vector<std::string> entries(Field field) const;
  /// The chosen entry, from 0.
  int chosen(Field field) const;
  void choose(Field field, int entry);

  /// How many lines stand above the points; nothing to let it be found out.
  void setHeaderLines(std::optional<int> lines);
  int headerLinesFound() const { return reading_.firstLine > 0 ? reading_.firstLine - 1 : 0; }
  /// The error of y or the percentage, where the user gives one.
  void setErrorValue(const std::string& text);
  bool takesErrorValue() const;
  /// How many points become one.
  void setThinning(int points);
  bool takesThinning() const { return chosen_[kThinning] > 0; }

  std::vector<TableLine> lines() const;
  /// Head of a column of the table, from 0: its number and its role.
  std::string columnHead(std::size_t column) const;
  bool usesColumn(std::size_t column) const;

  /// What was taken, or why nothing can be, in one line.
  const std::string& message() const { return message_; }
  /// True where there is a data file to be saved.
  bool isUnderstood() const { return understood_; }
  /// The first lines of the data file, and all of its bytes; empty where there is none.
  std::string firstPoints() const;
  std::string text() const;

 private:
  void readAnew();
  ForeignOptions plainOptions() const;
  std::optional<Roles> roles(const TableShape& shape) const;
  std::optional<ErrorRule> errorRule() const;
  std::string found(Field field) const;
  std::string columnName(std::size_t column) const;
  std::vector<std::string> choices(Field field) const;
  bool isColumn(Field field) const { return field >= kX && field <= kDy; }
  int columnCount() const { return static_cast<int>(reading_.shape.cells); }

  std::string bytes_;
  std::array<int, kFields>
      chosen_{};  ///< 0 for what is found out; of a column below 0 what stands behind the columns
  std::optional<int> headerLines_;
  std::optional<double> errorValue_;
  int thinning_ = 2;

  ForeignOptions options_;
  ForeignReading reading_;
  std::string message_;
  bool understood_ = false;
};

}  // namespace vk
