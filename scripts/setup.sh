# Shared by run, test and .ci/run: says what is being done, and installs packages that are missing.
# SPDX-License-Identifier: MIT

say() { printf '==> %s\n' "$*" >&2; }

build_packages="g++ cmake ninja-build ccache pkg-config libsodium-dev libicu-dev libsqlite3-dev libical-dev libfmt-dev libsdbus-c++-dev libsystemd-dev libcli11-dev nlohmann-json3-dev gettext qt6-base-dev qt6-multimedia-dev"
picture_packages="fonts-dejavu-core fonts-noto-cjk fonts-lohit-deva fonts-tlwg-loma-otf"
test_packages="clang libclang-rt-14-dev qt6-translations-l10n at-spi2-core gir1.2-atspi-2.0 python3-gi libgtest-dev libgmock-dev clang-format python3 xvfb xdotool xauth xclip imagemagick poppler-utils xdg-utils dbus-daemon pulseaudio pulseaudio-utils dunst libglib2.0-bin fcitx5 fcitx5-anthy fcitx5-frontend-qt6"
check_packages="clang-tidy libbenchmark-dev dpkg-dev lintian desktop-file-utils appstream shared-mime-info man-db doxygen"

# need_packages PACKAGE...: installs those that aren't there, and asks nothing where all are.
need_packages() {
    local missing="" package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    local as_root=""
    [ "$(id -u)" = 0 ] || as_root=sudo
    say "installing:$missing"
    if ! { $as_root apt-get update -q && DEBIAN_FRONTEND=noninteractive \
           $as_root apt-get install -q -y --no-install-recommends $missing; } >&2; then
        say "these packages could not be installed:$missing"
        return 2
    fi
}

# build PRESET [CMAKE-OPTION...] [-- TARGET...]: configures and builds a preset, with ninja's own progress.
build() {
    local preset=$1
    shift
    local options=()
    while [ $# -gt 0 ] && [ "$1" != -- ]; do options+=("$1"); shift; done
    [ $# -eq 0 ] || shift
    say "configuring build/$preset"
    cmake --preset "$preset" "${options[@]}" >&2 || return 2
    say "building build/$preset (the first time takes some minutes)"
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"} >&2 || return 2
}
