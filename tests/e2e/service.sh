#!/usr/bin/env bash
# The stand-in service, seen from the bus and from the settings.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

request() { vistanectl send EVENT_INITIATE_MANUAL_REFRESH; }
last() { vistanectl get "VtCore.DCD.RuntimeValues.$1"; }
memory() { echo "NOTIFY_STORAGE_STATUS 0 param.free=$((680 - $1)) K param.total=680 K param.used=$1 K"; }

# outcome, exact events of a run, its result, stories in the settings
run() {
    phone_service --outcome "$1" --step-ms 20 --items 7 --bytes 2100 --once
    forget
    request
    wait "$phone_service_job" || fail "$1: exit status $?"
    wait_for on_bus "$(tail -n 1 <<<"$2" | cut -d ' ' -f 1)"
    same "$(events)" "INITIATE_MANUAL_REFRESH 0"$'\n'"$2"
    same "$(last LastUpdateResult), $(last ItemsDownloaded)" "$3"
}
run queue "NOTIFY_QUEUE_IN_PROGRESS_ERROR 0" ", 0"
run connect-error "NOTIFY_NETWORK_UPDATE_STARTED 0
NOTIFY_MANUAL_REFRESH_STATUS 4
$(memory 0)
NOTIFY_NETWORK_UPDATE_COMPLETED 0
NOTIFY_MANUAL_REFRESH_STATUS 0" "FAILED, 0"
run success "NOTIFY_NETWORK_UPDATE_STARTED 0
NOTIFY_MANUAL_REFRESH_STATUS 4
NOTIFY_MANUAL_REFRESH_STATUS 1
$(memory 2)
NOTIFY_NETWORK_UPDATE_COMPLETED 0
NOTIFY_MANUAL_REFRESH_STATUS 3" "SUCCESS, 7"
same "$(last BytesDownloaded)" 2100
age=$(($(date +%s) - $(last LastUpdateTime)))
[ $age -ge 0 ] && [ $age -le 60 ] || fail "updated $age seconds ago"
run download-error "NOTIFY_NETWORK_UPDATE_STARTED 0
NOTIFY_MANUAL_REFRESH_STATUS 4
NOTIFY_MANUAL_REFRESH_STATUS 1
$(memory 2)
NOTIFY_NETWORK_UPDATE_COMPLETED 0
NOTIFY_MANUAL_REFRESH_STATUS 2" "FAILED, 7"

# A second request is refused and the run goes on; an abort ends it, and one that comes too late does nothing.
phone_service --step-ms 3600000
forget
request
request
vistanectl send EVENT_ABORT_MANUAL_REFRESH
vistanectl send EVENT_ABORT_MANUAL_REFRESH
wait_for grep -q CANCELLED "$phone_dir/service"
same "$(cat "$phone_dir/service")" "ready
started
status	4, connecting
refused
finished	CANCELLED"
same "$(last LastUpdateResult)" CANCELLED
wait_for on_bus COMPLETED
same "$(count NOTIFY_QUEUE_IN_PROGRESS_ERROR) $(count REFRESH_STATUS.[0-3]) $(count COMPLETED)" "1 0 1"

# Ended in the middle of a run, it leaves no update behind that never completes.
vistanectl set VtCore.DCD.RuntimeValues.LastUpdateResult SUCCESS
for signal in TERM INT; do
    phone_service --step-ms 3600000
    forget
    request
    wait_for grep -q started "$phone_dir/service"
    kill -$signal "$phone_service_job"
    wait "$phone_service_job" || fail "$signal: exit status $?"
    wait_for on_bus COMPLETED
    same "$(last LastUpdateResult)" CANCELLED
done

# At rest it never wakes up.
phone_service
switches() { cat /proc/"$phone_service_job"/task/*/status | grep voluntary_ctxt; }
settled() { local before; before=$(switches); sleep 1; [ "$before" = "$(switches)" ]; }
wait_for settled

# What cannot be meant is refused, and nothing is sent or waited for.
refuses() {
    local status=0
    vistanectl service "${@:2}" 2>"$phone_dir/error" || status=$?
    same "$status" "$1"
    [ -s "$phone_dir/error" ] || fail "$*: nothing said"
}
refuses 1 # one runs already
phone_service_end TERM
refuses 2 --outcome never
refuses 2 --outcome 0
refuses 2 --step-ms -1
refuses 2 --items many
DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere refuses 4
VISTANE_DB=/proc/nowhere/core.db refuses 3
