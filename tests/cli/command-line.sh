#!/usr/bin/env bash
# Runs the built program as its users do.
#   command-line.sh TOOL BUNDLE TEMPLATE
set -u
tool=$1
bundle=$2
template=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME="$folder/config" TZ=UTC
failures=0

fail() {
    echo "FAILED: $1"
    cat "$folder/log"
    failures=$((failures + 1))
}

# Runs the tool; its log goes to a file, and nothing may come out on standard output.
run() {
    "$tool" "$@" >"$folder/out" 2>"$folder/log"
    status=$?
    [ $status = 0 ] || fail "exit status $status of: $*"
    [ ! -s "$folder/out" ] || fail "standard output of: $*"
}

expect() { grep -qE -- "$1" "$folder/log" || fail "no log line matches: $1"; }

# A log line is a time stamp, the process and the text.
stamp='^[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\.[0-9]{3} Brackwater\[[0-9]+\] '

run
expect "${stamp}Brackwater Runner\$"
expect "${stamp}Exception: CommandLineArgumentException\$"
expect '^Too few arguments\. Usage:$'
expect "^  Brackwater --template-path <MPP_template_path> --input-list"
expect "${stamp}Final clean up\.\$"

run --template-path "$template" "$bundle" "$folder/House.mpp"
expect "${stamp}### Exporter SUCCEEDED\.\$"
expect 'WARINING: Baseline "name="Timber frame"" will not be exported'
[ -s "$folder/House.mpp" ] || fail "no output"

# The example exports wherever its reader lives.
for zone in America/New_York Europe/Berlin Asia/Kolkata Asia/Tokyo Australia/Sydney Pacific/Auckland Pacific/Honolulu; do
    TZ=$zone run --template-path "$template" "$bundle" "$folder/Zone.mpp"
    expect "${stamp}### Exporter SUCCEEDED\.\$"
done

# A log whose reader went away does not stop the export.
rm -f "$folder/Closed.mpp"
: >"$folder/log"
"$tool" --template-path "$template" "$bundle" "$folder/Closed.mpp" 2>&1 >/dev/null | true
for _ in $(seq 100); do
    [ -s "$folder/Closed.mpp" ] && break
    sleep 0.1
done
[ -s "$folder/Closed.mpp" ] || fail "the export died with the reader of its log"

[ $failures = 0 ] && echo "all as expected"
exit $((failures > 0))
