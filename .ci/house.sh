# What ./run and ./check share: the packages a build needs, and steps that are silent unless they fail.
# Sourced by both, which have set `root`.

build_packages=(g++ cmake ninja-build pkg-config libcli11-dev nlohmann-json3-dev libedit-dev libgtest-dev
  libbenchmark-dev qt6-base-dev qt6-multimedia-dev
  fonts-dejavu-core libqt6svg6 qt6-wayland)  # what the window needs when it runs

if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

say() { printf '%s\n' "$*" >&2; }

# install_missing PACKAGE...: installs those that are not there, as root or through sudo.
install_missing() {
  local missing=() package
  if ! command -v dpkg-query >/dev/null; then
    say "This is no Debian: what is missing of $* has to be installed by hand."
    return 0
  fi
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      say "These packages are missing, and there is no sudo to install them with: ${missing[*]}"
      return 1
    fi
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  mkdir -p "$root/build"
  quietly "$root/build/install.log" "${as_root[@]}" apt-get update &&
    quietly "$root/build/install.log" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y --no-install-recommends "${missing[@]}"
}

# quietly LOG COMMAND...: runs it with its output in LOG, which is shown when it fails.
quietly() {
  local log=$1 status=0
  shift
  "$@" >"$log" 2>&1 || status=$?
  [ "$status" -eq 0 ] || { cat "$log" >&2; say "Failed: $* (the text above is also in $log)"; }
  return "$status"
}

# configure PRESET [OPTION...]
configure() {
  (cd "$root" && quietly "$root/build/configure-$1.log" cmake --preset "$@")
}

# make PRESET [TARGET...]
make() {
  local preset=$1 target targets=()
  shift
  for target in "$@"; do targets+=(--target "$target"); done
  (cd "$root" && quietly "$root/build/build-$preset.log" cmake --build --preset "$preset" -j "$(nproc)" "${targets[@]}")
}

# roll_for_profile: what a long day at the table does: every generator and bettor of the benchmarks, and the examples
# with everything written down.
roll_for_profile() {
  local bin=$root/build/release/bin day=$root/build/release/profile bettor example
  rm -rf "$day" && mkdir -p "$day" && "$bin/rollwick_bench" --signature || return
  for bettor in 0 1 2 3; do "$bin/rollwick_bench" --run "$bettor" 200000 || return; done
  for example in "$root"/examples/*.txt; do
    "$bin/rollwick" run "$example" --data "$day" --quiet --rolls 20000 --seed 1 --bankroll 10000 --set AllowNegBankroll=on \
      --events "$day/events.log" --record "$day/$(basename "$example" .txt).rol" --save "$day/game.crp" || return
  done
}

# make_by_profile: a release build that has watched its own rolls, once; it stays until build/release is removed.
make_by_profile() {
  configure release -DROLLWICK_PROFILE=collect &&
    make release rollwick rollwick_bench &&
    quietly "$root/build/profile.log" roll_for_profile &&
    configure release -DROLLWICK_PROFILE=use &&
    touch "$root/build/release/profile/done"
}

# build PRESET [TARGET...]: configures if that has not been done, and builds.
build() {
  mkdir -p "$root/build"
  if [ "$1" = release ]; then
    [ -e "$root/build/release/profile/done" ] || make_by_profile || return
  elif [ ! -e "$root/build/$1/build.ninja" ]; then
    configure "$1" || return
  fi
  make "$@"
}
