#!/usr/bin/env bash
# Runs the tests of the windows on screens of one and a half and of twice the density. Usage: checks/scales.sh [build]
set -euo pipefail
cd "$(dirname "$0")/.."
programs=${1:-build/test}/tests
export QT_QPA_PLATFORM=offscreen
for QT_SCALE_FACTOR in 1.5 2; do
  export QT_SCALE_FACTOR
  echo "The tests of the windows at scale $QT_SCALE_FACTOR"
  for program in test_qt_devices test_tabulo test_ui_qt; do
    "$programs/$program" --gtest_brief=1 --gtest_filter='-*WholePictures*:RandomWalk*:*RandomHalfTest.*'
  done
done
