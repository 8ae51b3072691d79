# Signed source packages through apt with a private configuration: the machine's own sources, lists and caches do not change.

debianKeyring=/usr/share/keyrings/debian-archive-keyring.gpg

# The machine's Debian archives, as deb-src lines. Other archives are left out: nothing here comes from them.
debianSourceLines() {
    local options='' uri release component
    if [ -r "$debianKeyring" ]; then options="[signed-by=$debianKeyring] "; fi
    # shellcheck disable=SC2016 # apt expands these, not the shell
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        sort -u | while read -r uri release component; do
        printf 'deb-src %s%s %s %s\n' "$options" "$uri" "$release" "$component"
    done
}

# Writes the private configuration: the machine's settings (a proxy, for example) without its hooks, and with our own folders.
writePrivateAptConfig() {
    local folder=$1
    mkdir -p "$folder/lists/partial" "$folder/archives/partial" "$folder/log"
    {
        apt-config dump | grep -v -i -E '^(APT::Update::|DPkg::|Dir::Etc::|Dir::State::lists|Dir::Cache|Dir::Log)'
        printf '%s "%s";\n' Dir::Etc::main /dev/null Dir::Etc::parts /dev/null Dir::Etc::sourceparts /dev/null \
            Dir::Etc::sourcelist "$folder/sources.list" Dir::State::lists "$folder/lists" \
            Dir::Cache "$folder" Dir::Cache::archives "$folder/archives" Dir::Cache::pkgcache '' \
            Dir::Cache::srcpkgcache '' Dir::Log "$folder/log" APT::Sandbox::User '' \
            Acquire::Languages none Acquire::Retries 3
    } >"$folder/apt.conf"
    debianSourceLines >"$folder/sources.list"
    if [ ! -s "$folder/sources.list" ]; then
        # Without package lists it is unknown which of the machine's archives are Debian's.
        updatePackageLists
        debianSourceLines >"$folder/sources.list"
    fi
    [ -s "$folder/sources.list" ] || die "No Debian archive is configured on this machine, so sources cannot be fetched."
}

# offeredSource FOLDER PACKAGE: the version that the private configuration in FOLDER offers; empty if none.
offeredSource() {
    { APT_CONFIG=$1/apt.conf apt-get source --print-uris "$2" 2>/dev/null || true; } |
        awk -v name="$2_" 'index($2, name) == 1 && sub(/\.dsc$/, "", $2) { print substr($2, length(name) + 1) }'
}

# fetchSource PACKAGE VERSION FOLDER: fetches the source package's files into FOLDER; apt checks signatures and hashes. VERSION is the
# upstream version that the recipe was written for.
fetchSource() {
    local package=$1 version=$2 folder=$3 private=$qelCache/apt offered
    mkdir -p "$folder"
    writePrivateAptConfig "$private"
    offered=$(offeredSource "$private" "$package")
    if [ -z "$offered" ]; then
        runLogged "Reading the list of source packages" "$qelLogs/source-lists.log" -- \
            env APT_CONFIG="$private/apt.conf" apt-get update
        offered=$(offeredSource "$private" "$package")
    fi
    case $offered in
        "$version"[+~-]*) ;;
        *) die "$package $version is needed, the archive offers '${offered:-nothing}'. The recipe is for Debian 12." ;;
    esac
    runLogged "Fetching the source of $package $offered" "$qelLogs/$package-fetch.log" -- \
        env --chdir="$folder" APT_CONFIG="$private/apt.conf" apt-get source --download-only "$package"
}
