#!/bin/sh
# Runs a host and answers its dialogs by the keyboard: Enter for the notice, a path typed into the file dialog, Escape
# for the message list. Prints what the host printed.
#
#   typed_run.sh PATH PICTURES HOST...
#
# HOST is a program named host. PATH is typed as it stands. PICTURES is a name to which "-1.png" and so on are added, or empty for none.
set -eu
path=$1
pictures=$2
shift 2

output=$(mktemp)
"$@" >"$output" 2>/dev/null </dev/null &
host=$!
trap 'kill $host 2>/dev/null || :; rm -f "$output"' EXIT

known=" "
step=0

# Waits for a window that wasn't there before and gives it the keyboard.
next_window() {
  tries=0
  while [ $tries -lt 200 ]; do
    for window in $(xdotool search --onlyvisible --class '^host' 2>/dev/null); do
      case $known in *" $window "*) continue ;; esac
      known="$known$window "
      sleep 0.7 # until it is drawn
      xdotool windowfocus "$window" 2>/dev/null || continue
      step=$((step + 1))
      if [ -n "$pictures" ]; then import -window root "$pictures-$step.png"; fi
      return 0
    done
    tries=$((tries + 1))
    sleep 0.1
  done
  echo "no window came" >&2
  return 1
}

next_window
xdotool key Return
next_window
xdotool type "$(printf %.1s "$path")" # the first letter may open a field for the others
sleep 0.5
xdotool type --delay 15 "${path#?}"
sleep 0.5
if [ -n "$pictures" ]; then import -window root "$pictures-$step-typed.png"; fi
xdotool key Return
next_window
xdotool key Escape
wait $host || :
cat "$output"
