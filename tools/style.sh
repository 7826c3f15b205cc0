#!/usr/bin/env bash
# Checks the formatting of all sources and analyses those of the core, or all of
# src/ with --all (which takes much longer); prints "N passed, N failed" in files.
# Uses the compile commands of the dev preset.
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
skipped='_windows|/ui/'
[ "${1:-}" = --all ] && skipped=_windows
mapfile -t units < <(git ls-files 'src/*.cpp' | grep -vE "$skipped")
if printf '%s\0' "${units[@]}" |
  xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p build/dev \
    --extra-arg=-Wno-unknown-warning-option >"$log" 2>/dev/null; then
  passed=$((passed + ${#units[@]}))
else
  grep -E 'error|warning' "$log" | sort -u >&2
  faulty=$(grep -E ' error: ' "$log" | cut -d: -f1 | sort -u | wc -l)
  failed=$((failed + (faulty > 0 ? faulty : 1)))
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
