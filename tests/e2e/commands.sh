#!/usr/bin/env bash
# Every command tells what it does, and refuses what it does not know before it does anything.
cd "$(dirname "$0")/../.."
for command in ./run ./test bench/run scripts/{build,fuzz,install-packages,lint,memcheck,mutate,package,tour}; do
    [[ $("$command" --help) == *"${command##*/}"* ]] || { echo "$command --help does not name it"; failed=1; }
    said=$("$command" --sideways 2>&1)
    [[ $?:$said == 2:*--sideways* ]] || { echo "$command --sideways: $said"; failed=1; }
done
exit ${failed:-0}
