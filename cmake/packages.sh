# Sourced by run.sh and test.sh: install what packages.txt lists under these headings and this machine lacks.
yld_install_packages() {
    local missing=() package heading=
    while read -r package; do
        case "$package" in
        '' | '#'*) continue ;;
        '['*']')
            heading=${package:1:-1}
            continue
            ;;
        esac
        case " $* " in *" $heading "*) ;; *) continue ;; esac
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done < packages.txt
    if [ ${#missing[@]} -eq 0 ]; then return 0; fi
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then sudo=(sudo); fi
    echo "installing: ${missing[*]}"
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Sourced by run.sh and test.sh: what was compiled before, here or in another clone, is not compiled again.
yld_reuse_objects() {
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
}
