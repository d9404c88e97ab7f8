#!/usr/bin/env bash
# clang-tidy on the core sources (archive, ledger, masterdata, printing, backup).
set -euo pipefail
build=${1:-build}
files=$(git ls-files 'archive/*.cpp' 'ledger/*.cpp' 'masterdata/*.cpp' 'printing/*.cpp' 'backup/*.cpp')
[ -z "$files" ] && exit 0
# shellcheck disable=SC2086
clang-tidy -p "$build" --quiet --warnings-as-errors='*' --extra-arg=-Wno-unknown-warning-option $files
