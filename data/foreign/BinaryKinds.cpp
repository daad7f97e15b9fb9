#include "data/foreign/BinaryKinds.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/Text.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

using namespace std::string_view_literals;

constexpr const char* kSaveAsCsv = "aprirla con il foglio elettronico e salvarla come CSV";
constexpr const char* kUnpack = "estrarre prima il file di testo che contiene";
constexpr const char* kExport = "esportare la tabella come testo dal programma che l'ha scritto";

struct Kind {
  std::string_view start;   ///< of the file, behind blanks where it is text
  std::string_view inside;  ///< stands somewhere near the start or the end too; empty for anything
  const char* name;
  const char* wayOut;
};

// The first that fits names the file: archives come behind the spreadsheets that are packed in them.
constexpr std::array kKinds{
    Kind{"PK\3\4"sv, "opendocument.spreadsheet", "una cartella di lavoro .ods", kSaveAsCsv},
    Kind{"PK\3\4"sv, "xl/", "una cartella di lavoro .xlsx", kSaveAsCsv},
    Kind{"PK\3\4"sv, "", "un archivio ZIP", kUnpack},
    Kind{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, "", "una cartella di lavoro .xls", kSaveAsCsv},
    Kind{"\x09\x08"sv, "", "una cartella di lavoro .xls", kSaveAsCsv},
    Kind{"ID;P"sv, "", "una cartella di lavoro .slk", kSaveAsCsv},
    Kind{"\x1F\x8B"sv, "", "un file compresso (gzip)", kUnpack},
    Kind{"BZh"sv, "", "un file compresso (bzip2)", kUnpack},
    Kind{"\xFD\x37zXZ"sv, "", "un file compresso (xz)", kUnpack},
    Kind{"7z\xBC\xAF"sv, "", "un archivio 7z", kUnpack},
    Kind{"%PDF-"sv, "", "un documento PDF", kExport},
    Kind{"{\\rtf"sv, "", "un documento RTF", "salvarlo come solo testo"},
    Kind{"\x89HDF"sv, "", "un file HDF5", kExport},
    Kind{"CDF\1"sv, "", "un file NetCDF", kExport},
    Kind{"MATLAB 5.0 MAT-file"sv, "", "un file .mat", kExport},
    Kind{"\x93NUMPY"sv, "", "un file .npy", kExport},
    Kind{"TDSm"sv, "", "un file .tdms", kExport},
    Kind{"SQLite format 3"sv, "", "una base di dati", kExport},
    Kind{"\x89PNG"sv, "", "un'immagine", kExport},
    Kind{"\xFF\xD8\xFF"sv, "", "un'immagine", kExport},
    Kind{"GIF8"sv, "", "un'immagine", kExport},
    Kind{"\x7F"
         "ELF"sv,
         "", "un programma", "indicare un file di testo"},
    Kind{"<?xml"sv, "", "un file XML", kExport},
    Kind{"<!DOCTYPE html"sv, "", "una pagina HTML", kSaveAsCsv},
    Kind{"<html"sv, "", "una pagina HTML", kSaveAsCsv},
    Kind{"<table"sv, "", "una pagina HTML", kSaveAsCsv},
    Kind{"{\""sv, "", "un file JSON", kExport},
    Kind{"[{"sv, "", "un file JSON", kExport},
    Kind{"[["sv, "", "un file JSON", kExport},
};

/// What is searched for the names of the parts of an archive.
constexpr std::size_t kSearched = 1 << 16;

bool isOf(const Kind& kind, std::string_view bytes) {
  if (!equalIgnoringCase(bytes.substr(0, kind.start.size()), kind.start)) return false;
  if (kind.inside.empty()) return true;
  const std::string_view tail = bytes.size() > kSearched ? bytes.substr(bytes.size() - kSearched) : bytes;
  return bytes.substr(0, kSearched).find(kind.inside) != std::string_view::npos ||
         tail.find(kind.inside) != std::string_view::npos;
}

const Kind* kindOf(std::string_view bytes) {
  const std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  bytes.remove_prefix(std::min(bytes.find_first_not_of(" \r\n"), bytes.size()));
  const auto* kind = std::ranges::find_if(kKinds, [&](const Kind& k) { return isOf(k, bytes); });
  return kind == kKinds.end() ? nullptr : kind;
}

}  // namespace

std::string_view nameOfOtherKind(std::string_view bytes) {
  const Kind* kind = kindOf(bytes);
  return kind == nullptr ? "" : kind->name;
}

void refuseOtherKinds(std::string_view bytes) {
  if (const Kind* kind = kindOf(bytes))
    throw Refusal(std::string("sembra ") + kind->name + ": " + kind->wayOut);
}

}  // namespace vk
