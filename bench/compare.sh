#!/bin/sh
# Measures the program beside what a practical person would use instead, all in one run on an idle
# machine, and prints a table for docs/performance.md: medians of the whole process, and the most
# memory above that of the same process without a database. The commands run as a click runs them.
# About three minutes and 1 GB of disk; compare.sh 1 measures everything once.
set -eu
cd "$(dirname "$0")/.."
packaging/install.sh run test bench >&2
cmake --preset bench >/dev/null
cmake --build --preset bench >&2

runs=${1:-7}
build=build/bench
data=$build/data
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
XDG_CONFIG_HOME=$(mktemp -d)
export XDG_CONFIG_HOME XDG_DATA_HOME="$XDG_CONFIG_HOME"
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT
mkdir -p $data
for records in 10000 100000 1000000 10000000; do
  [ -f $data/$records.dat ] || $build/gen_sites $records $data/$records.dat
done
million=$data/1000000.dat
ten=$data/10000000.dat
cat $million $ten >/dev/null  # into the cache

measure() { $build/stopwatch "$runs" "$@"; }
empty=$(measure $build/commands nothing)

# row WORK GOAL PEER-NAME COMMAND... -- PEER...: the ratio is to be at least the goal.
row() {
  work=$1 goal=$2 peer=$3
  shift 3
  echo "$(measure "$@" | xargs) $empty" | awk -v work="$work" -v goal="$goal" -v peer="$peer" '{
    printf "| %s | %.3f s | %s %.3f s | %.2f | %s | %.1f MB |\n",
      work, $1, peer, $3, $3 / $1, goal, ($2 - $6) / 1024 }'
}

echo "| work | Tarnwick | peer | times as fast | goal | memory |"
echo "|---|---|---|---|---|---|"

commands=$build/commands
out=$data/out.txt
theirs=$data/theirs.txt
row "listing, all of 1,000,000 records" 6 pipe_cpp \
  $commands listing $million $out -- $build/pipe_cpp $million $theirs
row "listing, 20 km" 12 pipe_cpp \
  $commands listing $million $out 20 -- $build/pipe_cpp $million $theirs 20
row "listing, one name" - pipe_cpp \
  $commands listing $million $out 99999 Raven -- $build/pipe_cpp $million $theirs 99999 Raven
row "lookup without a match, 10,000,000 lines" 3.5 "grep -c -i -F" \
  $commands lookup $ten beacon -- grep -c -i -F beacon $ten
row "the same" 0.85 "rg --no-mmap" \
  $commands lookup $ten beacon -- rg --no-mmap -c -i -F beacon $ten
row "lookup, 1,217,575 matches kept" 1.5 "rg, cut" \
  $commands lookup $ten mast -- sh -c "rg --no-mmap -i -F mast $ten | cut -b1-28"
row "Use This to the last line" 2.2 "grep -m1 -i -F" \
  $commands use $ten beacon -- grep -m1 -i -F beacon $ten

measure $build/first_paint program -- $build/first_paint empty | xargs | awk '{
  printf "| first paint | %.3f s | empty Qt window %.3f s | %.2f | 0.77 | %.2f times the memory |\n",
    $1, $3, $3 / $1, $2 / $4 }'

{ $build/points; $build/proj_points; } | xargs | awk '{
  split("grid to WGS84,WGS84 to grid", way, ",")
  for (i = 1; i <= 2; ++i) {
    printf "| %s, in a listing | %d ns | proj_trans_array %d ns | %.2f | 3 | |\n",
      way[i], $(i + 2), $(i + 4), $(i + 4) / $(i + 2)
    printf "| %s, one at a time | %d ns | proj_trans_array %d ns | %.2f | 3 | |\n",
      way[i], $i, $(i + 4), $(i + 4) / $i
  } }'

# The handler alone, in a process that has run it before: a short run is mostly the start.
handler() {
  for _ in $(seq "$runs"); do $commands again "$@"; done | sort -n | sed -n "$(((runs + 1) / 2))p" |
    cut -d' ' -f1
}
echo
echo "| nanoseconds a line | 10,000 | 100,000 | 1,000,000 | 10,000,000 |"
echo "|---|---|---|---|---|"
for work in use lookup listing; do
  printf '| %s' $work
  for records in 10000 100000 1000000 10000000; do
    where=beacon
    [ $work = listing ] && where=$out
    handler $work $data/$records.dat $where |
      awk -v records=$records '{ printf " | %.1f", $1 / records * 1e9 }'
  done
  echo ' |'
done
rm -f $out $theirs
