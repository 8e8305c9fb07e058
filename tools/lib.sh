# shellcheck shell=bash
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
#
# What the scripts share; to be sourced.

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# step TITLE COMMAND...: names the step, runs it, says how long it took; a failure ends the script.
step() {
    local title=$1 began=$SECONDS
    shift
    printf '==> %s\n' "$title"
    "$@" || die "Tovarin: this step failed: $title"
    printf '    took %d s\n' $((SECONDS - began))
}

# configure_and_build PRESET [cmake --build argument]...
configure_and_build() {
    cmake --preset "$1" && cmake --build --preset "$@" --parallel "$(nproc)"
}
