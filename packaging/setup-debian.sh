#!/bin/bash
# Installs the Debian packages that a command of the Makefile needs, and says which. Does
# nothing, quickly, if all are there.
#
#   setup-debian.sh run|test|sanitize|fuzz|bench|package|lint|all ...

set -u

# What every build needs.
readonly build=(
    g++ cmake ninja-build ccache pkg-config python3 fp-utils
    libwxgtk3.2-dev libpugixml-dev libsqlite3-dev zlib1g-dev libmd-dev libglib2.0-dev)

# What windows need to look as they should.
readonly look=(fonts-dejavu-core adwaita-icon-theme librsvg2-common)

# A virtual display with a window manager, and looking at it.
readonly display=(xvfb openbox xauth x11-utils xdotool imagemagick)

# What a screen reader asks a program through.
readonly assistive=(at-spi2-core dbus-daemon python3-gi)

readonly test=("${build[@]}" "${look[@]}" "${display[@]}" "${assistive[@]}"
    libgtest-dev libgmock-dev libxml2-utils locales openssl unzip)
readonly fuzz=("${build[@]}" clang-14 libclang-rt-14-dev)
readonly bench=("${build[@]}" "${look[@]}" "${display[@]}" libbenchmark-dev)
readonly lint=("${test[@]}" clang-format-14 clang-tidy-14)

usage()
{
    echo "usage: $0 run|test|sanitize|fuzz|bench|package|lint|all ..." >&2
    exit 2
}

[ $# -gt 0 ] || usage
wanted=()
for group in "$@"; do
    case $group in
        run)
            wanted+=("${build[@]}" "${look[@]}")
            [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || wanted+=("${display[@]}")
            ;;
        test | sanitize) wanted+=("${test[@]}") ;;
        fuzz) wanted+=("${fuzz[@]}") ;;
        bench) wanted+=("${bench[@]}") ;;
        package) wanted+=("${build[@]}") ;;
        lint) wanted+=("${lint[@]}") ;;
        all) wanted+=("${lint[@]}" "${fuzz[@]}" "${bench[@]}") ;;
        *) usage ;;
    esac
done

# Without Debian's package manager the best that can be done is to name what is needed.
if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This is not a Debian system. These packages, or what corresponds to them, are needed:" >&2
    printf '  %s\n' "${wanted[@]}" | sort -u >&2
    exit 1
fi

installed=$(dpkg-query --show --showformat='${db:Status-Abbrev} ${Package}\n' | sed -n 's/^.i. *//p')
mapfile -t missing < <(printf '%s\n' "${wanted[@]}" | sort -u | grep -vxF -e "$installed")
[ ${#missing[@]} -gt 0 ] || exit 0

asRoot=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Missing packages, and neither root nor sudo to install them: ${missing[*]}" >&2
        exit 1
    fi
    asRoot=(sudo)
fi

echo "Installing: ${missing[*]}"
"${asRoot[@]}" apt-get update || exit 1
"${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install --yes --no-install-recommends "${missing[@]}" || exit 1
