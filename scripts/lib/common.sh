# shellcheck shell=bash
# Shared by the scripts: where the tree is, messages, packages, configuring and building. To be sourced.

# shellcheck disable=SC2034
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

# Compiled code is shared between trees in different places.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

say() { printf '%s\n' "$*" >&2; }

die()
{
    say "$(basename "$0"): $*"
    exit 1
}

# The comment at the head of a script.
print_usage() { sed '1d;/^#/!Q;s/^# \{0,1\}//' "$1"; }

# Qt wants a UTF-8 locale and says so on every start otherwise.
use_utf8_locale()
{
    case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
    *UTF-8 | *utf8) ;;
    *) export LC_ALL=C.UTF-8 ;;
    esac
}

# configure PRESET [cmake arguments]: quiet unless it fails.
configure()
{
    local preset=$1 log
    shift
    log=$(mktemp)
    if ! (cd "$root" && cmake --preset "$preset" "$@") >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build PRESET [targets]: one status line on a terminal, only problems elsewhere.
build()
{
    local preset=$1 quiet=()
    shift
    [ -t 1 ] || quiet=(--quiet)
    ninja -C "$root/build/$preset" "${quiet[@]}" "$@"
}

# make_packages PRESET FOLDER: Debian packages of what a preset has built; quiet unless it fails.
make_packages()
{
    local work log
    work=$(mktemp -d)
    log=$work/log
    mkdir -p "$2"
    if ! cpack --config "$root/build/$1/CPackConfig.cmake" -B "$work" >"$log" 2>&1 \
        || ! mv "$work"/*.deb "$2"; then
        cat "$log" >&2
        rm -rf "$work"
        return 1
    fi
    rm -rf "$work"
}
