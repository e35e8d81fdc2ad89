#!/usr/bin/env bash
# Checks that the pictures of the documentation and of the examples are what docs/make-pictures makes:
#
#   pictures_test.sh SOURCE_DIR BUILD_DIR drawn      those that need no screen, and that each page shows
#                                                    pictures that exist, and no picture is shown by no page
#   pictures_test.sh SOURCE_DIR BUILD_DIR windows    those that are taken on a virtual screen
#
# Drawn ones are compared byte for byte. Of a window the picture in the project is kept where the window
# shows the same within the tolerance of tools/picture_files.py. What differs is left in the build folder.
set -euo pipefail
source_dir=$1
export KURV_BUILD=$2
kind=$3
made=$KURV_BUILD/pictures/$kind
failures=0
fail() {
  echo "$1" >&2
  ((++failures))
}

is_of_kind() {
  case $1 in
    docs/pictures/tutorial/*) return 1 ;; # the test of the tutorial compares them
    docs/pictures/designer/*) [[ -z ${KURV_WITHOUT_FOREIGN:-} && -d $KURV_BUILD/qt/designer/plugins ]] || return 1 ;;
    examples/python_*) [[ -z ${KURV_WITHOUT_FOREIGN:-} ]] || return 1 ;;
  esac
  case $1 in
    docs/pictures/window/* | docs/pictures/designer/* | examples/minimal/* | examples/own_menus/* | examples/python_window/*)
      [[ $kind == windows ]] ;;
    *) [[ $kind == drawn ]] ;;
  esac
}

rm -rf "$made"
mkdir -p "$made"
export KURV_INTO=$made
if [[ $kind == windows ]]; then
  "$source_dir/docs/make-pictures" windows >/dev/null
else
  "$source_dir/docs/make-pictures" pages performance examples >/dev/null
fi

cd "$source_dir"
while read -r picture; do
  is_of_kind "$picture" || continue
  if [[ ! -e $made/$picture ]]; then
    fail "docs/make-pictures does not make $picture"
  elif cmp -s "$picture" "$made/$picture"; then
    rm "$made/$picture"
  else
    fail "$picture differs from $made/$picture; if that is right, docs/make-pictures replaces it"
  fi
done < <(find docs examples -name '*.png')
while read -r picture; do
  [[ -e $picture ]] || fail "docs/make-pictures makes $picture, which is not in the project"
done < <(cd "$made" && find . -name '*.png')
[[ $kind == drawn ]] || exit "$((failures > 0))"

# Where a page links to, from the project's folder.
shown() {
  local page
  for page in README.md docs/*.md; do
    { grep -o '!\[[^]]*\]([^)]*)' "$page" || true; } | sed 's/.*(\(.*\))/\1/' |
      sed "s|^|$(dirname "$page")/|; s|^\./||"
  done
}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
shown | sort -u >"$work/shown"
while read -r picture; do
  [[ -e $picture ]] || fail "a page shows $picture, which does not exist"
done <"$work/shown"
while read -r picture; do
  grep -qx "$picture" "$work/shown" || fail "no page shows $picture"
done < <(find docs/pictures -name '*.png')
[[ $(wc -l <"$work/shown") -gt 30 ]] || fail "only $(wc -l <"$work/shown") pictures were found"

# The chart of the growth shows the figures of the table on its page.
while IFS=, read -r -a row; do
  curves=$(printf ' | %s' "${row[@]:1}")
  grep -qF "| ${row[0]}$curves |" docs/performance.md || fail "docs/performance.md has another row of ${row[0]}"
done < <(awk -F, '{ for (i = 1; i <= NF; i++) cell[i, NR] = $i }
  END { for (i = 2; i <= NF; i++) { printf "%s", cell[i, 1]; for (k = 2; k <= NR; k++) printf ",%s", cell[i, k]; print "" } }' \
  docs/pictures/performance/growth.csv)
[[ $failures == 0 ]]
