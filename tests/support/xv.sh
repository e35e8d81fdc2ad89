#!/bin/sh
# xv.sh COMMAND...: runs the command on a virtual screen of its own, with a window manager. The
# screen is as large as KURV_SCREEN says, or 1400x1000.
#
# A missing tool fails the test rather than passing it over: these tests are the only ones that see
# real windows.
for tool in Xvfb openbox xdotool wmctrl; do
  command -v $tool >/dev/null || { echo "xv.sh: $tool is missing" >&2; exit 1; }
done
T=$(mktemp -d) || exit 1
X=; O=
clean_up() {
  for process in $O $X; do kill "$process" 2>/dev/null; done
  wait
  rm -rf "$T"
}
trap clean_up EXIT
trap 'exit 1' INT TERM

wait_for() {
  for _ in $(seq 400); do
    "$@" && return
    sleep .05
  done
  echo "xv.sh: the virtual screen did not come up" >&2
  exit 1
}
display_is_known() { [ -s "$T/display" ]; }
window_manager_runs() { [ -e "$T/ready" ]; }

# Without -noreset the server starts anew when its last client goes, which is the one that looks
# whether the window manager is there, and it takes along who is just coming.
Xvfb -displayfd 6 -screen 0 "${KURV_SCREEN:-1400x1000}x24" -nolisten tcp -noreset -dpi 96 6>"$T/display" 2>/dev/null & X=$!
wait_for display_is_known
DISPLAY=:$(cat "$T/display")
export DISPLAY
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
# Neither the desktop's settings nor its session have a say in what the windows look like.
mkdir "$T/config" "$T/runtime"
chmod 700 "$T/runtime"
export XDG_CONFIG_HOME="$T/config" XDG_RUNTIME_DIR="$T/runtime"
# While it starts, it loses windows that are opened; it runs this command afterwards.
openbox --sm-disable --startup "touch $T/ready" >/dev/null 2>&1 & O=$!
wait_for window_manager_runs
"$@"
