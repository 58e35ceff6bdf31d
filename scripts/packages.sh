# shellcheck shell=sh disable=SC2034
# For the scripts beside it: what they need from the distribution, a copy of the project, a screen to run a test on, and
# paths as Wine has them.

# The words of $1 that aren't there: files are absolute paths, "pkg-config:NAME" is what it says, and everything else is
# a command, whatever the current folder has of that name.
missing_of() {
  for thing in $1; do
    case $thing in
      pkg-config:*) pkg-config --exists "${thing#pkg-config:}" 2>/dev/null || printf '%s ' "$thing" ;;
      /*) [ -e "$thing" ] || printf '%s ' "$thing" ;;
      *) command -v "$thing" >/dev/null || printf '%s ' "$thing" ;;
    esac
  done
}

# Installs packages. Needs Debian's package manager, and root or sudo.
install_packages() {
  sudo=
  [ "$(id -u)" = 0 ] || sudo=sudo
  $sudo apt-get update -q && $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "$@"
}

# Installs the packages in $2 unless all things in $1 are there. Ends the script if they can't be had.
require() {
  [ -z "$(missing_of "$1")" ] && return
  # shellcheck disable=SC2086 # a list
  install_packages $2
}

# The same for what can be done without: false, with $missing, if they can't be had. Asks nobody for a password.
have() {
  missing=$(missing_of "$1")
  if [ -n "$missing" ] && [ "$(id -u)" = 0 ] && command -v apt-get >/dev/null; then
    echo "installing: $2"
    # shellcheck disable=SC2086 # a list
    install_packages $2 >/dev/null 2>&1 || :
    missing=$(missing_of "$1")
  fi
  [ -z "$missing" ]
}

# The same for a test: ends the script as skipped then.
need() {
  have "$1" "$2" && return
  echo "skipped: not there and not to be had: $missing(packages: $2)"
  exit 0
}

# Copies what git has of the project into the folder $1.
copy_project() {
  mkdir -p "$1"
  git ls-files -z | tar -cf - --null -T - | tar -xf - -C "$1"
}

# Starts an X server of its own on a free display: $DISPLAY, and its process in $screen. It must not start anew whenever
# its last client goes: the next one would be turned away.
start_screen() {
  number=$(mktemp)
  Xvfb -noreset -displayfd 3 -screen 0 1280x1024x24 3>"$number" >/dev/null 2>&1 &
  screen=$!
  tries=0
  while [ ! -s "$number" ] && [ $tries -lt 100 ]; do
    sleep 0.1
    tries=$((tries + 1))
  done
  DISPLAY=:$(cat "$number")
  export DISPLAY
  rm -f "$number"
  tries=0
  until xdotool getdisplaygeometry >/dev/null 2>&1 || [ $tries -ge 100 ]; do # it may tell its name before it listens
    sleep 0.1
    tries=$((tries + 1))
  done
}

# A deck with more messages than the log holds, in $1.
write_deck() {
  { printf 'BEGIN BULK\nGRID,7,,1.5\n' && seq -f 'RBAR,%.0f' 250 && echo ENDDATA; } >"$1"
}

# Compares the output of a run by the keyboard: $1 what the host printed, $2 the path that it should have.
expect_done() {
  if [ "$(printf '%s' "$1" | tr -d '\r')" != "$(printf 'result: 0\npath: %s' "$2")" ]; then
    echo "failed: the host printed: $1"
    exit 1
  fi
}

# The absolute path $1 as Wine names it.
windows_path() { printf 'Z:%s' "$1" | tr / '\134'; }
