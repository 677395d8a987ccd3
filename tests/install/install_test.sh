#!/usr/bin/env bash
# Installs the test build into a temporary prefix, or packs and unpacks it,
# and checks what the desktop, the shell and a user find there.
# Usage: install_test.sh layout|start|readonly|package BUILD SOURCE PROBE VERSION
# Exit code 77: skipped (a tool the case needs is missing).
set -euo pipefail
what=$1 build=$2 source=$3 probe=$4 version=$5

tmp=$(mktemp -d)
cleanup() {
  chmod -R u+w "$tmp" 2>/dev/null || true
  rm -rf "$tmp"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
expect() {  # NAME ACTUAL EXPECTED
  [ "$2" == "$3" ] || fail "$1: got '$2', expected '$3'"
}

# Whatever the program or Qt writes for the user goes below the temporary
# folder.
export HOME=$tmp/home XDG_CONFIG_HOME=$tmp/home/.config XDG_CACHE_HOME=$tmp/home/.cache
export XDG_RUNTIME_DIR=$tmp/runtime QT_QPA_PLATFORM=offscreen
unset XDG_DATA_HOME
mkdir -p "$HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"
cd "$tmp"

metainfo=example.brackhaven.Ferrydock.metainfo.xml
icon_sizes="16 32 48 64 128 256"
layout_files() {
  printf '%s\n' Dateien/la.rtf ascii.dat bin/ferrydock ferrydock index.html lang.db \
    share/applications/ferrydock.desktop "share/metainfo/$metainfo"
  for s in $icon_sizes; do echo "share/icons/hicolor/${s}x$s/apps/ferrydock.png"; done
}

install_to() {
  cmake --install "$build" --prefix "$1" >/dev/null
}

field() {  # NAME, from probe output on stdin
  sed -n "s/^$1=//p"
}

png_size() {  # width x height from the PNG header
  local b
  b=($(od -An -tu1 -j16 -N8 "$1"))
  echo "$(( (b[0] << 24) + (b[1] << 16) + (b[2] << 8) + b[3] ))x$(( (b[4] << 24) + (b[5] << 16) + (b[6] << 8) + b[7] ))"
}

# Starts the command of the menu entry with the given bin folder first on
# the PATH, as a desktop does, and checks that the program runs from
# PROGRAM_DIR with that folder's catalogue open.
start_from_menu_entry() {  # DESKTOP_FILE BIN_DIR PROGRAM_DIR
  local command pid i open=""
  command=$(sed -n 's/^Exec=//p' "$1")
  PATH="$2:$PATH" $command >"$tmp/program.log" 2>&1 &
  pid=$!
  for i in $(seq 100); do
    kill -0 "$pid" 2>/dev/null || { cat "$tmp/program.log" >&2; fail "the program ended at start"; }
    open=$(find "/proc/$pid/fd" -lname "$3/lang.db" 2>/dev/null || true)
    [ -n "$open" ] && break
    sleep 0.1
  done
  local exe
  exe=$(readlink "/proc/$pid/exe")
  kill "$pid"
  wait "$pid" 2>/dev/null || true
  expect "program started" "$exe" "$3/ferrydock"
  [ -n "$open" ] || fail "the program did not open $3/lang.db"
}

case $what in
layout)
  prefix=$tmp/prefix
  install_to "$prefix"
  expect "installed files" "$(cd "$prefix" && find . ! -type d | sed 's|^\./||' | sort)" "$(layout_files | sort)"
  [ -x "$prefix/ferrydock" ] || fail "ferrydock is not executable"
  expect "launcher" "$(readlink -f "$prefix/bin/ferrydock")" "$prefix/ferrydock"
  cmp "$prefix/lang.db" "$build/lang.db"
  for f in ascii.dat index.html Dateien/la.rtf; do cmp "$prefix/$f" "$source/data/$f"; done
  for s in $icon_sizes; do
    expect "icon ${s}" "$(png_size "$prefix/share/icons/hicolor/${s}x$s/apps/ferrydock.png")" "${s}x$s"
  done

  desktop=$prefix/share/applications/ferrydock.desktop
  meta=$prefix/share/metainfo/$metainfo
  expect "menu entry's command" "$(sed -n 's/^Exec=//p' "$desktop")" ferrydock
  expect "menu entry's icon" "$(sed -n 's/^Icon=//p' "$desktop")" ferrydock
  expect "categories" "$(sed -n 's/^Categories=//p' "$desktop")" "Network;FileTransfer;"
  expect "generic name" "$(sed -n 's/^GenericName=//p' "$desktop")" "FTP Client"
  for lang in de fr es; do grep -q "^Comment\[$lang\]=." "$desktop" || fail "no comment in $lang"; done
  grep -q '<launchable type="desktop-id">ferrydock.desktop</launchable>' "$meta" || fail "metainfo names another menu entry"
  grep -q "<release version=\"$version\"" "$meta" || fail "metainfo has no release $version"
  grep -q '<binary>ferrydock</binary>' "$meta" || fail "metainfo names another program"

  if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$desktop"
  else
    echo "desktop-file-validate not installed: menu entry not validated"
  fi
  if command -v appstreamcli >/dev/null; then
    appstreamcli validate --no-net "$meta"
  else
    echo "appstreamcli not installed: metainfo not validated"
  fi
  ;;

