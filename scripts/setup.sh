# Sourced by demo, test, package, lint and bench, from the root folder: installs what is missing on Debian,
# configures and builds a preset. Whatever fails ends the script with one line on what to do.
# shellcheck shell=bash disable=SC2034

readonly kBuildPackages=(g++ cmake ninja-build libgtest-dev qt6-base-dev libqt6opengl6-dev
    qt6-tools-dev qt6-l10n-tools libgl-dev pkg-config python3 fonts-dejavu-core)
readonly kLayoutPackages=(clang-format)
readonly kSanitizePackages=(clang libclang-rt-dev)
# With an accessibility bus and a reader on it.
readonly kWindowPackages=(xvfb xdotool dbus at-spi2-core python3-pyatspi gir1.2-atspi-2.0)
readonly kLintPackages=(clang-tidy)
readonly kBenchPackages=(libbenchmark-dev)
readonly kComponentPackages=(cmake ninja-build g++-mingw-w64-{x86-64,i686}-{posix,win32}
    mingw-w64-tools libwine-dev googletest python3 zip)
# With what Wine loads of the X client libraries when they are there.
readonly kWineLibraries=(fonts-wine libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1
    libxrandr2 libxrender1)
readonly kWinePackages=(wine wine64 "${kWineLibraries[@]}")
# A Debian with a 32-bit Wine, kept for all clones, where the machine cannot have that beside its own.
readonly kWine32Root=${XDG_CACHE_HOME:-$HOME/.cache}/velmora-calendar/wine32
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

has_wine32_package() { [[ -x /usr/lib/wine/wine ]]; }

# Whether 32-bit programs can be run, as they are here.
has_wine32() { WINEDEBUG=-all scripts/wine32 wine --version >/dev/null 2>&1; }

# Whether the machine's packages allow a 32-bit Wine beside them, which is asked of lists apart from
# the machine's: nothing of it is changed.
wine32_resolves() {
    local lists=$PWD/build/wine32-lists options resolves=true
    mkdir -p "$lists/partial"
    options=(-o "APT::Architectures::=$(dpkg --print-architecture)" -o APT::Architectures::=i386
        -o "Dir::State::Lists=$lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache=
        -o APT::Sandbox::User=root)
    {
        as_root apt-get "${options[@]}" update &&
            as_root apt-get "${options[@]}" install -s --no-install-recommends wine32:i386
    } >>"$kLogs/wine32.log" 2>&1 || resolves=false
    as_root rm -rf "$lists"
    $resolves
}

# make_wine32_root: from the archive that the machine's own apt reads.
make_wine32_root() {
    need_packages debootstrap
    local codename mirror packages
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' \
        "Codename: $codename" 'Component: main' | head -n 1)
    printf -v packages '%s,' wine wine32 "${kWineLibraries[@]}"
    mkdir -p "$(dirname "$kWine32Root")"
    as_root rm -rf "$kWine32Root"
    as_root debootstrap --arch=i386 --variant=minbase --include="${packages%,}" \
        "$codename" "$kWine32Root" "$mirror" >>"$kLogs/wine32.log" 2>&1 || return
    as_root rm -rf "$kWine32Root"/var/{cache/apt,lib/apt/lists}
    as_root touch "$kWine32Root/ready"
}

# Gets a 32-bit Wine, for good, unless there is one: as a package beside the machine's own where those
# allow it, else with a small Debian of its own, for a gigabyte and five minutes.
need_wine32() {
    ! has_wine32 || return 0
    command -v apt-get >/dev/null || fail "no Debian system: install a Wine for 32-bit programs"
    mkdir -p "$kLogs"
    say "getting a 32-bit Wine; $kLogs/wine32.log tells how it goes"
    if wine32_resolves; then
        as_root dpkg --add-architecture i386
        need_packages wine32:i386
    else
        make_wine32_root || fail "debootstrap failed; the reason is at the end of $kLogs/wine32.log"
    fi
    has_wine32 || fail "the 32-bit Wine does not start: scripts/wine32 wine --version"
}

# start_wine [--32]: starts Wine without a display, as its tests have none, until the script ends:
# what it starts first decides for all that follows whether windows can be made. A program in a Wine
# that already runs starts at once, and leaves no system process behind that keeps its output open.
start_wine() {
    local prefix=$PWD/build/wine${1:+32} server=(${1:+scripts/wine32} wineserver) option
    scripts/make-wine-prefix "$@" "$prefix"
    for option in -k -w; do WINEPREFIX=$prefix "${server[@]}" $option 2>/dev/null || true; done
    tail --pid=$$ -f /dev/null | env -u DISPLAY scripts/run-in-wine "$@" cmd >"$kLogs/wine.log" 2>&1 &
    # When it has ended, Wine is up.
    env -u DISPLAY scripts/run-in-wine "$@" cmd /c exit >"$kLogs/wine.log" 2>&1
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
