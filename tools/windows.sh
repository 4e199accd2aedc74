# For tools that work a program by keys on $DISPLAY; sourced, not run. Every wait ends with a message
# and status 1 after two minutes; nothing is decided by how long it takes.

# until_true WHAT COMMAND...: waits until the command succeeds.
until_true() {
    local what=$1
    shift
    for _ in $(seq 1200); do
        ! "$@" || return 0
        sleep 0.1
    done
    echo "${0##*/}: $what" >&2
    return 1
}

# Waits for a window whose title matches and prints its number.
window() {
    until_true "no window '$1' appeared" window_there "$1" || return
    xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1
}
window_there() { [ -n "$(xdotool search --onlyvisible --name "$1" 2>/dev/null)" ]; }

# Waits until the window that has the keyboard is one whose title matches.
active() {
    until_true "the window '$1' does not get the keyboard" active_is "$1" || return
    sleep 0.3 # the focus moves into it
}
active_is() { xdotool getactivewindow getwindowname 2>/dev/null | grep -q -- "$1"; }

keys() { xdotool key --delay 80 "$@"; }
window_gone() { ! window_there "$1"; }
