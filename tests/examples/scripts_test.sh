#!/usr/bin/env bash
# Runs the scripts of the examples, and hides kurv from them: scripts_test.sh SOURCE_DIR KURV
set -uo pipefail
examples=$1/examples
kurv=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
unset KURV
failures=0
# check WHAT COMMAND...
check() {
  local what=$1
  shift
  "$@" || { echo "failed: $what" >&2; ((++failures)); }
}
is_png() { [[ $(head -c 4 "$1" | tail -c 3) == PNG ]]; }

# The scripts alone in another tree, where nothing is built.
mkdir -p tree bin plain
cp -r "$examples" tree/examples
for tool in sh dirname basename head ls find xargs mkdir env; do
  ln -s "$(command -v $tool)" plain/
done
ln -s /usr/bin/python3 plain/
without_kurv() { PATH=$work/plain "$@"; }

for script in "sh tree/examples/pipe/graph.sh" "python3 tree/examples/pipe/graph.py" \
  "sh tree/examples/batch/draw_all.sh tree out"; do
  name=$(grep -o '[a-z_]*\.\(sh\|py\)' <<<"$script")
  output=$(without_kurv $script 2>&1)
  check "$name ends with 1 without kurv" test $? = 1
  check "$name says how: $output" test "$output" = \
    "$name: kurv was not found; install it, build it with ./run, or set KURV to its path."
done

# By the variable, by PATH, and from the build folder.
ln -s "$kurv" bin/kurv
for script in graph.sh graph.py; do
  interpreter=sh picture=squares.png
  [[ $script == *.py ]] && interpreter=python3 picture=waves.png
  rm -f $picture
  check "$script by KURV" env PATH="$work/plain" KURV="$kurv" $interpreter tree/examples/pipe/$script
  check "$script draws" is_png $picture
  rm -f $picture
  check "$script by PATH" env PATH="$work/bin:$work/plain" $interpreter tree/examples/pipe/$script
  check "$script draws" is_png $picture
  rm -f $picture
  mkdir -p tree/build/release/app
  ln -s "$kurv" tree/build/release/app/kurv
  check "$script from the build folder" without_kurv $interpreter tree/examples/pipe/$script
  check "$script draws" is_png $picture
  rm -r tree/build
done

# A folder of tables, of which one is no table.
export KURV=$kurv
batch=$examples/batch/draw_all.sh
mkdir tables
for name in a "b c" -d; do printf 'x,y\n1,2\n2,3\n3,5\n' >"tables/$name.csv"; done
for processes in 1 3; do
  check "batch, $processes" "$batch" tables "out $processes" "$processes"
  for name in a "b c" -d; do check "$name, $processes" is_png "out $processes/$name.png"; done
  check "the same pictures" diff -r "out 1" "out $processes"
done
: >"tables/empty.csv"
for processes in 1 3; do
  rm -r "out $processes"
  "$batch" tables "out $processes" "$processes" 2>errors
  check "a bad table is an error, $processes" test $? = 1
  check "it is named, $processes" grep -q empty.csv errors
  check "the others are drawn, $processes" is_png "out $processes/b c.png"
  check "it has no picture, $processes" test ! -e "out $processes/empty.png"
done
mkdir none
check "no tables" "$batch" none nothing
check "no tables, parallel" "$batch" none nothing 2
"$batch" nosuch out 2>/dev/null
check "no folder" test $? = 2
"$batch" 2>/dev/null
check "no arguments" test $? = 2
[[ $failures == 0 ]]