start)
  # The program and the probe beside it find everything in the installed
  # folder: its copies are marked, so one from the build can't pass.
  prefix=$tmp/prefix
  install_to "$prefix"
  cp "$probe" "$prefix/install-probe"
  printf 'INSTALLED\r\n' >>"$prefix/ascii.dat"
  sed -i 's/Licence Agreement/Licence Agreement (installed copy)/' "$prefix/Dateien/la.rtf"
  out=$("$prefix/install-probe")
  expect catalogue "$(field catalogue <<<"$out")" "$prefix/lang.db"
  expect languages "$(field languages <<<"$out")" "Deutsch|Français|English|Español"
  expect agreement "$(field agreement <<<"$out")" "Ferrydock – Licence Agreement (installed copy)"
  expect "catalogue text" "$(field ascii-title <<<"$out")" "ASCII list"
  # The folder can be written: ascii.dat stays the program folder's.
  expect "ascii.dat" "$(field ascii-file <<<"$out")" "$prefix/ascii.dat"
  shipped=$(tr -d '\r' <"$source/data/ascii.dat" | paste -sd'|')
  expect "ASCII list" "$(field ascii <<<"$out")" "$shipped|INSTALLED"
  expect "ASCII list saved" "$(field saved <<<"$out")" "$shipped|INSTALLED|ZZPROBE"
  grep -q '^ZZPROBE' "$prefix/ascii.dat" || fail "the list was not saved in the program folder"
  [ ! -e "$HOME/.local/share/ferrydock" ] || fail "a per-user copy was made beside a writable program folder"

  start_from_menu_entry "$prefix/share/applications/ferrydock.desktop" "$prefix/bin" "$prefix"
  ;;

