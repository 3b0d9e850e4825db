# What the end-to-end tests share. To be sourced first; $1 of the script is the folder with the programs.
#
# A key waits in the display's queue until the program is ready for it, so nothing is waited for but what a key does.
# Only a dialog that the service brings up has to be in the log first.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. scripts/phone.sh

fail() {
    echo "${BASH_SOURCE[-1]}:${BASH_LINENO[-2]}: $*" >&2
    tail -n 40 "$phone_dir"/{service,watch,log} >&2
    exit 1
}
same() { [ "$1" = "$2" ] || fail "got \"$1\", wanted \"$2\""; }
wait_for() { phone_wait "$@" || fail "waited in vain for: $*"; }
gone() { ! kill -0 "$1" 2>/dev/null; }
# One by one: a display that is late gives two presses one time, which is how a held key looks.
press() { local key; for key; do xdotool key "$key"; done; }
# exit status, command
exits() { local status=0; "${@:2}" || status=$?; same "${*:2}: $status" "${*:2}: $1"; }
ends() { exits 0 wait "$phone_program"; }

# Starts to note what goes over the bus. forget() throws away what was noted, of the log, too.
watch_bus() {
    vistanectl watch >>"$phone_dir/watch" 2>"$phone_dir/watching" &
    phone_jobs+=($!)
    wait_for grep -q watching "$phone_dir/watching"
}
forget() { truncate -s 0 "$phone_dir/watch" "$VISTANE_LOG"; }
on_bus() { grep -qE "$1" "$phone_dir/watch"; }
in_log() { grep -qF "$1" "$VISTANE_LOG"; }
setting_is() { [ "$(vistanectl get "$1")" = "$2" ]; }
count() { grep -c "$1" "$phone_dir/watch" || true; }
