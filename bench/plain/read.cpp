// Reads a data file without any check and tells its points.

#include "bench/plain/Columns.h"

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const Columns data = readColumns(argv[1]);
  std::printf("%zu\n", data.column[0].size());
  return data.column[2].empty() ? 1 : 0;
}
