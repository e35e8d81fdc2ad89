# For the scripts beside it: find_kurv [PATH] sets $kurv to PATH, the variable KURV, an installed kurv, or
# the newest that was built in this tree, and ends the script where there is none.
find_kurv() {
  tree=$(cd "$(dirname "$0")/../.." && pwd)
  kurv=${1:-${KURV:-$(command -v kurv || ls -t "$tree"/build/*/app/kurv 2>/dev/null | head -n 1)}}
  [ -n "$kurv" ] && return
  echo "${0##*/}: kurv was not found; install it, build it with ./run, or set KURV to its path." >&2
  exit 1
}
