#!/usr/bin/env bash
# Becomes the OpenSSH server of a real node: realNode.sh NODE ADDRESS
#
# Started by farm.sh in network, host name, mount and System V namespaces of its own. The node has
# users and settings of its own, and the programs under test are installed in it.
set -euo pipefail
dir=$QV_FARM/$1

cat >"$dir/passwd" <<USERS
root:x:0:0:root:$dir/home:/bin/sh
sshd:x:100:65534::/run/sshd:/usr/sbin/nologin
USERS
echo 'root:*:20000:0:99999:7:::' >"$dir/shadow"
chmod 600 "$dir/shadow"
cat >"$dir/sshd_config" <<CONFIG
ListenAddress $2
HostKey $dir/hostKey
PidFile none
AuthorizedKeysFile $QV_FARM/userKey.pub
StrictModes no
UsePAM no
PasswordAuthentication no
KbdInteractiveAuthentication no
PermitRootLogin prohibit-password
CONFIG

hostname "$1"
mount --bind "$dir/passwd" /etc/passwd
mount --bind "$dir/shadow" /etc/shadow
mount --bind "$QV_FARM/bin" /usr/local/bin
ip link set lo up
until ip link show eth0 &>/dev/null; do
    sleep 0.02
done
ip address add "$2/24" dev eth0
ip link set eth0 up
exec /usr/sbin/sshd -D -e -f "$dir/sshd_config" 2>>"$dir/log"
