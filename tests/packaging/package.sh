#!/usr/bin/env bash
# Installs the build into an empty folder, builds the Debian package, unpacks it into another, and uses both.
#   package.sh SOURCE_FOLDER BUILD_FOLDER CMAKE CPACK
set -u
source=$1
build=$2
cmake=$3
cpack=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME="$folder/config" TZ=UTC LC_ALL=C
failures=0

fail() {
    echo "FAILED: $1"
    failures=$((failures + 1))
}

# Every file that a document in a folder links to is there.
expect_links() {
    local document target
    while IFS=: read -r document target; do
        [ -e "$(dirname "$document")/$target" ] || fail "$document links to $target, which is not there"
    done < <(grep -roP --include='*.md' '\]\(\K[^)#:]+' "$1")
}

# All that a user needs stands below the prefix and works from there.
use() {
    local prefix=$1 page out program
    for program in brackwater Brackwater mppinspect make-template; do
        [ -x "$prefix/bin/$program" ] || fail "no program $program in $prefix"
        page="$prefix/share/man/man1/$program.1.gz"
        [ -s "$page" ] || fail "no manual page $page"
        out=$(zcat "$page" | groff -man -Tutf8 -ww -z 2>&1)
        [ -z "$out" ] || fail "manual page $program.1: $out"
    done
    for file in bash-completion/completions/{brackwater,Brackwater,mppinspect,make-template} \
        zsh/vendor-completions/_{brackwater,Brackwater,mppinspect,make-template} brackwater/Template.mpp \
        doc/brackwater/{copyright,changelog.gz,changelog.Debian.gz,README.md,docs/fidelity.md}; do
        [ -s "$prefix/share/$file" ] || fail "no $file in $prefix/share"
    done
    for program in brackwater Brackwater mppinspect make-template; do
        bash -n "$prefix/share/bash-completion/completions/$program" || fail "completion of $program"
    done
    expect_links "$prefix/share/doc/brackwater"

    out="$folder/$(basename "$prefix").mpp"
    "$prefix/bin/Brackwater" --template-path "$prefix/share/brackwater/Template.mpp" \
        "$prefix/share/doc/brackwater/examples/House.zelb" "$out" 2>"$folder/log"
    grep -q '### Exporter SUCCEEDED' "$folder/log" || fail "export with the installed template: $(cat "$folder/log")"
    "$prefix/bin/brackwater" -q "$prefix/share/doc/brackwater/examples/House.zelb" -f -o "$out" ||
        fail "export with the template that brackwater finds by itself"
    "$prefix/bin/mppinspect" --tasks "$out" | grep -q 'Structural calculation' || fail "mppinspect shows no task of the export"
    "$prefix/bin/make-template" "$folder/made.mpp" && cmp -s "$folder/made.mpp" "$prefix/share/brackwater/Template.mpp" ||
        fail "make-template makes another template than the installed one"
}

# Every option that a program tells in its usage stands in its manual page and its completions, and no other.
options_of() { grep -oE -- '--[a-z-]+' | sort -u | tr '\n' ' '; }
same_options() {
    local told=$1 place=$2 found
    found=$(zcat -f "$place" | sed 's/\\-/-/g' | options_of)
    [ "$found" = "$told" ] || fail "options in $place: '$found', in the usage: '$told'"
}
compare_options() {
    local prefix=$1 told program
    for program in brackwater mppinspect make-template; do
        told=$("$prefix/bin/$program" --help | options_of)
        same_options "$told" "$prefix/share/man/man1/$program.1.gz"
        same_options "$told" "$prefix/share/zsh/vendor-completions/_$program"
    done
    told=$("$prefix/bin/Brackwater" 2>&1 | options_of)
    same_options "$told" "$prefix/share/man/man1/Brackwater.1.gz"
    same_options "$told" "$prefix/share/zsh/vendor-completions/_Brackwater"
}

"$cmake" --install "$build" --prefix "$folder/installed" >"$folder/log" 2>&1 || fail "cmake --install: $(cat "$folder/log")"
use "$folder/installed"
compare_options "$folder/installed"

(cd "$folder" && "$cpack" --config "$build/CPackConfig.cmake" -B "$folder/package") >"$folder/log" 2>&1 ||
    fail "cpack: $(cat "$folder/log")"
package=$(find "$folder/package" -maxdepth 1 -name 'brackwater_*.deb')
[ -n "$package" ] || { fail "no package: $(cat "$folder/log")"; exit 1; }
dpkg-deb -x "$package" "$folder/unpacked"
use "$folder/unpacked/usr"

# The package depends on what its programs link, once each, and on nothing else.
depends=$(dpkg-deb -f "$package" Depends | tr ',' '\n' | sed -E 's/^ *([^ ]+).*/\1/' | sort)
linked=$(objdump -p "$folder"/unpacked/usr/bin/* | awk '$1 == "NEEDED" { print $2 }' | sort -u |
    while read -r library; do dpkg -S "*/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/$library"; done | cut -d: -f1 | sort -u)
[ "$depends" = "$linked" ] || fail "the package depends on: ${depends//$'\n'/ }; it links: ${linked//$'\n'/ }"
dpkg-deb -f "$package" Depends | grep -q 'libgsf-1-114 (>= 1.14.50-1+deb12u1)' || fail "any libgsf would do"
[ "$(dpkg-parsechangelog -l "$source/packaging/changelog" -S Version)" = "$(dpkg-deb -f "$package" Version)" ] ||
    fail "packaging/changelog does not begin with the version of the package"
dpkg-deb -c "$package" | awk '$2 != "root/root" || $1 !~ /^(d|-)rwxr-xr-x$|^-rw-r--r--$/' | grep . &&
    fail "owners and modes of the package"

[ $failures = 0 ] && echo "installed and unpacked: both work"
exit $((failures > 0))
