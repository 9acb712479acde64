# Sourced by demo, test, package, lint and bench, from the root folder: installs what is missing on Debian,
# configures and builds a preset. Whatever fails ends the script with one line on what to do.
# shellcheck shell=bash disable=SC2034

readonly kBuildPackages=(g++ cmake ninja-build libgtest-dev qt6-base-dev libqt6opengl6-dev
    qt6-tools-dev libgl-dev pkg-config python3 fonts-dejavu-core)
readonly kLayoutPackages=(clang-format)
readonly kSanitizePackages=(clang libclang-rt-dev)
readonly kWindowPackages=(xvfb xdotool)
readonly kLintPackages=(clang-tidy)
readonly kBenchPackages=(libbenchmark-dev)
readonly kComponentPackages=(cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-win32
    mingw-w64-tools libwine-dev googletest zip)
# With what Wine loads of the X client libraries when they are there.
readonly kWinePackages=(wine wine64 fonts-wine libxcomposite1 libxcursor1 libxfixes3 libxi6
    libxinerama1 libxrandr2 libxrender1)
readonly kLogs=build/logs

jobs_count() {
    local count
    count=$(nproc 2>/dev/null || echo 2)
    echo $((count < 2 ? 1 : count > 8 ? 8 : count))
}

say() { printf '== %s\n' "$*"; }

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

project_version() { sed -n 's/^project(VelmoraCalendar VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

is_installed() { [[ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)" == "install ok installed" ]]; }

# Runs a command, with variables before it, as root.
as_root() {
    if [[ $(id -u) == 0 ]]; then env "$@"; else sudo env "$@"; fi
}

# need_packages PACKAGE...: installs those that are missing.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "not a Debian system: taking for granted what $* provide"
        return
    fi
    local missing=() package
    for package in "$@"; do is_installed "$package" || missing+=("$package"); done
    if ((${#missing[@]} == 0)); then return; fi
    if [[ $(id -u) != 0 ]] && ! command -v sudo >/dev/null; then
        fail "missing packages; as root run: apt-get install ${missing[*]}"
    fi
    mkdir -p "$kLogs"
    say "installing ${missing[*]}"
    as_root DEBIAN_FRONTEND=noninteractive apt-get update >"$kLogs/apt.log" 2>&1 ||
        say "apt-get update failed, trying with the package lists that are here"
    as_root DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        "${missing[@]}" >>"$kLogs/apt.log" 2>&1 ||
        fail "could not install ${missing[*]}; the reason is at the end of $kLogs/apt.log"
}

# Ends with the files that are not laid out as .clang-format says, and with what mends them. That is
# the layout of Debian 12's version; a newer one has other ideas here and there.
check_layout() {
    local untidy
    untidy=$(git ls-files -z '*.cpp' '*.h' |
        xargs -0 -r -n 40 clang-format --dry-run --Werror 2>&1 |
        sed -n 's/:[0-9]*:[0-9]*: error: .*//p' | sort -u) || true
    if [[ -n $untidy ]]; then
        fail "not laid out by .clang-format; run: clang-format -i ${untidy//$'\n'/ }"
    fi
}

# The version is CMakeLists.txt's; what has to spell it out itself spells the same. The component's own
# is checked with its file.
check_version() {
    local version
    version=$(project_version)
    [[ $(sed -n 's/^## //p' CHANGELOG.md | head -n 1) == "$version" ]] ||
        fail "CHANGELOG.md does not begin with $version"
    grep -qF "name=\"VelmoraCalendar\" version=\"$version.0\"" docs/windows.md ||
        fail "docs/windows.md names another assembly than $version.0"
    local file
    for file in docs/designer.md examples/qt_installed/CMakeLists.txt; do
        grep -q "find_package(VelmoraCalendar ${version%.*} " "$file" ||
            fail "$file asks for another version than ${version%.*}"
    done
}

# configure_preset PRESET: when it has to.
configure_preset() {
    local preset=$1 folder=build/$1
    mkdir -p "$kLogs"
    if [[ ! -f $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
        say "configuring $folder"
        cmake --preset "$preset" >"$kLogs/configure-$preset.log" 2>&1 || {
            tail -n 20 "$kLogs/configure-$preset.log" >&2
            fail "cmake --preset $preset failed; the whole story is in $kLogs/configure-$preset.log"
        }
        touch "$folder/build.ninja"
    fi
}

# build_preset PRESET [TARGET...]: configures when it has to, then builds.
build_preset() {
    local folder=build/$1
    configure_preset "$1"
    shift
    say "building $folder"
    cmake --build "$folder" -j "$(jobs_count)" ${1:+--target "$@"} ||
        fail "the build of $folder failed; the first compiler message above says why"
}

# Ends what Wine keeps running for the tests' prefix, if anything.
end_wine() {
    [[ -d build/wine ]] || return 0
    WINEPREFIX=$PWD/build/wine wineserver -k 2>/dev/null || true
    WINEPREFIX=$PWD/build/wine wineserver -w 2>/dev/null || true
}

# Starts Wine without a display, as its tests have none, until the script ends: what it starts first
# decides for all that follows whether windows can be made. A program in a Wine that already runs
# starts at once, and leaves no system process behind that keeps its output open.
start_wine() {
    scripts/make-wine-prefix build/wine
    end_wine
    tail --pid=$$ -f /dev/null | env -u DISPLAY scripts/run-in-wine cmd >"$kLogs/wine.log" 2>&1 &
    env -u DISPLAY scripts/run-in-wine cmd /c exit >"$kLogs/wine.log" 2>&1  # when it has ended, Wine is up
}

# check_component BITS: the built component of that bitness, from the outside.
check_component() {
    local folder=build/windows$1/hosts/activex
    scripts/check-component "$folder/VelmoraCalendar.ocx" "$1" \
        "$folder/generated/VelmoraCalendar.tlb" "$(project_version)"
}

# Sets DISPLAY to a display of our own, which ends with the script that asks for it.
start_display() {
    local number_file=$kLogs/display
    rm -f "$number_file"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number_file" \
        >"$kLogs/xvfb.log" 2>&1 &
    display_pid=$!
    trap 'kill "$display_pid" 2>/dev/null || true' EXIT
    for _ in {1..100}; do
        if [[ -s $number_file ]]; then break; fi
        kill -0 "$display_pid" 2>/dev/null || break
        sleep 0.1
    done
    [[ -s $number_file ]] || fail "Xvfb did not start; the reason is in $kLogs/xvfb.log"
    DISPLAY=:$(<"$number_file")
    export DISPLAY
}
