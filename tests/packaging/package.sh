#!/usr/bin/env bash
# Makes the Debian package of the build and has lintian judge it.
# Usage: package.sh BUILD
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cpack --config "$1/CPackConfig.cmake" -B "$scratch" >"$scratch/cpack.log" 2>&1 || { cat "$scratch/cpack.log" >&2; exit 1; }
package=$(echo "$scratch"/sanovia_*.deb)

failed=0
expect() { # FIELD WORD...: the control field names each of them
  local field=$1 word
  shift
  for word; do
    dpkg-deb -f "$package" "$field" | grep -qw -- "$word" || { echo "$field lacks $word" >&2; failed=1; }
  done
}
# Libraries are found by what the programs link, the rest is what Qt loads by itself.
expect Depends libc6 libqt6widgets6 libsqlite3-0 libplist3 qt6-qpa-plugins qt6-translations-l10n libqt6svg6 fonts-dejavu-core
expect Recommends fonts-noto-cjk

# The package was never in an archive, so that its first entry closes no bug there.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "$package" >&2 || failed=1
exit $failed
