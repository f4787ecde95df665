#!/usr/bin/env bash
# Looks into the programs of a release build, and into those of the package made of it, for what guards them.
# Usage: hardening.sh BUILD
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cpack --config "$1/CPackConfig.cmake" -B "$scratch" >"$scratch/cpack.log" 2>&1 || { cat "$scratch/cpack.log" >&2; exit 1; }
dpkg-deb -x "$scratch"/sanovia_*.deb "$scratch/package"

failed=0
expect() { # FILE WORDS PATTERN: what readelf says of the file has a line like that
  grep -qE -- "$3" "$scratch/said" || { echo "$1: no $2" >&2; failed=1; }
}
for program in "$1"/bin/sanovia "$1"/bin/sanovia-cli "$scratch"/package/usr/bin/sanovia "$scratch"/package/usr/bin/sanovia-cli; do
  readelf -W --file-header --program-headers --dynamic --dyn-syms "$program" >"$scratch/said"
  expect "$program" "position-independent code" 'Type: +DYN'
  expect "$program" "position-independent program" 'FLAGS_1.* PIE'
  expect "$program" "read-only relocations" 'GNU_RELRO'
  expect "$program" "immediate binding" 'FLAGS_1.* NOW'
  expect "$program" "stack protector" 'UND __stack_chk_fail'
  expect "$program" "checked containers" 'UND _ZSt21__glibcxx_assert_fail'
done
# Which calls of the C library are checked depends on which there are, so that this is read where it was built.
unchecked=$(grep '"command"' "$1/compile_commands.json" | grep '/src/' | grep -vcE -- '-O2 .*-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3') || true
[ "$unchecked" = 0 ] || { echo "$unchecked sources are built without checked calls" >&2; failed=1; }
[ $failed = 0 ] && echo "the programs and those of the package are hardened"
exit $failed
