#pragma once

#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// The three columns of a data file that is known to be good, read as directly as the standard library can.
struct Columns {
  std::array<std::vector<double>, 3> column;
};

inline std::string bytesOf(const char* fileName) {
  std::string bytes;
  std::FILE* file = std::fopen(fileName, "rb");
  if (file == nullptr) return bytes;
  std::array<char, 1 << 16> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file)) {
    bytes.append(buffer.data(), count);
  }
  std::fclose(file);
  return bytes;
}

/// Comments, two titles and the count are passed over.
inline Columns readColumns(const char* fileName) {
  const std::string bytes = bytesOf(fileName);
  std::string_view rest = bytes;
  for (int significant = 0; significant < 3;) {
    significant += rest.starts_with('%') ? 0 : 1;
    rest.remove_prefix(rest.find('\n') + 1);
  }
  Columns columns;
  const char* const end = rest.data() + rest.size();
  std::size_t k = 0;
  for (const char* at = rest.data(); at < end;) {
    double value = 0;
    const auto [behind, error] = std::from_chars(at, end, value);
    if (error == std::errc()) columns.column[k++ % 3].push_back(value);
    at = error == std::errc() ? behind : at + 1;
  }
  return columns;
}
