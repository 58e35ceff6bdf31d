#!/bin/sh
# Builds for Windows and tests what came of it under Wine, dialogs included. Exits 0 and says "skipped: ..." if a
# package that this needs can't be had. With PICTURES=FOLDER, pictures of the dialogs in each language are left there.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

need "cmake ninja x86_64-w64-mingw32-g++-posix wine makensis /usr/src/googletest /usr/x86_64-w64-mingw32/include/zlib.h Xvfb xdotool import" \
  "cmake ninja-build g++-mingw-w64-x86-64-posix googletest libz-mingw-w64-dev wine wine64 nsis xvfb xdotool imagemagick fonts-ipafont-gothic"

cmake --preset windows >/dev/null
cmake --build --preset windows -j"${JOBS:-2}"

echo "== each binary stands alone, but for the host that is linked to the library for programs"
for binary in build/windows/bin/*; do
  foreign=$(x86_64-w64-mingw32-objdump -p "$binary" | sed -n 's/.*DLL Name: //p' |
    grep -v -i -x -E '(advapi32|bcrypt|comctl32|comdlg32|gdi32|kernel32|msvcrt|nas2zdt|ole32|shell32|user32)\.dll' || :)
  if [ -n "$foreign" ]; then
    echo "failed: $binary needs $foreign"
    exit 1
  fi
done

echo "== each binary can lie anywhere, at addresses beyond 4 GiB, and runs no data"
for binary in build/windows/bin/*; do
  flags=$(x86_64-w64-mingw32-objdump -p "$binary" | sed -n 's/^DllCharacteristics[[:space:]]*//p')
  if [ $((0x${flags:-0} & 0x160)) -ne $((0x160)) ]; then
    echo "failed: $binary has the characteristics $flags"
    exit 1
  fi
done

echo "== each library exports what it should"
of_programs=$(sed -n 's/.*NAS2ZDT_CALL \(Nas2zdt[A-Za-z]*\)(.*/\1/p' nas2zdt/library/nas2zdt.h | sort | tr '\n' ' ')
for library in "ConvertNastran.dll: ConvertFile ConvertFile2" "Convertmsg.DLL: LoadStr" "nas2zdt.dll: ${of_programs% }"; do
  name=${library%%:*}
  exported=$(x86_64-w64-mingw32-objdump -p "build/windows/bin/$name" |
    sed -n '/Name Pointer/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p' | tr '\n' ' ')
  if [ "$name: $exported" != "$library " ]; then
    echo "failed: $name exports $exported"
    exit 1
  fi
done

folder=$(mktemp -d)
screen=
trap 'wineserver -k 2>/dev/null || :; if [ -n "$screen" ]; then kill "$screen" 2>/dev/null || :; fi; rm -rf "$folder"' EXIT
export WINEPREFIX="$PWD/build/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
start_screen
if [ ! -d "$WINEPREFIX" ]; then
  echo "== making a Windows"
  wineboot -i >/dev/null 2>&1
  # Without a window manager, or the keyboard doesn't move on to the next dialog.
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
  wineserver -w
fi

echo "== tests"
ctest --preset windows --no-tests=error

echo "== examples, byte for byte"
bin=$PWD/build/windows/bin
mkdir "$folder/été 日本"
for deck in examples/*.dat; do
  if [ ! -e "$deck" ]; then break; fi
  cp examples/*.dat "$folder/été 日本"
  name=$(basename "$deck" .dat)
  (cd "$folder/été 日本" && wine "$bin/nas2zdt.exe" "$name.dat" >/dev/null 2>&1)
  cmp "$folder/été 日本/$name.zdt" "examples/$name.zdt"
done

echo "== the library without dialogs"
(cd "$folder/été 日本" && rm grids.zdt && wine "$bin/library_host.exe" grids.dat grids.zdt | grep -q 'result: 0')
cmp "$folder/été 日本/grids.zdt" examples/grids.zdt

echo "== names of decks that aren't UTF-8, in programs whose code page is"
printf "BEGIN BULK\nINCLUDE 'GR\326.D'\nENDDATA\n" >"$folder/main.dat"
cp examples/grids.dat "$folder/GRÖ.D"
cp examples/grids.dat "$folder/été 日本/é日.dat"
(cd "$folder" && wine "$bin/nas2zdt.exe" --quiet --no-warnings --flatten main.dat)
cmp "$folder/main.zdt" examples/grids.zdt
(cd "$folder" && wine "$bin/library_host.exe" "été 日本/é日.dat" main.zdt | grep -q 'result: 0')

echo "== packages"
tests/scripts/windows_packages_test.sh

echo "== nothing is loaded from the current folder"
mkdir "$folder/alone"
cp examples/grids.dat "$bin/Convertmsg.DLL" "$folder"
cp "$bin/nas2zdt.exe" "$folder/alone"
messages() { (cd "$folder" && wine alone/nas2zdt.exe grids.dat); }
messages | grep -q 'DLL is not loaded'
mv "$folder/Convertmsg.DLL" "$folder/alone"
messages | grep -q 'must be a NASTRAN bulk data deck'

echo "== dialogs answered by the keyboard"
write_deck "$folder/deck.dat"
for language in C.UTF-8 de_DE.UTF-8 fr_FR.UTF-8 ja_JP.UTF-8 ko_KR.UTF-8; do
  printed=$(LC_ALL=$language tests/dialogs/typed_run.sh "$(windows_path "$folder/deck.dat")" \
    "${PICTURES:+$PICTURES/windows-$language}" wine "$bin/host.exe")
  expect_done "$printed" "$(windows_path "$folder/deck.zdt")"
  wineserver -w # the language is that of the first program
done

echo "all passed"
