#!/usr/bin/env bash
# Makes the Debian package vor-kel_VERSION_ARCHITECTURE.deb. Usage: packaging/deb.sh [FOLDER for it, build by default]
set -euo pipefail
folder=${1:+$(realpath -m "$1")}
cd "$(dirname "$0")/.."
packaging/install.sh package
umask 022 # folders are installed as they are made: those of the package are for all

# The same sources give the same bytes.
if [ -z "${SOURCE_DATE_EPOCH:-}" ] && git rev-parse --git-dir &> /dev/null; then
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
  export SOURCE_DATE_EPOCH
fi
# Debian's flags against attacks; how much is optimised is the preset's business.
flags() {
  DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP='-g -O2' dpkg-buildflags --get "$1"
}
cmake --preset package -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 \
  -DCMAKE_CXX_FLAGS="$(flags CPPFLAGS) $(flags CXXFLAGS)" \
  -DCMAKE_EXE_LINKER_FLAGS="$(flags LDFLAGS)" -DCMAKE_MODULE_LINKER_FLAGS="$(flags LDFLAGS)"
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B "${folder:-build}"
