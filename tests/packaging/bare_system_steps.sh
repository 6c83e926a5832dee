#!/bin/sh -eu
# What users do with the packages in /packages, on a system that has only apt. The packages in
# /packages/new have a higher version. Each step leaves what it printed in /results.

user() {
    setpriv --reuid 1000 --regid 1000 --clear-groups env -i HOME=/home/user PATH=/usr/bin "$@"
}
# step NAME COMMAND...: the command's output and its status.
step() {
    name=$1
    shift
    status=0
    user "$@" >"/results/$name" 2>&1 || status=$?
    echo "status $status" >>"/results/$name"
}
versions() {
    dpkg-query --show '*kvex*'
}
mkdir -p /home/user
chown 1000:1000 /home/user

apt-get install --simulate --install-recommends /packages/*.deb |
    sed -n 's/^Inst \([^ ]*\) .*/\1/p' >/results/recommended
apt-get install -y /packages/*.deb
dpkg --verify >/results/changed-files
versions >/results/installed
step version kvexrules version
step init kvexrules init --sample
step list kvexrules list
step show kvexrules show 7
step edit kvexrules edit
apt-get purge -y kvex-toolkit-qt
step edit-without-qt kvexrules edit

apt-get install -y /packages/new/*.deb
versions >/results/upgraded
step list-after-upgrade kvexrules list

apt-get purge -y '*kvex*'
dpkg-query --show --showformat '${db:Status-Abbrev}${Package}\n' '*kvex*' >/results/known || true
rm -r /packages
find / -xdev \( -path /proc -o -path /sys -o -path /results \) -prune -o -iname '*kvex*' -print |
    sort >/results/left
