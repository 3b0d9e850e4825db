#!/usr/bin/env bash
# The stand-in service, seen from the bus and from the settings.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

last() { vistanectl get "VtCore.DCD.RuntimeValues.$1"; }
# A service with these options, and a request to it.
serve() {
    phone_service "$@"
    forget
    vistanectl send EVENT_INITIATE_MANUAL_REFRESH
}

# outcome, result, stories in the settings, exact events of a run
run() {
    serve --outcome "$1" --step-ms 20 --items 7 --bytes 2100 --once
    exits 0 wait "$phone_service_job"
    vistanectl send EVENT_NAVIGATE # after all that the service has sent
    wait_for on_bus NAVIGATE
    same "$(sed -nE 's/^event\tEVENT_(NOTIFY_)?//p' "$phone_dir/watch" | tr '\t\n' ' ;')" "$4;NAVIGATE 0;"
    same "$(last LastUpdateResult), $(last ItemsDownloaded)" "$2, $3"
}
begun="INITIATE_MANUAL_REFRESH 0;NETWORK_UPDATE_STARTED 0;MANUAL_REFRESH_STATUS 4"
over="NETWORK_UPDATE_COMPLETED 0;MANUAL_REFRESH_STATUS"
memory() { echo "STORAGE_STATUS 0 param.free=$((680 - $1)) K param.total=680 K param.used=$1 K"; }
run queue "" 0 "INITIATE_MANUAL_REFRESH 0;QUEUE_IN_PROGRESS_ERROR 0"
run connect-error FAILED 0 "$begun;$(memory 0);$over 0"
run success SUCCESS 7 "$begun;MANUAL_REFRESH_STATUS 1;$(memory 2);$over 3"
same "$(last BytesDownloaded) $((($(date +%s) - $(last LastUpdateTime)) / 60))" "2100 0" # a minute ago at most
run download-error FAILED 7 "$begun;MANUAL_REFRESH_STATUS 1;$(memory 2);$over 2"

# A second request is refused and the run goes on; an abort ends it, and one that comes too late does nothing.
serve --step-ms 3600000
for event in INITIATE ABORT ABORT; do vistanectl send EVENT_${event}_MANUAL_REFRESH; done
wait_for grep -q CANCELLED "$phone_dir/service"
phone_service_end TERM
same "$(tr '\t\n' ' ;' <"$phone_dir/service")" "ready;started;status 4, connecting;refused;finished CANCELLED;"

# Ended in the middle of a run, it leaves no update behind that never completes.
for signal in TERM INT; do
    vistanectl set VtCore.DCD.RuntimeValues.LastUpdateResult SUCCESS
    serve --step-ms 3600000
    wait_for grep -q started "$phone_dir/service"
    kill -$signal "$phone_service_job"
    exits 0 wait "$phone_service_job"
    wait_for on_bus COMPLETED
    same "$(last LastUpdateResult)" CANCELLED
done

# At rest it never wakes up.
phone_service
switches() { cat /proc/"$phone_service_job"/task/*/status | grep voluntary_ctxt; }
settled() { local before; before=$(switches); sleep 1; [ "$before" = "$(switches)" ]; }
wait_for settled

# What cannot be meant is refused, and nothing is sent or waited for.
exits 1 vistanectl service # one runs already
phone_service_end TERM
for option in "--outcome never" "--outcome 0" "--step-ms -1" "--items many"; do exits 2 vistanectl service $option; done
DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere exits 4 vistanectl service
