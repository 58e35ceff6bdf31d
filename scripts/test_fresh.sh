#!/bin/sh
# Runs README's two commands, or those that are named alone, on a machine that has nothing yet: a bare Debian, made by
# debootstrap from the mirror that apt uses here, where root works without sudo. The sanitize build is left out for its
# time: it needs nothing more. Exits 0 and says "skipped: ..." where such a machine can't be made.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
release=bookworm

skip() {
    echo "skipped: $1"
    exit 0
}

# What is mounted and started by its arguments goes when they end, and is never seen from outside.
apart() { unshare --mount --propagation private --pid --fork --kill-child --mount-proc "$@"; }

[ "$(id -u)" = 0 ] || skip "not root"
need "apt-get debootstrap git unshare" "debootstrap git util-linux"
apart chroot / true 2>/dev/null || skip "chroot isn't allowed here"

work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
trap 'exit 1' HUP INT TERM
root=$work/root

apt-get update -qq || skip "apt reaches no mirror"
# shellcheck disable=SC2016 # apt puts in what they mean
apt-get indextargets --format 'deb $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
    grep -E " $release(-updates|-security)? main\$" | sort -u >"$work/sources" || :
mirror=$(awk -v release=$release '$3 == release { print $2; exit }' "$work/sources")
[ -n "$mirror" ] || skip "apt has no mirror of Debian $release here"
eval "$(apt-config shell http_proxy Acquire::http::Proxy https_proxy Acquire::https::Proxy)"
[ -z "${http_proxy:-}" ] || export http_proxy
[ -z "${https_proxy:-}" ] || export https_proxy

echo "== a bare Debian"
apart debootstrap --variant=minbase "$release" "$root" "$mirror" >"$work/log" 2>&1 || {
    tail -n 5 "$work/log"
    skip "debootstrap makes no root here"
}
cp "$work/sources" "$root/etc/apt/sources.list"
apt-config dump | grep '^Acquire::' >"$root/etc/apt/apt.conf.d/00acquire"
cp /etc/hosts "$root/etc/hosts"
echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io" # it won't outlive a power cut anyway
copy_project "$root/project"
for tool in cmake g++ sudo; do
    [ ! -e "$root/usr/bin/$tool" ] || { echo "failed: $tool is there from the start" >&2; exit 1; }
done

# shellcheck disable=SC2016 # its own arguments
fresh() {
    apart sh -euc 'mount -t proc proc "$1/proc"
        mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts" || echo "no terminals in the bare root"
        exec chroot "$@"' sh "$root" \
        env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} \
        sh -euc 'cd /project && "$@"' sh "$@"
}
[ $# -gt 0 ] || set -- "scripts/example.sh" "scripts/test.sh release"
for command; do
    echo "== $command"
    # shellcheck disable=SC2086 # a command and its argument
    fresh $command >"$work/log" 2>&1 || {
        tail -n 60 "$work/log"
        echo "failed on a bare Debian: $command" >&2
        exit 1
    }
    tail -n 10 "$work/log"
done
cmp "$root/project/build/example/grids.zdt" examples/grids.zdt
echo "$# passed, 0 failed"
