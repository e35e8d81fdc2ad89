#!/usr/bin/env bash
# Checks that the pictures of the documentation are what docs/make-pictures draws, byte for byte, and
# that each page shows pictures that exist, and no picture is shown by no page:
# pictures_test.sh SOURCE_DIR KURV
set -euo pipefail
source_dir=$1
export KURV=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() {
  echo "$1" >&2
  ((++failures))
}

mkdir -p "$work/examples"
cp -r "$source_dir/docs" "$work/docs"
cp -r "$source_dir/examples/data" "$work/examples/data"
find "$work/docs/pictures" -maxdepth 1 -name '*.png' -delete
rm -f "$work"/docs/pictures/gallery/*.png
"$work/docs/make-pictures" 2>/dev/null

cd "$source_dir"
for picture in docs/pictures/*.png docs/pictures/gallery/*.png; do
  cmp "$picture" "$work/$picture" || fail "$picture differs; docs/make-pictures draws it anew"
done
while read -r picture; do
  [[ -e $source_dir/$picture ]] || fail "make-pictures draws $picture, which is not in the project"
done < <(cd "$work" && find docs/pictures -name '*.png')

# Where a page links to, from the project's folder.
shown() {
  local page
  for page in README.md docs/*.md; do
    { grep -o '!\[[^]]*\]([^)]*)' "$page" || true; } | sed 's/.*(\(.*\))/\1/' |
      sed "s|^|$(dirname "$page")/|; s|^\./||"
  done
}
shown | sort -u >"$work/shown"
while read -r picture; do
  [[ -e $picture ]] || fail "a page shows $picture, which does not exist"
done <"$work/shown"
while read -r picture; do
  grep -qx "$picture" "$work/shown" || fail "no page shows $picture"
done < <(find docs/pictures -name '*.png')
[[ $(wc -l <"$work/shown") -gt 30 ]] || fail "only $(wc -l <"$work/shown") pictures were found"
[[ $failures == 0 ]]
