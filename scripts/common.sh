# Shared by ./run, ./test and the set-up scripts: where things lie, progress lines, and the Wine environment.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
program_dir=$build/windows-cross
logs=$build/logs
mkdir -p "$logs"

note() { echo "$*" >&2; }

die() {
  note "error: $*"
  exit 1
}

declare -A started=() # the process of a command in the background, by its log
took=()               # "SECONDS TEXT" of each step

# start LOG COMMAND...: runs a command in the background, with its output in build/logs/LOG.log.
start() {
  local name=$1
  shift
  {
    local begin=$SECONDS code=0
    "$@" || code=$?
    echo $((SECONDS - begin)) > "$logs/$name.seconds"
    exit $code
  } > "$logs/$name.log" 2>&1 &
  started[$name]=$!
}

# step TEXT LOG [COMMAND...]: runs a long command, or waits for the one that was started with this log. Says what it is
# doing and how long the command took; with patience=N set, only when it takes more than N seconds. When it fails, shows
# the few lines that matter and where the rest is.
step() {
  local text=$1 log=$logs/$2.log seconds=$logs/$2.seconds pid tick
  [[ $# == 2 ]] || start "${@:2}"
  pid=${started[$2]}
  for ((tick = 0; tick < ${patience:-0} * 20; tick++)); do
    kill -0 "$pid" 2> /dev/null || break
    sleep 0.05
  done
  local shown=no code=0
  if [[ ${patience:-0} == 0 ]] || kill -0 "$pid" 2> /dev/null; then
    shown=yes
    printf '%s ...' "$text" >&2
  fi
  wait "$pid" || code=$?
  took+=("$(< "$seconds") $text")
  if [[ $code == 0 ]]; then
    [[ $shown == no ]] || note " done ($(< "$seconds") s)"
    return 0
  fi
  [[ $shown == yes ]] || printf '%s ...' "$text" >&2
  note ' failed'
  {
    grep -m 5 -A 2 --no-group-separator -E '(error|Error|FAILED|^E)( at |:)|undefined reference' "$log" || tail -n 5 "$log"
  } | cut -c 1-200 | sed 's/^/  /' >&2
  note "  (whole log: ${log#"$root"/})"
  return 1
}

# build_preset PRESET [TARGET...]: configures (when the presets have changed) and builds a CMake preset, or these targets
# of it.
build_preset() {
  local preset=$1 rules=$build/$1/build.ninja
  if [[ ! $rules -nt $root/CMakePresets.json ]]; then
    cmake --preset "$preset" -S "$root" && touch "$rules" || return 1
  fi
  cmake --build "$build/$preset" ${2:+--target "${@:2}"}
}

# The project's version: the newest one of CHANGELOG.md.
version() { sed -n 's/^## \([0-9.]*\).*/\1/p;T;q' "$root/CHANGELOG.md"; }

# lay_glu FOLDER: lays GLU beside a program for Windows.
lay_glu() { cmp -s "$build/glu32/glu32.dll" "$build/$1/glu32.dll" || cp "$build/glu32/glu32.dll" "$build/$1/"; }

# build_windows [PRESET [TARGET...]]: builds a preset for Windows, or these targets of it.
build_windows() {
  local preset=${1:-windows-cross}
  patience=1 step "building TalqOpenGL.dll, Talq.dll and talq.exe ($preset)" "$preset" build_preset "$preset" "${@:2}" ||
    return 1
  lay_glu "$preset"
}

# Wine takes the GLU beside the program, asks for no add-ons, opens no crash dialog, and starts neither services nor the
# menu builder, which would take most of a short script's time. It takes arguments and file names for UTF-8, whatever the
# caller's locale. Runs with and without a display use prefixes of their own: a Wine server that was started without a
# display cannot open windows.
use_wine() {
  export LC_ALL=C.UTF-8
  export WINEPREFIX=$build/wine/$1 WINEDEBUG=-all
  export WINEDLLOVERRIDES='mscoree=;mshtml=;winedbg.exe=;services.exe=;winemenubuilder.exe=;glu32=n'
  wine=/usr/lib/wine/wine64
}

# pack_vscode FILE: packs the extension for Visual Studio Code, with the names that the built talq lists.
pack_vscode() (
  use_wine headless
  unset DISPLAY
  set -o pipefail
  { "$wine" "$program_dir/talq.exe" --list && "$wine" "$program_dir/talq.exe" --list --no-module; } |
    "$root/scripts/pack-vscode" "$(version)" "$1"
)

# Runs a Wine program on a display of its own, once in a script. A window manager is there, because Wine would wait two
# seconds for one whenever a window closes.
with_virtual_display() {
  local announcement number server
  exec {announcement}< <(exec setsid Xvfb -displayfd 1 -screen 0 1024x768x24 +extension GLX -nolisten tcp 2> /dev/null)
  server=$!
  read -r number <&"$announcement" || die 'there is no virtual display: Xvfb could not be started'
  # Wine's desktop stays some seconds longer than the program, and its display longer than the desktop, which would
  # complain. Nobody has to wait for them.
  trap "setsid bash -c '/usr/lib/wine/wineserver -w; kill $server' < /dev/null &> /dev/null &" EXIT
  local -x DISPLAY=:$number
  setsid openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml < /dev/null &> /dev/null &
  "$@"
}
