#!/usr/bin/env bash
# Checks that the man page and the completions are what the help of kurv says, that their own tools
# take them, and that they complete: command_line_files_test.sh SOURCE_DIR KURV
# With UPDATE_GOLDENS=1 it writes them anew.
set -euo pipefail
folder=$1/packaging/command_line
kurv=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

[[ ${UPDATE_GOLDENS:-} != 1 ]] || python3 "$folder/generate" "$kurv" "$folder"
python3 "$folder/generate" "$kurv" "$work"
for file in kurv.1 kurv.bash _kurv kurv.fish; do
  diff -u "$folder/$file" "$work/$file" || {
    echo "$file is not what the help says; UPDATE_GOLDENS=1 ./test -R command_line_files writes it anew" >&2
    exit 1
  }
done

mandoc -Tlint -Wwarning "$folder/kurv.1"
zsh -n "$folder/_kurv"

# expect WORDS WHAT: that completing the last one of the words offers just this.
expect() {
  [[ $2 == "$3" ]] || { echo "\"$1\" completes to \"$2\", not to \"$3\"" >&2; exit 1; }
}
in_bash() {
  # shellcheck disable=SC2016
  bash -c 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
    _kurv 2>/dev/null; echo "${COMPREPLY[*]}"' bash "$folder/kurv.bash" "$@"
}
in_fish() {
  HOME=$work fish --no-config -c "source '$folder/kurv.fish'; complete -C'$1'" | cut -f1 | sort | xargs
}
# Types words, the key Tab and more into a zsh of its own, where kurv is a function that prints its arguments.
cat >"$work/settings.zsh" <<'ZSH'
fpath=("$FOLDER" $fpath)
autoload -U compinit && compinit -u -D
kurv() { print -r -- "<$*>" }
print "is ready"
ZSH
cat >"$work/type.zsh" <<'ZSH'
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "source $HOME/settings.zsh"
zpty -r shell said "*is ready*"
zpty -w -n shell "$1"$'\t'"$2"$'\n'
zpty -r shell said "*<*>*"
said=${said##*<}
print -r -- "${said%%>*}"
ZSH
in_zsh() {
  FOLDER=$folder HOME=$work timeout 60 zsh -f "$work/type.zsh" "$@"
}
cd "$work"
: >graph.gdf
expect 'kurv re' "$(in_bash kurv re)" render
expect 'kurv render --format ' "$(in_bash kurv render --format '')" 'png bmp svg pdf'
expect 'kurv render --set NumT' "$(in_bash kurv render --set NumT)" 'NumTicks='
expect 'kurv convert --dec' "$(in_bash kurv convert --dec)" --decimal
expect 'kurv info gr' "$(in_bash kurv info gr)" graph.gdf
expect 'kurv --heade' "$(in_bash kurv --heade)" --header
expect 'kurv re' "$(in_fish 'kurv re')" render
expect 'kurv render --format ' "$(in_fish 'kurv render --format ')" 'bmp pdf png svg'
expect 'kurv convert --dec' "$(in_fish 'kurv convert --dec')" --decimal
expect 'kurv re' "$(in_zsh 'kurv re')" render
expect 'kurv convert --dec' "$(in_zsh 'kurv convert --dec')" 'convert --decimal'
expect 'kurv render --set NumT' "$(in_zsh 'kurv render --set NumT' 7)" 'render --set NumTicks=7'
