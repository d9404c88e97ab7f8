#!/usr/bin/env bash
# clang-tidy on the core sources (common, help, archive, printing, ledger, masterdata, backup, frame).
set -euo pipefail
build=${1:-build}
files=$(git ls-files 'common/*.cpp' 'help/*.cpp' 'archive/*.cpp' 'printing/*.cpp' 'ledger/*.cpp' 'masterdata/*.cpp' 'backup/*.cpp' 'frame/*.cpp')
[ -z "$files" ] && exit 0
# shellcheck disable=SC2086
clang-tidy -p "$build" --quiet --warnings-as-errors='*' --extra-arg=-Wno-unknown-warning-option $files
