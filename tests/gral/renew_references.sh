#!/usr/bin/env bash
# Writes the reference drawings of the gallery anew. Look at the difference before it is committed, in a
# commit of its own that says why. Usage: tests/gral/renew_references.sh [BUILD FOLDER]
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build/test}
cmake --build "$build" --target test_gral
VOR_RENEW_REFERENCES=1 "$build/tests/test_gral" --gtest_filter='Gallery.*' > /dev/null || true
git --no-pager diff --stat -- tests/gral/references
