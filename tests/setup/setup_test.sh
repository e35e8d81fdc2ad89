#!/usr/bin/env bash
# Checks what tools/setup says and does on machines that lack something, with stand-ins for the tools
# that it calls: setup_test.sh SOURCE_DIR
set -uo pipefail
export LC_ALL=C
source_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
tests=0

# tool NAME BODY: a stand-in, a shell script that also notes how it was called.
tool() {
  printf '#!/bin/bash\necho "%s $*" >>"%s/calls"\n%s\n' "$1" "$work" "$2" >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}

# A copy of the script in a machine with nothing but the shell's helpers.
new_machine() {
  rm -rf "$work/bin" "$work/tree" "$work/calls"
  mkdir -p "$work/bin" "$work/tree/tools"
  : >"$work/calls"
  cp "$source_dir/tools/setup" "$work/tree/tools/"
  echo '{}' >"$work/tree/CMakePresets.json"
  local helper
  for helper in bash cat dirname env grep mktemp rm tee; do
    ln -s "$(command -v $helper)" "$work/bin/$helper"
  done
  tool id 'echo 0'
}

# Debian, where only the package cmake is installed.
new_debian() {
  new_machine
  tool dpkg-query 'echo "cmake installed"; echo "ninja-build config-files"; exit 1'
  tool apt-get 'case "$*" in
    *install*) echo "Get:1 x"; echo "Setting up libone:amd64 (1.2) ..."; echo "Setting up ninja-build (1) ..." ;;
  esac'
}

# run COMMAND: in a shell that has sourced the script.
run() {
  PATH=$work/bin "$work/bin/bash" -c "set -euo pipefail; source '$work/tree/tools/setup'; $1" \
    >"$work/out" 2>"$work/err"
  status=$?
}

fail() {
  echo "FAILED in ${FUNCNAME[2]}: $1" >&2
  sed 's/^/    /' "$work/err" "$work/calls" >&2
  ((++failures))
}
expect_status() { [[ $status == "$1" ]] || fail "status $status instead of $1"; }
expect_error() { grep -qF -- "$1" "$work/err" || fail "does not say: $1"; }
expect_no_error() { ! grep -qF -- "$1" "$work/err" || fail "says: $1"; }
expect_call() { grep -qF -- "$1" "$work/calls" || fail "does not call: $1"; }
expect_no_call() { ! grep -qF -- "$1" "$work/calls" || fail "calls: $1"; }

installs_only_what_is_missing_with_a_line_for_each() {
  new_debian
  run 'need cmake ninja-build libzip-dev'
  expect_status 0
  expect_call 'apt-get -y --no-install-recommends install ninja-build libzip-dev'
  expect_error 'Installing 2 packages and what they need: ninja-build libzip-dev'
  expect_error '  libone:amd64'
  expect_error '  ninja-build'
}

# The stand-in speaks German unless it is asked for the locale C.
has_a_line_for_each_package_in_any_language() {
  new_debian
  tool apt-get 'case "$LC_ALL" in
    C) echo "Setting up libone:amd64 (1.2) ..." ;;
    *) echo "libone:amd64 (1.2) wird eingerichtet ..." ;;
  esac'
  LC_ALL=C.UTF-8 run 'need cmake ninja-build'
  expect_status 0
  expect_error '  libone:amd64'
}

does_nothing_where_nothing_is_missing() {
  new_debian
  run 'need cmake'
  expect_status 0
  expect_no_call 'apt-get'
  [[ ! -s $work/err && ! -s $work/out ]] || fail "says something"
}

says_the_command_where_there_are_no_rights() {
  new_debian
  tool id 'echo 1000'
  run 'need cmake ninja-build'
  expect_status 1
  expect_error 'as root, run: apt-get install --no-install-recommends ninja-build'
  expect_no_call 'apt-get'
}

asks_sudo_where_it_is_there() {
  new_debian
  tool id 'echo 1000'
  tool sudo '"$@"'
  run 'need cmake ninja-build'
  expect_status 0
  expect_call 'sudo env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -y --no-install-recommends install ninja-build'
}

says_the_command_where_sudo_refuses() {
  new_debian
  tool id 'echo 1000'
  tool sudo 'echo "anna is not in the sudoers file." >&2; exit 1'
  run 'need cmake ninja-build'
  expect_status 1
  expect_error 'anna is not in the sudoers file.'
  expect_error 'as root, run: apt-get install --no-install-recommends ninja-build'
  expect_no_call 'apt-get -qq'
}

