#!/usr/bin/env bash
# Runs fuzzers, two at a time: run.sh BIN_FOLDER WORK_FOLDER SECONDS [TARGET ...]. The inputs that a
# run collects stay in the work folder for the next run. An input that makes a fuzzer fail is written
# there as crash-*, leak-* or timeout-*.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS=suppressions=$here/../lint/lsan.supp:print_suppressions=0

fuzz() {
  local target=$4 log="$2/$4.log" options=()
  case $target in
    convert | newick | scene) options=(-dict="$here/newick.dict") ;;
    *) options=(-dict="$here/json.dict") ;;
  esac
  mkdir -p "$2/$target"
  if ! "$1/fuzz-$target" -max_total_time="$3" -max_len=65536 -timeout=25 -rss_limit_mb=4096 \
    -print_final_stats=1 -artifact_prefix="$2/$target-" "${options[@]}" "$2/$target" \
    "$here/corpus/$target" >"$log" 2>&1; then
    tail -n 60 "$log"
    echo "fuzz-$target: failed, see $log"
    return 1
  fi
  awk -v target="$target" '
    / cov: / { for (i = 1; i < NF; ++i) if ($i == "cov:") reached = $(i + 1) }
    /inline 8-bit counters/ { for (i = 1; i < NF; ++i) if ($i ~ /^\(/) { all = substr($i, 2); break } }
    /number_of_executed_units/ { executions = $2 }
    END { printf "fuzz-%s: %d executions, %d of %d edges\n", target, executions, reached, all }' "$log"
}
export -f fuzz
export here

bin=$1 work=$2 seconds=$3
shift 3
[ $# -gt 0 ] || set -- convert json newick scene service
mkdir -p "$work"
printf '%s\n' "$@" | xargs -P 2 -I TARGET bash -c "fuzz '$bin' '$work' '$seconds' TARGET"
