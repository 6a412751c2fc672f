# SPDX-License-Identifier: MIT
# Sourced by the scripts, in the project's root: Wine, and a screen for windows that nobody looks at.

window_packages=(xvfb openbox xdotool imagemagick fonts-liberation fonts-dejavu-core)

# prepare_wine [NAME]: a prefix of that name in build/, made once.
prepare_wine() {
  # Wine names files in the locale's encoding.
  export LC_ALL=C.UTF-8
  export WINEPREFIX=$PWD/build/${1:-wine} WINEDEBUG=-all
  export WINEDLLOVERRIDES="mscoree=d;mshtml=d;winemenubuilder.exe=d"
  if [ ! -f "$WINEPREFIX/ready-2" ]; then new_wine_prefix || return; fi
  # Kept between the many short runs: one that meets a server on its way out fails.
  wineserver -p60 >/dev/null 2>&1 </dev/null || true
  # Its services live as long, and must not hold the pipe of a test that happens to be the first.
  wine cmd /c exit >/dev/null 2>&1 </dev/null || true
}

new_wine_prefix() {
  local link font
  mkdir -p "$WINEPREFIX" && wine wineboot -i >/dev/null 2>&1 </dev/null || return
  # A new prefix links its user's folders to the home folder.
  for link in "$WINEPREFIX"/drive_c/users/*/*; do
    [ -L "$link" ] && rm "$link" && mkdir "$link"
  done
  # Without fonts of these names GDI+ and DirectWrite draw no text at all.
  for font in "Segoe UI" Tahoma "MS Shell Dlg" "MS Shell Dlg 2" "Microsoft Sans Serif" Arial; do
    replace_font "$font" "Liberation Sans"
  done
  replace_font Consolas "Liberation Mono"
  touch "$WINEPREFIX/ready-2"
}

replace_font() {
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$1" /d "$2" /f >/dev/null 2>&1 </dev/null
}

display_processes=()

# start_display WIDTHxHEIGHT: a virtual screen with a window manager; sets DISPLAY. end_display ends both.
start_display() {
  local number=build/display.$$
  mkdir -p build
  Xvfb -displayfd 3 -screen 0 "$1x24" 3>"$number" >/dev/null 2>&1 &
  display_processes+=($!)
  while [ ! -s "$number" ]; do
    kill -0 "${display_processes[0]}" 2>/dev/null || return
    sleep 0.1
  done
  export DISPLAY=:$(cat "$number")
  rm "$number"
  openbox >/dev/null 2>&1 &
  display_processes+=($!)
  sleep 0.5
}

end_display() {
  local process
  for process in "${display_processes[@]}"; do kill "$process" 2>/dev/null; done
  display_processes=()
}
