# Sourced by ./run and ./check: installs what is missing and builds a preset. Both are quick when nothing is to do.

# What the program is built from and needs to run, as Debian 12 names it.
BUILD_PACKAGES=(build-essential cmake ninja-build ccache pkg-config git
  qt6-base-dev qt6-svg-dev qt6-pdf-dev qt6-qpa-plugins qt6-translations-l10n libgl-dev libsqlite3-dev libplist-dev
  libqpdf-dev libcups2-dev
  fonts-dejavu-core fonts-noto-cjk)

# What the checks need beside that.
CHECK_PACKAGES=(clang-format clang-tidy libgtest-dev sqlite3 qpdf poppler-utils cups-daemon
  xvfb xauth dbus at-spi2-core python3 python3-pyatspi
  desktop-file-utils appstream groff-base dpkg-dev lintian)

BENCHMARK_PACKAGES=(libbenchmark-dev)

# need PACKAGE...: installs those that are not there.
need() {
  command -v dpkg-query >/dev/null || return 0 # not Debian: CMake says what it misses
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local root=()
  [ "$(id -u)" -eq 0 ] || root=(sudo)
  "${root[@]}" apt-get update -q
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# build PRESET [CMAKE ARGUMENT...]: configures the preset once and builds it.
build() {
  local preset=$1
  shift
  if [ $# -gt 0 ] || [ ! -f "build/$preset/build.ninja" ]; then
    cmake --preset "$preset" "$@" >/dev/null
  fi
  cmake --build --preset "$preset"
}
