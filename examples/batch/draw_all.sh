#!/bin/sh
# Draws each table of a folder as a picture of the same name:
#
#   draw_all.sh TABLES PICTURES            one after the other
#   draw_all.sh TABLES PICTURES 4          four at a time
#
# A table that cannot be drawn does not stop the others; the exit status is 1 then.
. "$(dirname "$0")/../find_kurv.sh"
if [ $# -lt 2 ] || [ ! -d "$1" ]; then
  echo "usage: ${0##*/} TABLES PICTURES [PROCESSES]" >&2
  exit 2
fi
find_kurv ""
tables=$1
pictures=$2
processes=${3:-1}
mkdir -p "$pictures" || exit 1

if [ "$processes" = 1 ]; then
  failed=0
  for table in "$tables"/*.csv; do
    [ -e "$table" ] || continue
    name=$(basename "$table" .csv)
    "$kurv" render -o "$pictures/$name.png" -- "$table" || failed=1
  done
  exit $failed
fi

# With zero bytes between the names, a name may have blanks and line breaks in it.
export kurv pictures
find "$tables" -maxdepth 1 -name '*.csv' -print0 |
  xargs -0 -r -n 1 -P "$processes" sh -c \
    '"$kurv" render -o "$pictures/$(basename "$1" .csv).png" -- "$1"' draw || exit 1
