#!/usr/bin/env bash
# However the program ends, the service that was started beside it ends, too.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
export QT_QPA_PLATFORM=offscreen

start() {
    scripts/with-service "$programs" &
    script=$!
    phone_jobs+=("$script")
    wait_for both_run
}
child() { pgrep -P "$script" -f "$1"; }
both_run() { program=$(child vistane-menu) && service=$(child 'vistanectl service'); }
none_left() { gone "$program" && gone "$service" && gone "$script"; }

# Again and again, for the program may not listen yet.
closed() { vistanectl close && gone "$program"; }

# how to end it, exit status
ends() {
    start
    eval "$1"
    local status=0
    wait "$script" || status=$?
    same "$1: $status" "$1: $2"
    wait_for none_left
}
ends 'wait_for closed' 0
ends 'kill -ABRT $program' 134
ends 'kill -KILL $program' 137
ends 'kill -TERM $script' 143
ends 'kill -KILL $service; wait_for closed' 0

start
kill -KILL "$script"
wait_for gone "$service"
kill "$program"
