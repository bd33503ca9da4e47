# Installs what a list of packages names and this machine lacks. Sourced by run, test and others.

# install_packages LIST [PART...]   the whole list, or those parts that begin with "# [PART]"
install_packages() {
    local missing=() package sudo=()
    while read -r package; do
        dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done < <(list_packages "$@")
    ((${#missing[@]})) || return 0

    echo "installing ${missing[*]}" >&2
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

list_packages() {
    local list=$1 line part=''
    shift
    while read -r line; do
        case $line in
        '# ['*']'*) part=${line#*[} part=${part%%]*} ;;
        '' | '#'*) ;;
        *) [ $# -eq 0 ] || [[ " $* " == *" $part "* ]] || continue
           printf '%s\n' "$line" ;;
        esac
    done <"$list"
}
