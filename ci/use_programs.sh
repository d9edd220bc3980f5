#!/usr/bin/env bash
# Run in a bare Debian 12 with the packages beside this script: installs those of the programs, uses
# them, removes them, and finds nothing left. Changes the system it runs in: ci/fresh.sh calls it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
packages=(ztmark ztstudio ztdrawengine-fonts 'libztdrawengine[0-9]*')

apt-get update -q >apt.log 2>&1
find / -xdev -not -path '/packages/*' -not -path '/proc/*' | sort >before.txt
files=()
for name in "${packages[@]}"; do
    files+=($(compgen -G "./${name}_*.deb"))
done
apt-get install -yq --no-install-recommends "${files[@]}" >>apt.log 2>&1 || {
    tail -n 30 apt.log >&2
    exit 1
}

work=$(mktemp -d)
cd "$work"
ztmark --version
ztmark text "ABC 1" --font-pair hershey-simplex.shx --height 5mm -o text.svg -o text.json 2>log ||
    ztmark font list | grep -q '^hershey-simplex.shx' # without a Chinese font there is no pair
ztmark code qr https://example.com --module 0.5mm -o code.svg
grep -q '<svg' code.svg
ztstudio --headless --sample --out out
[ -s out/sample.png ] || ls out
[ -n "$(find out -name '*.json' -size +0)" ]
[ -s /usr/share/man/man1/ztmark.1.gz ] && [ -s /usr/share/man/man1/ztstudio.1.gz ]
bash -c 'source /usr/share/bash-completion/completions/ztmark
    COMP_WORDS=(ztmark fo); COMP_CWORD=1; _ztmark; [ "${COMPREPLY[*]}" = font ]'
cd /packages
rm -rf "$work"

dpkg --purge ztmark ztstudio ztdrawengine-fonts "$(basename ./libztdrawengine[0-9]*_*.deb | cut -d_ -f1)" \
    >>apt.log 2>&1
left=$(find / -xdev -iname '*ztdraw*' -not -path '/packages/*' -not -path '/proc/*' \
    -o -xdev \( -name '*ztmark*' -o -name '*ztstudio*' -o -name 'fontbuilder*' \) \
    -not -path '/packages/*' -not -path '/proc/*')
if [ -n "$left" ]; then
    printf 'left behind after removal:\n%s\n' "$left" >&2
    exit 1
fi
