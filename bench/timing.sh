# Shared by the whole-process timings (scripts/bench-cli.sh): sourced, not run.

# Median wall time in seconds of RUNS runs of the command, after one unmeasured run (warm page
# cache). Output goes to /dev/null; a command that stops with a message still counts.
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

# Peak resident memory of one run, in kB.
peak_kb() {
  /usr/bin/time -f %M "$@" 2>&1 >/dev/null | tail -1
}

# One line of the table: name, seconds, the seconds it is compared with.
line() {
  printf '%-64s %8.1f ms  %6.2fx\n' "$1" "$(echo "$2 * 1000" | bc -l)" "$(echo "$2 / $3" | bc -l)"
}
