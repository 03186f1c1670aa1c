#!/usr/bin/env bash
# Looks into the released programs: what makes a fault in them hard to use must be there, and no library may be needed
# that the package does not name. What the programs themselves do not show, the commands of their build tell.
#   hardening.sh COMPILE_COMMANDS.json PROGRAM ...
set -u
failures=0

expect() { # DESCRIPTION PATTERN TEXT
    grep -qE -- "$2" <<<"$3" && return
    echo "FAILED: $program: $1"
    failures=$((failures + 1))
}

program=$1
shift
sources=$(grep '"command"' "$program" | grep -E -- '-c [^ ]*/(src|tools)/')
expect "the commands can be read" '-D_FORTIFY_SOURCE' "$sources"
if weak=$(grep -v -- '-D_FORTIFY_SOURCE=3' <<<"$sources" | grep -oE '[^ ]*\.cpp' | head -3); [ -n "$weak" ]; then
    echo "FAILED: library calls are not checked at level 3 in" $weak
    failures=$((failures + 1))
fi

for program in "$@"; do
    header=$(readelf -hW "$program")
    segments=$(readelf -lW "$program")
    dynamic=$(readelf -dW "$program")
    symbols=$(readelf --dyn-syms -W "$program")
    expect "loads at any address" 'Type: +DYN' "$header"
    expect "its stack holds no code" 'GNU_STACK.* RW +0x' "$segments"
    expect "tables are read-only once it has started" 'GNU_RELRO' "$segments"
    expect "all its calls are bound at the start" 'BIND_NOW|Flags:.* NOW' "$dynamic"
    expect "overwritten stacks are noticed" '__stack_chk_fail' "$symbols"
    if [ "$(uname -m)" = x86_64 ]; then
        # What a pointer may lead to begins with this instruction.
        expect "jumps lead to marked places only" '^[0-9]{3,}$' "$(objdump -d "$program" | grep -c endbr64)"
    fi
    if grep -qE 'RPATH|RUNPATH' <<<"$dynamic"; then
        echo "FAILED: $program: looks for libraries in folders of its own"
        failures=$((failures + 1))
    fi
    others=$(grep NEEDED <<<"$dynamic" | grep -oE '\[.*\]' |
        grep -vE '\[lib(fmt|mimalloc|icui18n|icuuc|gsf-1|gobject-2\.0|glib-2\.0|xml2|bz2|stdc\+\+|gcc_s|m|c)\.so')
    if [ -n "$others" ]; then
        echo "FAILED: $program: needs" $others
        failures=$((failures + 1))
    fi
done
[ $failures = 0 ] && echo "all as expected"
exit $((failures > 0))
