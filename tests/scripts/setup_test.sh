#!/bin/sh
# What setting up installs: what isn't there as a command, whatever the project's folders are called; nothing else.
set -eu
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

command_named() { # command_named NAME LINE: a command that does LINE
    printf '#!/bin/sh\n%s\n' "$2" >"$folder/$1"
    chmod +x "$folder/$1"
}
command_named dirname 'echo scripts'
command_named id 'echo 0'
command_named env 'shift; "$@"'
command_named apt-get "echo \"\$*\" >>'$folder/installed'"

fail() {
    echo "failed: $1" >&2
    cat "$folder/installed" >&2
    exit 1
}
PATH=$folder scripts/setup.sh
for package in g++ cmake ninja-build python3 binutils; do
    grep -q "^install .* $package\( \|$\)" "$folder/installed" || fail "$package is installed where it is missing"
done

rm "$folder/installed"
for command in g++ cmake ninja python3 readelf; do
    command_named $command :
done
PATH=$folder scripts/setup.sh
if grep -q cmake "$folder/installed" 2>/dev/null; then fail "what is there isn't installed"; fi
echo "1 passed, 0 failed"
