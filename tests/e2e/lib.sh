# What the end-to-end tests share. To be sourced first; $1 of the script is the folder with the programs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. scripts/phone.sh

fail() {
    echo "${BASH_SOURCE[-1]}:${BASH_LINENO[-2]}: $*" >&2
    for file in service watch log; do
        [ -s "$phone_dir/$file" ] && { echo "--- $file" >&2; tail -n 40 "$phone_dir/$file" >&2; }
    done
    exit 1
}

# The two are the same.
same() { [ "$1" = "$2" ] || fail "got \"$1\", wanted \"$2\""; }

wait_for() { phone_wait "$@" || fail "waited in vain for: $*"; }

gone() { ! kill -0 "$1" 2>/dev/null; }

# Starts to note what goes over the bus. forget() throws away what was noted, of the log, too.
watch_bus() {
    vistanectl watch >>"$phone_dir/watch" 2>"$phone_dir/watching" &
    phone_jobs+=($!)
    wait_for grep -q watching "$phone_dir/watching"
}
forget() {
    : >"$phone_dir/watch"
    : >"$VISTANE_LOG"
}
on_bus() { grep -qE "$1" "$phone_dir/watch"; }
in_log() { grep -qF "$1" "$VISTANE_LOG"; }
# The events so far, without their prefix.
events() { sed -n 's/^event\tEVENT_//p' "$phone_dir/watch" | tr '\t' ' '; }
count() { grep -c "$1" "$phone_dir/watch" || true; }

# Presses a key and waits until the screen shows something else and rests.
press() {
    local before
    for key in "$@"; do
        before=$(phone_look)
        phone_press "$key"
        wait_for looks_unlike "$before"
    done
    phone_rest
}
looks_like() { [ "$(phone_look)" = "$1" ]; }
looks_unlike() { [ "$(phone_look)" != "$1" ]; }
