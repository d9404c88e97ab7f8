#!/usr/bin/env bash
# Whole programs on a large archive: contavia-cli's "riepilogo conti" and "interroga" over every
# date, each against a plain process (bench/archive_tool.cpp) started the same way, as the median
# wall time of RUNS runs after one unmeasured run (warm page cache). Output goes to /dev/null.
#
#   bench/process_times.sh BUILD_WITH_CLI BUILD_WITH_BENCH [FOLDER] [RUNS]
#   bench/process_times.sh build build-bench /tmp/contavia-grande 7
#
# The folder is generated (1,000 accounts x 1,000 movements) when it holds no "CONTI.CON".
# The copy of every account's four files ("backup") has its own floor: cp of the same files
# and sync of the copies.
set -euo pipefail
cli=$1/bin/contavia-cli
tool=$2/bin/archive_tool
folder=${3:-/tmp/contavia-grande}
runs=${4:-7}
[ -f "$folder/CONTI.CON" ] || "$tool" genera "$folder"

# Median wall time in seconds of `runs` runs of the command.
median() {
  "$@" >/dev/null 2>&1 || true
  local times=()
  for ((i = 0; i < runs; i++)); do
    local start=$EPOCHREALTIME
    "$@" >/dev/null 2>&1 || true
    local end=$EPOCHREALTIME
    times+=("$(echo "$end - $start" | bc -l)")
  done
  printf '%s\n' "${times[@]}" | sort -g | sed -n "$(((runs + 1) / 2))p"
}

line() {  # name seconds floor_seconds
  printf '%-58s %8.1f ms  %6.2fx\n' "$1" "$(echo "$2 * 1000" | bc -l)" "$(echo "$2 / $3" | bc -l)"
}

startTool=$(median "$tool")
startCli=$(median "$cli" --help)
floor=$(median "$tool" somma "$folder")
listing=$(median "$tool" elenca "$folder")
summary=$(median "$cli" --dati "$folder" --oggi 30/06/2022 riepilogo conti)
query=$(median "$cli" --dati "$folder" --oggi 30/06/2022 interroga --dal 01/01/2020 --al 31/12/2030)
echo "median of $runs runs on $folder; ratio to the floor (archive_tool somma)"
line "archive_tool (start-up alone: usage message)" "$startTool" "$floor"
line "contavia-cli --help (start-up alone)" "$startCli" "$floor"
line "archive_tool somma (floor: read and sum)" "$floor" "$floor"
line "archive_tool elenca (floor + one printed line a movement)" "$listing" "$floor"
line "contavia-cli riepilogo conti" "$summary" "$floor"
line "contavia-cli interroga --dal 01/01/2020 --al 31/12/2030" "$query" "$floor"

copies=$(mktemp -d)
floorCopies=$(mktemp -d)
trap 'rm -rf "$copies" "$floorCopies"' EXIT
backup=$(median "$cli" --dati "$folder" --oggi 30/06/2022 backup "$copies")
copyFloor=$(median sh -c "cp '$folder'/*.MOC '$folder'/*.MOR '$folder'/*.TOC '$folder'/*.RIP \
  '$floorCopies'/ && sync '$floorCopies'/*")
line "cp + sync of every account's four files (floor of the copy)" "$copyFloor" "$copyFloor"
line "contavia-cli backup (every account)" "$backup" "$copyFloor"
