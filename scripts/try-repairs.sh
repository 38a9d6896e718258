#!/usr/bin/env bash
# Repairs a folder of a thousand mixed files, kills it in the middle fifty times, and brings everything back each time.
# Fails if a byte, a right or a time of the folder is not what it was. Argument: the program.
set -euo pipefail
program=$(realpath "${1:-build/release/quillshift-wizard}")
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export XDG_STATE_HOME=$home/state
mkdir "$home/clean" "$home/letters"
cd "$home"

text='Старая мельница стоит у самой воды, ещё и мелет муку для всей деревни; летом её обходят стороной.'
sets=(KOI8-R CP866 CP1251 ISO-8859-5 MAC-CYRILLIC UTF-8)
for i in $(seq 0 999); do
    folder=letters/$((i % 10))
    mkdir -p "$folder"
    line="$i. $text"
    case $((i % 8)) in
        6) iconv -t KOI8-R <<<"$line" | iconv -f CP866 ;;
        7) head -c 2000 /dev/urandom ;;
        *) iconv -t "${sets[i % 8]}" <<<"$line" ;;
    esac >"$folder/$i.txt"
done

facts() {
    find letters -name '.*.quillshift' -delete # what a kill leaves; the next save of the same file clears it
    find letters -type f -print0 | sort -z | xargs -0 sha256sum
    find letters -type f -printf '%p %m %T@\n' | sort
}
facts >before
killed=0
for try in $(seq 50); do
    report=$home/report-$try
    "$program" --write --report "$report" letters >said 2>&1 &
    sleep "$((RANDOM % 3)).$((RANDOM % 900 + 100))"
    kill -9 $! 2>/dev/null && killed=$((killed + 1))
    wait $! 2>/dev/null || true
    [ ! -s "$report" ] || "$program" --undo "$report" >said 2>&1 || { tail said; exit 1; }
    facts | cmp - before || { echo "try $try: not as it was"; exit 1; }
done
echo "killed $killed times in 50, nothing lost"
