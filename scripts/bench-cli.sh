#!/usr/bin/env bash
# contavia-cli against the floor, as whole processes measured side by side in one run: each
# figure is the median wall time of RUNS runs (after one unmeasured run, warm page cache) and is
# read as a ratio to a plain program doing only the unavoidable work on the same files
# (bench/archive_tool.cpp: read and sum; read, sort and print). Memory is the peak resident size
# against the size of the account's files.
#
#   scripts/bench-cli.sh [BUILD] [RUNS] [FOLDER]
#   scripts/bench-cli.sh build 11 /tmp/contavia-bench
#
# The archives are generated in FOLDER when missing: one account of 10,000 movements, one of
# 1,000, and 1,000 accounts x 1,000 movements. Today is 30/06/2022, inside the generated years.
set -euo pipefail
build=${1:-build}
runs=${2:-11}
work=${3:-/tmp/contavia-bench}
cli=$build/bin/contavia-cli
tool=$build/bin/archive_tool
# shellcheck source=bench/timing.sh
source "$(dirname "$0")/../bench/timing.sh"

archive() {  # folder accounts movements
  mkdir -p "$(dirname "$1")"
  [ -f "$1/CONTI.CON" ] || "$tool" genera "$1" "$2" "$3" >/dev/null
}
archive "$work/10000" 1 10000
archive "$work/1000" 1 1000
archive "$work/grande" 1000 1000
today=(--oggi 30/06/2022)

echo "median of $runs runs; each ratio is to the floor named on the line above it"
startTool=$(median "$tool")
startCli=$(median "$cli" --help)
line "archive_tool (start-up alone)" "$startTool" "$startTool"
line "contavia-cli --help (start-up alone)" "$startCli" "$startTool"

for n in 10000 1000; do
  folder=$work/$n
  floorSum=$(median "$tool" somma "$folder")
  saldi=$(median "$cli" --dati "$folder" "${today[@]}" saldi C0001)
  floorList=$(median "$tool" ordina "$folder")
  list=$(median "$cli" --dati "$folder" "${today[@]}" movimenti C0001)
  # A change of movement 5 with the values it has: the same save every run.
  save=$(median "$cli" --dati "$folder" "${today[@]}" movimento-salva C0001 --n 5 \
    05/01/2020 VERS 100 --doc 1 --descrizione Prova)
  line "[$n movimenti] archive_tool somma (floor: read and sum)" "$floorSum" "$floorSum"
  line "[$n movimenti] contavia-cli saldi" "$saldi" "$floorSum"
  line "[$n movimenti] archive_tool ordina (floor: read, sort, print)" "$floorList" "$floorList"
  line "[$n movimenti] contavia-cli movimenti" "$list" "$floorList"
  line "[$n movimenti] contavia-cli movimento-salva --n 5 (to movimenti)" "$save" "$list"
  files=$(($(stat -c %s "$folder"/C0001.*  | paste -sd+ | bc) / 1024))
  printf '%-64s %8s kB  %6s kB of files\n' "[$n movimenti] peak memory: contavia-cli saldi" \
    "$(peak_kb "$cli" --dati "$folder" "${today[@]}" saldi C0001)" "$files"
  printf '%-64s %8s kB\n' "[$n movimenti] peak memory: contavia-cli --help" "$(peak_kb "$cli" --help)"
done

folder=$work/grande
floor=$(median "$tool" somma "$folder")
listing=$(median "$tool" elenca "$folder")
summary=$(median "$cli" --dati "$folder" "${today[@]}" riepilogo conti)
query=$(median "$cli" --dati "$folder" "${today[@]}" interroga --dal 01/01/2020 --al 31/12/2030)
line "[1.000 x 1.000] archive_tool somma (floor: read and sum)" "$floor" "$floor"
line "[1.000 x 1.000] archive_tool elenca (floor + one line a movement)" "$listing" "$floor"
line "[1.000 x 1.000] contavia-cli riepilogo conti" "$summary" "$floor"
line "[1.000 x 1.000] contavia-cli interroga, every date (to elenca)" "$query" "$listing"
exported=$(mktemp)
queryCsv=$(median "$cli" --dati "$folder" "${today[@]}" interroga --dal 01/01/2020 --al 31/12/2030 \
  --csv "$exported")
rm -f "$exported"
line "[1.000 x 1.000] contavia-cli interroga --csv (to interroga)" "$queryCsv" "$query"

copies=$(mktemp -d)
floorCopies=$(mktemp -d)
trap 'rm -rf "$copies" "$floorCopies"' EXIT
backup=$(median "$cli" --dati "$folder" "${today[@]}" backup "$copies")
copyFloor=$(median sh -c "cp '$folder'/*.MOC '$folder'/*.MOR '$folder'/*.TOC '$folder'/*.RIP \
  '$floorCopies'/ && sync '$floorCopies'/*")
line "[1.000 x 1.000] cp + sync of every account's four files (floor)" "$copyFloor" "$copyFloor"
line "[1.000 x 1.000] contavia-cli backup (every account)" "$backup" "$copyFloor"
