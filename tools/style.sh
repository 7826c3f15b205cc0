#!/usr/bin/env bash
# Checks the formatting of all sources and analyses those of the core without its
# slow part, the search along paths of execution; with --all everything in src/ by
# everything in .clang-tidy, which takes most of an hour. Prints "N passed, N failed"
# in files. Uses the compile commands of the dev preset.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh style >&2

passed=0
failed=0
judge() {
  if "$@" >&2; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

mapfile -t sources < <(git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 'fuzz/*.h')
for file in "${sources[@]}"; do
  judge clang-format --dry-run -Werror "$file"
done
log=$(mktemp)
trap 'rm -f "$log"' EXIT
skipped='_windows|windows_|/ui/'
checks=-clang-analyzer-*
size=8
if [ "${1:-}" = --all ]; then
  skipped='_windows|windows_'
  checks=
  size=1
fi
mapfile -t units < <(git ls-files 'src/*.cpp' | grep -vE "$skipped")
# Most of the time goes into the library's headers, so neighbours are read as one unit
# first. Where that does not pass (a fault, or two helpers of one name) they are
# analysed one by one, which decides.
analyse() {
  local checks=$1 together status=0
  shift
  together=$(mktemp --suffix=.cpp)
  cat "$@" >"$together"
  { [ $# -gt 1 ] && clang-tidy --quiet --config-file=.clang-tidy --checks="$checks" "$together" -- \
    -std=c++20 -Isrc '-DPV_VERSION="0"' >/dev/null 2>&1; } ||
    clang-tidy --quiet -p build/dev --checks="$checks" --extra-arg=-Wno-unknown-warning-option \
      "$@" || status=1
  rm -f "$together"
  return $status
}
export -f analyse
if printf '%s\0' "${units[@]}" |
  xargs -0 -P "$(nproc)" -n "$size" bash -c 'analyse "$@"' analyse "$checks" >"$log" 2>/dev/null; then
  passed=$((passed + ${#units[@]}))
else
  grep -E 'error|warning' "$log" | sort -u >&2
  faulty=$(grep -E ' error: ' "$log" | cut -d: -f1 | sort -u | wc -l)
  failed=$((failed + (faulty > 0 ? faulty : 1)))
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