says_why_where_apt_fails_without_a_word() {
  new_debian
  tool apt-get 'exit 100'
  run 'need cmake ninja-build'
  expect_status 1
  expect_error 'The packages could not be installed'
}

shows_one_line_of_many_failed_downloads() {
  new_debian
  tool apt-get 'echo "E: Failed to fetch http://a  No route" >&2
    echo "E: Failed to fetch http://b  No route" >&2; exit 100'
  run 'need cmake ninja-build'
  expect_status 1
  expect_error 'E: Failed to fetch http://a  No route'
  expect_no_error 'http://b'
  expect_error 'Check the network'
}

says_that_no_server_can_be_reached() {
  new_debian
  tool apt-get 'echo "E: Unable to fetch some archives" >&2; exit 100'
  run 'need cmake ninja-build'
  expect_status 1
  expect_error 'E: Unable to fetch some archives'
  expect_error 'no package server can be reached: ninja-build'
}

installs_what_was_downloaded_before_without_a_network() {
  new_debian
  tool apt-get '[[ "$*" != *update* ]]'
  run 'need cmake ninja-build'
  expect_status 0
}

shows_why_a_package_cannot_be_installed() {
  new_debian
  tool apt-get '[[ "$*" == *update* ]] && exit; echo "E: Unable to locate package x" >&2; exit 100'
  run 'need cmake x'
  expect_status 1
  expect_error 'E: Unable to locate package x'
  expect_error 'The packages could not be installed: x.'
}

names_what_is_missing_and_the_page_where_there_is_no_apt() {
  new_machine
  tool cmake ''
  run 'need cmake'
  expect_status 1
  expect_error 'Missing, and there is no apt-get to install them: ccache g++ ninja. docs/building.md'
}

goes_on_without_apt_where_the_tools_are_there() {
  new_machine
  local name
  for name in ccache cmake g++ ninja; do tool $name ''; done
  run 'need cmake libzip-dev'
  expect_status 0
}

installs_what_the_packaging_scripts_need_before_they_build() {
  local script
  for script in make-packages:dpkg-dev make-bundle:patchelf; do
    new_debian
    tool apt-get 'echo "E: Unable to fetch some archives" >&2; exit 100'
    mkdir "$work/tree/packaging"
    cp "$source_dir/packaging/${script%:*}" "$work/tree/packaging/"
    run "packaging/${script%:*}"
    expect_status 1
    expect_call "${script#*:}"
    expect_error 'no package server can be reached'
    expect_no_call 'ninja -C'
  done
}

shows_the_progress_of_a_build_and_where_it_is() {
  new_machine
  tool cmake '/bin/mkdir -p build/release; : >build/release/build.ninja'
  tool ninja '[[ "$*" == *-n* ]] && echo "[1 of 2] would" || echo "$NINJA_STATUS"'
  run 'build release kurv'
  expect_status 0
  expect_call 'ninja -C build/release kurv'
  expect_error "Building in $work/tree/build/release"
  expect_error '[%f of %t]'
}

says_nothing_where_everything_is_built() {
  new_machine
  mkdir -p "$work/tree/build/release"
  touch -d '+1 minute' "$work/tree/build/release/build.ninja"
  tool ninja 'echo "ninja: no work to do."'
  run 'build release kurv'
  expect_status 0
  expect_no_call 'cmake'
  expect_no_call 'ninja -C build/release kurv'
  [[ ! -s $work/err ]] || fail "says something"
}

shows_what_cmake_says_where_configuring_fails() {
  new_machine
  tool cmake 'echo "Qt6 was not found" >&2; exit 1'
  run 'build release kurv'
  expect_status 1
  expect_error 'Qt6 was not found'
  expect_error 'docs/building.md lists what is needed'
}

fails_where_a_file_does_not_compile() {
  new_machine
  tool cmake '/bin/mkdir -p build/release; : >build/release/build.ninja'
  tool ninja '[[ "$*" == *-n* ]] || { echo "main.cpp:1: error"; exit 1; }'
  run 'build release kurv'
  expect_status 1
  expect_error 'main.cpp:1: error'
}

for test in $(declare -F | sed -n 's/^declare -f \([a-z]*s_.*\)$/\1/p'); do
  "$test"
  ((++tests))
done
[[ $tests -ge 17 ]] || { echo "only $tests tests were found" >&2; exit 1; }
echo "$tests tests, $failures failures"
[[ $failures == 0 ]]
