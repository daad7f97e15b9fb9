#!/usr/bin/env bash
# Fails unless each source has its tests where they are found by its name, or a line of tests/table.txt that tells
# where they are; and when a line of the table names what there is not, or a source that needs none.
# The main function of a program with windows only starts what is tested.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t libraries < <(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt)
find "${libraries[@]}" docs examples -name '*.cpp' | LC_ALL=C sort | awk '
function complain(text) { print text; failed = 1 }
function without(text, part) { sub(part, "", text); return text }
function program(source) {  # the folder of tests of the source
  if (source ~ /^ui\/qt\/devices\//) return "qt_devices"
  return source ~ /^ui\/qt\// ? "ui_qt" : without(source, "/.*")
}
function has(file, test,  text, found) {  # whether the file has a test of this name
  while ((getline text < file) > 0) if (text ~ "^TEST(_F|_P)?[(][A-Za-z0-9_]+, " test "[)]") found = 1
  close(file)
  return found
}
BEGIN {
  while (("find tests -name \"*Test.cpp\"" | getline file) > 0) {
    split(file, part, "/")
    named[part[2] " " without(without(file, ".*/"), "Test.cpp$")] = 1
  }
  while ((getline < "tests/table.txt") > 0) {
    if (/^#/) continue
    if ($1 in line) complain("tests/table.txt: two lines of " $1)
    line[$1] = $2 " " $3
  }
}
{
  source = without($0, "[.]cpp$")
  exists[source] = 1
  if (source ~ /^(ui|tabulo)\/.*\/main$/) next
  found = (program(source) " " without(source, ".*/")) in named
  if (found && source in line) complain("tests/table.txt: " source " is found by its name")
  if (!found && !(source in line)) complain(source ".cpp: no tests of this name, and no line of tests/table.txt")
}
END {
  for (source in line) {
    if (!(source in exists)) complain("tests/table.txt: there is no " source ".cpp")
    split(line[source], place, " ")
    if (!has("tests/" place[1] ".cpp", place[2])) complain("tests/table.txt: tests/" place[1] ".cpp has no " place[2])
  }
  exit failed
}'
