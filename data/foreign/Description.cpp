#include <string>

#include "base/Text.h"
#include "data/foreign/ForeignFile.h"

namespace vk {
namespace {

/// "1 riga", "2 righe".
std::string counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string separatorText(const Dialect& dialect) {
  if (dialect.separator == '\t') return "separatore tabulazione";
  if (dialect.separator == ' ') return "separatore spazio";
  return std::string("separatore '") + dialect.separator + "'";
}

std::string columnsText(const Roles& roles) {
  const std::vector<std::size_t> columns = roles.columns();
  std::string text = "colonne";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    text += i == 0 ? " " : i + 1 < columns.size() ? ", " : " e ";
    text += std::to_string(columns[i] + 1);
  }
  return text;
}

std::string pointsText(const DataSet& data) {
  return counted(static_cast<std::size_t>(static_cast<int>(data.NumPnt)), "punto", "punti");
}

/// The first thing that a data file has otherwise; empty where only single lines are wrong.
std::string differenceFromDataFiles(const ForeignReading& reading) {
  const std::string comma =
      reading.hasDecimals && reading.dialect.decimal == ',' ? " con virgola decimale" : "";
  const char separator = reading.dialect.separator;
  const Encoding encoding = reading.encoding;
  if (encoding == Encoding::kUtf16Le || encoding == Encoding::kUtf16Be) {
    return "sembra un testo " + std::string(encodingName(encoding));
  }
  if (separator == ',' || separator == ';') return "sembra un file CSV" + comma;
  if (separator == '|') return "sembra una tabella con separatore '|'" + comma;
  if (!comma.empty()) return "sembra una tabella" + comma;
  if (reading.errorsMissing) return "sembra una tabella di due colonne, senza errori";
  if (!reading.counted || reading.header.axes.empty()) {
    return "sembra una tabella senza le tre linee iniziali (due titoli e il numero dei punti)";
  }
  if (reading.mixedLineEnds) return "le linee non finiscono tutte allo stesso modo";
  if (!reading.leftOut.empty()) return {};
  return reading.roles.dx == Roles::kNone ? "la terza linea annuncia errori di x, che mancano"
                                          : "la terza linea non annuncia gli errori di x";
}

}  // namespace

std::string descriptionOf(const ForeignReading& reading) {
  if (reading.isDataFile) return "file dati, " + pointsText(reading.data);
  std::string text(encodingName(reading.encoding));
  text += ", " + separatorText(reading.dialect);
  if (reading.hasDecimals) text += reading.dialect.decimal == ',' ? ", virgola decimale" : ", punto decimale";
  if (const int lines = reading.header.lines; lines > 0) {
    text += ", " + counted(static_cast<std::size_t>(lines), "riga di intestazione", "righe di intestazione");
  }
  text += ", " + columnsText(reading.roles) + ", " + pointsText(reading.data);
  if (!reading.leftOut.empty())
    text += ", " + counted(reading.leftOut.size(), "riga tralasciata", "righe tralasciate");
  if (reading.errorsMissing) text += "; errori assenti: dy = 1";
  return text;
}

LikelyCause likelyCause(const ForeignReading& reading) {
  // The list of errors tells too few points itself.
  if (reading.isDataFile || reading.refusal == kTooFewPoints) return {};
  // A refusal that has an option for it ends with one.
  if (!reading.refusal.empty()) return {reading.refusal, reading.refusal.find("--") != std::string::npos};
  const std::string text = differenceFromDataFiles(reading);
  return {text, !text.empty()};
}

}  // namespace vk
