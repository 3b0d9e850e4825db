# Takes the built programs in hand as a person would: a display and a session bus of its own, a fresh settings store,
# real key presses. To be sourced by a bash script, which then calls
#
#     phone_begin FOLDER-WITH-THE-PROGRAMS "$@"     once, first; runs the script again on a bus of its own
#     phone_start [ARGUMENT...]                     starts the program, by env, and waits for its window
#     phone_press KEY...                            presses keys, each once the screen rests
#     phone_picture FILE                            saves what the screen shows once it rests
#     phone_service [OPTION...]                     starts the stand-in service, in place of one that runs
#     phone_service_end SIGNAL                      ends it, and clears $phone_service_job
#     phone_stop                                    asks for the idle screen and waits for the end of the program
#
# Everything that was started ends with the script.

phone_begin() {
    programs=$(cd "$1" && pwd)
    shift
    if [ -z "${PHONE_HAS_BUS:-}" ]; then
        PHONE_HAS_BUS=1 exec dbus-run-session -- "$0" "$@"
    fi
    phone_dir=$(mktemp -d)
    phone_jobs=()
    trap phone_end EXIT
    trap 'exit 130' INT TERM
    export VISTANE_DB=$phone_dir/core.db VISTANE_LOG=$phone_dir/log VISTANE_HANDOVER=off
    export XDG_RUNTIME_DIR=$phone_dir DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nonexistent # not this machine's modem
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM
    export PATH=$programs:$PATH
    vistanectl scene load "$(dirname "${BASH_SOURCE[0]}")/../share/scenes/demo.json"

    mkfifo "$phone_dir/display"
    # Without auto-repeat, or a machine that is late with a key's release would press it again.
    Xvfb -displayfd 3 -screen 0 1280x1280x24 -r -nolisten tcp -noreset 3>"$phone_dir/display" 2>/dev/null &
    phone_jobs+=($!)
    local number
    read -r number <"$phone_dir/display"
    export DISPLAY=:$number
}

phone_end() {
    local job
    for job in "${phone_jobs[@]}"; do kill "$job" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$phone_dir"
}

# Waits until a command succeeds; fails after a minute.
phone_wait() {
    local end=$((SECONDS + 60))
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || { echo "waited in vain for: $*" >&2; return 1; }
        sleep 0.05
    done
}

# Its window is there and has the keys.
phone_find_window() {
    phone_window=$(xdotool search --onlyvisible --pid "$phone_program" 2>/dev/null | head -n 1)
    [ -n "$phone_window" ] && [ "$(xdotool getwindowfocus)" = "$phone_window" ]
}

phone_start() {
    env "$@" vistane-menu &
    phone_program=$!
    phone_jobs+=("$phone_program")
    phone_wait phone_find_window
    phone_rest
}

# The screen rests when two looks at it, a moment apart, see the same.
phone_look() { { maim -u -i "$phone_window" 2>/dev/null || true; } | md5sum; }
phone_rest() {
    local seen last=
    for ((i = 0; i < 40; i++)); do
        sleep 0.06
        seen=$(phone_look)
        [ "$seen" = "$last" ] && return 0
        last=$seen
    done
}

phone_press() {
    local key
    for key in "$@"; do
        xdotool key "$key"
        phone_rest
    done
}

phone_picture() { phone_rest; maim -u -i "$phone_window" "$1"; }

phone_stop() {
    vistanectl idle
    wait "$phone_program"
}

# Its output goes to $phone_dir/service.
phone_service() {
    phone_service_end TERM
    : >"$phone_dir/service" # or what the one before said would be read
    vistanectl service "$@" >>"$phone_dir/service" &
    phone_service_job=$!
    phone_jobs+=("$phone_service_job")
    phone_wait grep -q ready "$phone_dir/service"
}
phone_service_end() {
    [ -n "${phone_service_job:-}" ] || return 0
    kill -"$1" "$phone_service_job" 2>/dev/null || true
    wait "$phone_service_job" 2>/dev/null || true
    phone_service_job=
}
