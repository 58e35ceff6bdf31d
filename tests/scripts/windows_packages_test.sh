#!/bin/sh
# The packages of build/windows: what they hold, what Windows is told of each binary, and what the command does out of
# them and after an installation, which leaves nothing when it is undone. For scripts/test_windows.sh, by its Wine.
set -eu
cd "$(dirname "$0")/../.."
. scripts/packages.sh

folder=$(mktemp -d)
environment=
restore() { [ -z "$environment" ] || wine reg add "$environment" /v Path /t REG_EXPAND_SZ /d "$before" /f >/dev/null; }
trap 'restore; rm -rf "$folder"' EXIT
fail() {
    printf 'failed: %s\n' "$1"
    exit 1
}

for times in 1 2; do # made again by another clock: the same bytes
    (cd build/windows && SOURCE_DATE_EPOCH=1700000000 TZ=UTC0 cpack -B "$folder/packages$times" >/dev/null)
    sleep 2 # the resolution of times in a zip archive
done
zip=$(echo "$folder"/packages1/*.zip)
installer=$(echo "$folder"/packages1/*.exe)
cmp "$zip" "$folder"/packages2/*.zip
cmp "$installer" "$folder"/packages2/*.exe

mkdir "$folder/zip"
(cd "$folder/zip" && cmake -E tar xf "$zip")
unpacked=$(echo "$folder"/zip/*)
binaries=$(cd "$unpacked" && find . -iname '*.exe' -o -iname '*.dll' | LC_ALL=C sort | tr '\n' ' ')
[ "$binaries" = "./bin/ConvertNastran.dll ./bin/Convertmsg.DLL ./bin/nas2zdt.dll ./bin/nas2zdt.exe " ] || fail "$binaries"
for file in lib/libConvertNastran.dll.a lib/libnas2zdt.dll.a lib/cmake/ConvertNastran/ConvertNastranConfig.cmake \
    include/ConvertNastran/ConvertFile.h include/nas2zdt/nas2zdt.h doc/README.md doc/examples/read_zdt.py LICENSE.txt; do
    [ -s "$unpacked/$file" ] || fail "$file isn't in the package"
done
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
for binary in "$installer" "$unpacked"/bin/*; do
    x86_64-w64-mingw32-windres "$binary" "$folder/resources.rc"
    for value in "FileVersion\", \"$version" "ProductVersion\", \"$version" "OriginalFilename\", \"${binary##*/}" \
        "FileDescription\", \"" "LegalCopyright\", \"$(grep '^Copyright' LICENSE)"; do
        grep -qF "VALUE \"$value" "$folder/resources.rc" || fail "$binary has no $value"
    done
done
for setting in 'longPathAware .*>true<' 'activeCodePage .*>UTF-8<'; do
    grep -aq "<$setting" "$unpacked/bin/nas2zdt.exe" || fail "the command's manifest has no $setting"
done

cp examples/portal_frame.dat "$folder"
convert() { # convert FOLDER: by the command that lies there, with the message library beside it
    rm -f "$folder/portal_frame.zdt"
    (cd "$folder" && wine "$1/bin/nas2zdt.exe" --no-warnings portal_frame.dat) | grep -q 'must be a NASTRAN bulk data deck'
    cmp "$folder/portal_frame.zdt" examples/portal_frame.zdt
}
convert "$unpacked"

installed="$folder/Program Files/a user's"
long=$(printf '%%SystemRoot%%' && seq -f ';C:\folder%.0f' 300 | tr -d '\n') # more than a text of the installer holds
value_of() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z_]* *//Ip"; }
path() { value_of "$environment" Path; }
known_version() { value_of "$root\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\ConvertNastran" DisplayVersion; }
menu() { find "$WINEPREFIX" -name 'ConvertNastran*.lnk'; }
install() { # install [/NoPath]
    # shellcheck disable=SC2046 # without quotes, blanks and all
    wine "$installer" /S /$mode "$@" /D=$(windows_path "$installed")
    [ -e "$installed/uninstall.exe" ] || fail "nothing was installed"
}
for mode in AllUsers CurrentUser; do
    case $mode in
        AllUsers) root=HKLM environment='HKLM\System\CurrentControlSet\Control\Session Manager\Environment' ;;
        *) root=HKCU environment='HKCU\Environment' ;;
    esac
    before=$(path)
    wine reg add "$environment" /v Path /t REG_EXPAND_SZ /d "$long" /f >/dev/null
    install /NoPath
    diff -r -x uninstall.exe "$installed" "$unpacked"
    [ "$(path)" = "$long" ] || fail "PATH is $(path) in spite of /NoPath"
    install # over what is there
    [ "$(path)" = "$long;$(windows_path "$installed")\\bin" ] || fail "PATH is $(path)"
    convert "$installed"
    [ "$(known_version)" = "$version" ] || fail "Windows doesn't know of the installation"
    [ -n "$(menu)" ] || fail "there is no start menu entry"
    wine "$installed/uninstall.exe" /S
    wineserver -w # it goes on in a copy of itself
    [ ! -e "$installed" ] || fail "left: $(find "$installed")"
    [ "$(path)" = "$long" ] || fail "PATH was left as $(path)"
    [ -z "$(known_version)$(menu)" ] || fail "left in the system: $(known_version) $(menu)"
    restore
done
