# A Debian of one release with only its smallest set of packages, for scripts that test a new system. Source
# it after script.sh.

# The releases that the project supports, by their names.
releases=(trixie bookworm)

if [ "$(id -u)" -ne 0 ] || ! command -v mmdebstrap >/dev/null; then
  echo "This needs root and the Debian package mmdebstrap." >&2
  exit 77
fi

is_release() { # WORD
  printf '%s\n' "${releases[@]}" | grep -qxF -- "$1"
}

# The root may need the host's settings to download packages: sources of the same release, keys,
# credentials and proxies. Settings that call programs of the host are not copied.
fresh_root() { # RELEASE FOLDER MMDEBSTRAP_OPTION...
  local release=$1 folder=$2 sources
  shift 2
  chmod 755 "$work" # for apt's own user
  apt-config dump --no-empty --format '%F "%v";%n' Acquire | grep -v '^Acquire::IndexTargets' >"$work/apt.conf"
  mapfile -t sources < <(grep -lsw "$release" /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources})
  quietly mmdebstrap --mode=root --variant=minbase --include=ca-certificates --aptopt="$work/apt.conf" \
    --setup-hook='for part in auth.conf auth.conf.d keyrings trusted.gpg.d; do
      [ ! -e "/etc/apt/$part" ] || cp -a "/etc/apt/$part" "$1/etc/apt/"
    done' \
    "$@" "$release" "$folder" "${sources[@]}"
  cp /etc/hosts "$folder/etc/"
}

# Passes only the proxies of the caller's environment. The mounts end with the command.
in_root() { # FOLDER COMMAND...
  local proxies
  mapfile -t proxies < <(env | grep -i '^[a-z]*_proxy=')
  env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "${proxies[@]}" \
    unshare --mount --pid --fork --kill-child sh -euc '
      mount -t proc proc "$0/proc"
      mount --rbind /dev "$0/dev"
      exec chroot "$0" "$@"' "$@"
}
