# Installs what packages.txt lists and this machine lacks. Sourced by run and test.

install_packages() {
    local list=$1 missing=() package sudo=()
    while read -r package; do
        case $package in ''|'#'*) continue ;; esac
        dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done <"$list"
    ((${#missing[@]})) || return 0

    echo "installing ${missing[*]}" >&2
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}
