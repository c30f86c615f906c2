#!/usr/bin/env bash
# Zarlo-TimeTable on a Debian 12 machine.
#   ./run.sh         install what is missing, build (Release) and start the program
#   ./run.sh test    install what is missing, build and run every test (offscreen)
set -euo pipefail
cd "$(dirname "$0")"

PACKAGES=(cmake ninja-build g++ ccache pkg-config qt6-base-dev libqt6sql6-sqlite libxlsxwriter-dev
          libsqlite3-dev libsodium-dev xvfb xauth poppler-utils unzip)

install_missing() {
    local missing=()
    for p in "${PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "Installing: ${missing[*]}"
        local sudo=""
        [ "$(id -u)" -ne 0 ] && sudo="sudo"
        $sudo apt-get update -qq
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
    fi
}

# build DIR TYPE [TARGET...]: configure and build; with targets, only those and what they need.
build() {
    local dir=$1 type=$2
    shift 2
    cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="$type" >/dev/null
    local targets=()
    for t in "$@"; do targets+=(--target "$t"); done
    cmake --build "$dir" -j "$(nproc)" "${targets[@]}"
}

install_missing
case "${1:-run}" in
    test)
        build build-test Debug
        cd build-test
        QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
        ;;
    run)
        # Only the program and its tool: the tests and benchmarks are built by ./run.sh test.
        build build Release zarlo-timetable ttcli
        exec ./build/src/app/zarlo-timetable
        ;;
    *)
        echo "usage: ./run.sh [test]" >&2
        exit 2
        ;;
esac
