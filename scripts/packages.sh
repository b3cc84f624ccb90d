# Installs packages that are missing; sourced by the other scripts. All are Debian's but one of npm.

# take_no_install ARGUMENT...: understands --no-install as the only argument; ends the script on any other.
take_no_install() {
    case $* in
    '') ;;
    --no-install)
        install_missing() { :; }
        install_sarif_schema() { :; }
        install_node() { :; }
        ;;
    *)
        echo "usage: $0 [--no-install]" >&2
        exit 2
        ;;
    esac
}

# install_missing PACKAGE...: needs root or sudo only when something is missing.
install_missing() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then as_root=(sudo -n); fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get -o DPkg::Lock::Timeout=300 update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# install_node: what builds the viewer of the report. Debian's is installed only where there is none: a node from
# elsewhere stays as it is.
install_node() {
    command -v node >/dev/null || install_missing nodejs
    command -v npm >/dev/null || install_missing npm
}

# install_sarif_schema: the schema of SARIF, as its maker publishes it with the tool for that format, into
# build/npm. Nothing of the package is run.
install_sarif_schema() {
    local source=tests/tools/schemas there=build/npm
    cmp -s "$source/package-lock.json" "$there/installed" && return 0
    install_node
    mkdir -p "$there"
    cp "$source/package.json" "$source/package-lock.json" "$there"
    (cd "$there" && npm ci --ignore-scripts --no-audit --no-fund --silent)
    cp "$source/package-lock.json" "$there/installed"
}

build_packages=(g++ cmake ninja-build libcctbx-dev)
tools_packages=(libcli11-dev nlohmann-json3-dev libtomlplusplus-dev libxxhash-dev python3)
test_packages=("${build_packages[@]}" "${tools_packages[@]}" zsh fish libgtest-dev clang-format clang-tidy python3 dpkg-dev groff-base
    python3-vtk9 python3-meshio python3-pandas python3-numpy python3-matplotlib python3-build python3-setuptools python3-wheel
    python3-pip mypy vim libonig5 python3-jsonschema python3-rfc3987 chromium)
picture_packages=(python3-vtk9 libgl1-mesa-dri xvfb xauth)
windows_packages=("${build_packages[@]}" "${tools_packages[@]}" googletest
    g++-mingw-w64-x86-64-win32 wine wine64 xvfb xauth)
bench_packages=("${build_packages[@]}" python3 time valgrind)
fuzz_packages=("${build_packages[@]}" nlohmann-json3-dev libtomlplusplus-dev python3 clang libclang-rt-14-dev llvm-14)