readonly)
  # An installed folder the user can't write: the list lives in the user's
  # data folder, seeded from the installed one, and the installed one stays.
  prefix=$tmp/prefix
  install_to "$prefix"
  cp "$probe" "$prefix/install-probe"
  chmod -R a-w "$prefix"
  run=()
  if [ "$(id -u)" -eq 0 ]; then
    # Root writes anywhere: the probe runs as nobody.
    command -v setpriv >/dev/null || { echo "SKIPPED: setpriv is needed to leave root"; exit 77; }
    run=(setpriv --reuid=65534 --regid=65534 --clear-groups --)
    chmod 755 "$tmp"
    mkdir -p "$tmp/data"
    chown -R 65534:65534 "$HOME" "$tmp/data" "$XDG_RUNTIME_DIR"
  else
    mkdir -p "$tmp/data"
  fi
  shipped=$(tr -d '\r' <"$source/data/ascii.dat" | paste -sd'|')
  copy=$HOME/.local/share/ferrydock/ascii.dat

  out=$("${run[@]}" "$prefix/install-probe")
  expect "ascii.dat" "$(field ascii-file <<<"$out")" "$copy"
  expect "ASCII list seeded" "$(field ascii <<<"$out")" "$shipped"
  expect "ASCII list saved" "$(field saved <<<"$out")" "$shipped|ZZPROBE"
  cmp "$prefix/ascii.dat" "$source/data/ascii.dat"
  expect "per-user folder" "$(stat -c %a "$(dirname "$copy")")" 700
  grep -q $'^ZZPROBE\r$' "$copy" || fail "the per-user list lacks the new entry"

  # The next start keeps the user's list; the entry is there already.
  out=$("${run[@]}" "$prefix/install-probe")
  expect "ASCII list kept" "$(field ascii <<<"$out")" "$shipped|ZZPROBE"
  expect "ASCII list saved again" "$(field saved <<<"$out")" "$shipped|ZZPROBE"
  [ -n "$(field box <<<"$out")" ] || fail "no message for an entry that exists"

  # XDG_DATA_HOME moves the data folder, as the desktop's convention says.
  out=$(XDG_DATA_HOME=$tmp/data "${run[@]}" "$prefix/install-probe")
  expect "ascii.dat under XDG_DATA_HOME" "$(field ascii-file <<<"$out")" "$tmp/data/ferrydock/ascii.dat"
  expect "ASCII list seeded there" "$(field ascii <<<"$out")" "$shipped"
  ;;

package)
  command -v dpkg-deb >/dev/null || { echo "SKIPPED: no dpkg-deb, no Debian package"; exit 77; }
  command -v dpkg-shlibdeps >/dev/null || { echo "SKIPPED: no dpkg-shlibdeps (dpkg-dev)"; exit 77; }
  cpack -G DEB --config "$build/CPackConfig.cmake" -B "$tmp/package" >"$tmp/cpack.log" 2>&1 ||
    { cat "$tmp/cpack.log" >&2; fail "cpack"; }
  deb=$tmp/package/ferrydock_${version}_$(dpkg --print-architecture).deb
  [ -f "$deb" ] || fail "no $deb"
  expect package "$(dpkg-deb -f "$deb" Package)" ferrydock
  expect version "$(dpkg-deb -f "$deb" Version)" "$version"
  depends=$(dpkg-deb -f "$deb" Depends)
  for p in libqt6widgets6 libqt6sql6 libqt6sql6-sqlite libpoconet libglib2.0-0 libstdc++6; do
    [[ "$depends" == *"$p"* ]] || fail "Depends lacks $p: $depends"
  done

  expected=$( (layout_files | sed 's|^|/opt/ferrydock/|'
    echo /usr/bin/ferrydock
    echo /usr/share/applications/ferrydock.desktop
    echo "/usr/share/metainfo/$metainfo"
    for s in $icon_sizes; do echo "/usr/share/icons/hicolor/${s}x$s/apps/ferrydock.png"; done) | sort)
  actual=$(dpkg-deb --fsys-tarfile "$deb" | tar -t | grep -v '/$' | sed 's|^\./|/|' | sort)
  expect "package files" "$actual" "$expected"

  root=$tmp/root
  dpkg -x "$deb" "$root"
  for f in bin/ferrydock share/applications/ferrydock.desktop "share/metainfo/$metainfo"; do
    expect "/usr/$f" "$(readlink -f "$root/usr/$f")" "$(readlink -f "$root/opt/ferrydock/$f")"
  done
  start_from_menu_entry "$root/usr/share/applications/ferrydock.desktop" "$root/usr/bin" "$root/opt/ferrydock"
  ;;

*)
  fail "no case $what"
  ;;
esac
echo "ok: $what"
