#!/usr/bin/env bash
# tidy.sh CLANG_TIDY CONFIG, in the folder of a unity build: looks at every batch that has been compiled anew since it
# last passed. Ends with 0 only when all pass.
set -euo pipefail
export tidy=$1 config=$2

look() {
  local batch=$1 stamp="$1.tidy" object="$1.o"
  if [ "$stamp" -nt "$object" ] && [ "$stamp" -nt "$config" ]; then return; fi
  echo "Tidying ${batch#src/}"
  "$tidy" -p . --quiet --warnings-as-errors='*' "$batch" 2> >(grep -v 'warnings generated' >&2)
  touch "$stamp"
}
export -f look

mapfile -t batches < <(sed -n "s|^  \"file\": \"$PWD/\(src/.*/Unity/unity_.*\)\",*$|\1|p" compile_commands.json)
[ ${#batches[@]} -gt 0 ] || { echo "tidy: nothing is built here" >&2; exit 1; }
printf '%s\0' "${batches[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -euo pipefail -c 'look "$1"' _
