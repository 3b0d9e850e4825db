#!/usr/bin/env bash
# However the program ends, the service that was started beside it ends, too.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
export QT_QPA_PLATFORM=offscreen

child() { pgrep -P "$script" -f "$1"; }
both_run() { program=$(child vistane-menu) && service=$(child 'vistanectl service'); }
none_left() { gone "$program" && gone "$service" && gone "$script"; }
# Again and again, for the program may not listen yet.
closed() { vistanectl close && gone "$program"; }

# how to end it, exit status
ends() {
    scripts/with-service "$programs" &
    script=$!
    phone_jobs+=("$script")
    wait_for both_run
    eval "$1"
    exits "$2" wait "$script"
    wait_for none_left
}
ends 'kill -ABRT $program' 134
ends 'kill -TERM $script' 143
ends 'kill -KILL $service; wait_for closed' 0
ends 'kill -KILL $script; wait_for gone $service; kill $program' 137
