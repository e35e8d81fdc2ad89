#!/usr/bin/env bash
# Checks the files for the desktop, each by its own validator, and that graph files are recognised:
# desktop_files_test.sh SOURCE_DIR KURV
set -euo pipefail
desktop=$1/packaging/desktop
kurv=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

desktop-file-validate --warn-kde "$desktop/kurv.desktop"
appstreamcli validate --no-net --pedantic "$desktop/org.kurvgraph.kurv.metainfo.xml"

mkdir -p "$work/mime/packages"
cp "$desktop/kurvgraph.xml" "$work/mime/packages/"
# The types of the system, which know what a .txt file is.
cp /usr/share/mime/packages/freedesktop.org.xml "$work/mime/packages/"
XDG_DATA_DIRS=$work update-mime-database -V "$work/mime" >/dev/null

expect_type() {
  local type
  type=$(XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$work gio info -a standard::content-type "$1" |
    sed -n 's/.*standard::content-type: //p')
  [[ $type == "$2" ]] || { echo "$1 is recognised as $type, not as $2" >&2; exit 1; }
}
printf 'x,y\n1,2\n2,3\n' >"$work/table.csv"
"$kurv" convert "$work/table.csv" -o "$work/graph.gdf"
expect_type "$work/graph.gdf" application/x-kurvgraph
# Also without the extension.
cp "$work/graph.gdf" "$work/graph"
expect_type "$work/graph" application/x-kurvgraph
expect_type "$work/table.csv" text/csv
# A program whose files have the extension alone wins.
cat >"$work/mime/packages/other.xml" <<'XML'
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-other"><glob pattern="*.gdf"/></mime-type>
</mime-info>
XML
XDG_DATA_DIRS=$work update-mime-database -V "$work/mime" >/dev/null
printf '\001\002\003' >"$work/other.gdf"
expect_type "$work/other.gdf" application/x-other

# The entry opens what the command line takes.
grep -qx 'Exec=kurv %F' "$desktop/kurv.desktop"
