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
# in_terminal NAME COMMAND...: the same in a terminal, where the user closes both windows by Esc.
in_terminal() {
    name=$1
    shift
    mkfifo keys
    user TERM=xterm LANG=C.UTF-8 script --quiet --flush --return --command "$*" screen <keys \
        >/dev/null &
    program=$!
    exec 9>keys
    for shown in "Apply this Rule" "incoming short messages"; do
        until grep --quiet --no-messages --text "$shown" screen; do
            kill -0 $program || {
                cat screen
                exit 1
            }
            sleep 0.1
        done
        printf '\033' >&9
    done
    status=0
    wait $program || status=$?
    exec 9>&-
    sed -n 's/.*\(result: [0-9]*\).*/\1/p' screen >"/results/$name"
    echo "status $status" >>"/results/$name"
    rm keys screen
}
versions() {
    dpkg-query --show '*kvex*'
}
mkdir -p /home/user
chown 1000:1000 /home/user
cd /home/user

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
apt-get purge --autoremove -y kvex-toolkit-qt
step edit-without-qt kvexrules edit
in_terminal edit-in-terminal kvexrules edit

# What docs/embedding.md says to those who have these packages, a compiler and Python.
apt-get install -y g++ pkg-config cmake make python3
mkdir embedding
cd embedding
cp -R /usr/share/doc/libkvexmessagerules-dev/examples .
page=/usr/share/doc/kvexrules/docs/embedding.md
sed '/^```cpp$/,/^```$/!d; /^```cpp$/d; /^```$/q' $page | sed '$d' >first.cpp
sed '/^```sh$/,/^```$/!d; /^```/d' $page >/results/commands
chown -R 1000:1000 .
number=0
while read -r command; do
    number=$((number + 1))
    case $command in
    ./first*) in_terminal "command-$number" "$command" ;;
    *) step "command-$number" sh -c "$command" </dev/null ;;
    esac
done </results/commands
cd ..
rm -r embedding

apt-get install -y /packages/new/*.deb
versions >/results/upgraded
step list-after-upgrade kvexrules list
step remove kvexrules remove 7 --yes

apt-get purge -y '*kvex*'
dpkg-query --show --showformat '${db:Status-Abbrev}${Package}\n' '*kvex*' >/results/known || true
rm -r /packages
cd /
find / -xdev \( -path /proc -o -path /sys -o -path /results \) -prune -o -iname '*kvex*' -print |
    sort >/results/left
