#!/usr/bin/env bash
# Fills a directory with what a music lover's disk might hold: 24 short MP3 files with and without
# ID3v1 tags, in nested directories, and a few files of other kinds. Tag text is Windows-1252.
set -euo pipefail

if (($# != 1)); then
    echo "usage: make_disk.sh DIRECTORY" >&2
    exit 2
fi
disk=$1
mkdir -p "$disk"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cp1252() { printf '%s' "$1" | iconv -f UTF-8 -t CP1252; }

# A little tune: one plucked string for each note named, half a second each.
tune() {
    local wav=$1 note parts=() part
    shift
    for note in "$@"; do
        part=$work/note-$note.wav
        [[ -f $part ]] || sox -q -n -r 22050 -c 1 -b 16 "$part" synth 0.5 pluck "$note" gain -6
        parts+=("$part")
    done
    sox -q "${parts[@]}" "$wav"
}

notes=(C4 D4 E4 G4 A4 C5 D5 E5 G5 A5)
made=0

# The next tune of the disk, two to five notes long and different from the one before.
next_tune() {
    local i chosen=()
    for ((i = 0; i < 2 + made % 4; i++)); do
        chosen+=("${notes[(made * 3 + i * (1 + made % 5)) % ${#notes[@]}]}")
    done
    tune "$work/tune.wav" "${chosen[@]}"
    made=$((made + 1))
}

encode() { lame --quiet -m m -b 48 "${@:2}" "$work/tune.wav" "$1"; }

place() {
    mkdir -p "$disk/$(dirname "$1")"
    next_tune
}

# FILE
untagged() {
    place "$1"
    encode "$disk/$1" -t
}

# FILE ARTIST SONG ALBUM YEAR COMMENT [TRACK]: the tag is written by id3v2
tagged() {
    untagged "$1"
    LC_ALL=C id3v2 -1 -a "$(cp1252 "$2")" -t "$(cp1252 "$3")" -A "$(cp1252 "$4")" -y "$5" \
        -c "$(cp1252 "$6")" ${7:+-T "$7"} "$disk/$1" >/dev/null
}

# FILE ARTIST SONG ALBUM YEAR COMMENT: the tag is written by lame, its fields padded with spaces.
# lame turns text of the locale into Latin-1 itself, so there is no euro sign or dash in these.
tagged_by_lame() {
    place "$1"
    LC_ALL=C.UTF-8 encode "$disk/$1" -t --id3v1-only --space-id3v1 --ta "$2" --tt "$3" --tl "$4" --ty "$5" --tc "$6"
}

untagged 'Plain.mp3'
untagged 'Ola_Nordfjell - Vinterlys_over_vidda.mp3'
tagged "Don't Wait Up.mp3" "The Night Bus" "Don't Wait Up" "Last Stop" 1997 "It's a demo" 1
tagged 'LOUD.MP3' 'Copper Kettle' 'Loud' 'Steam' 2001 ''

tagged 'Fjord & Fjell/01 Blåbærskogen.mp3' 'Åse Sørlie' 'Blåbærskogen' 'Fjord & Fjell' 1994 'Spilt inn på Røros' 1
tagged 'Fjord & Fjell/02 Ærlig øl.mp3' 'Åse Sørlie' 'Ærlig øl' 'Fjord & Fjell' 1994 'Spilt inn på Røros' 2
tagged_by_lame 'Fjord & Fjell/03 Åpent hav.mp3' 'Åse Sørlie' 'Åpent hav' 'Fjord & Fjell' 1994 'Med kor, "på scenen"'
untagged 'Fjord & Fjell/Ekstra/Åse_Sørlie - Sjøsprøyt_(øving).mp3'
untagged 'Fjord & Fjell/Ekstra/Konsert 1995/Kveldssang.mp3'

untagged 'Север/Полярный_Хор - Белый_снег.mp3'
untagged 'Север/Полярный_Хор - Тихая_река - 2.mp3'
tagged 'Север/Дорога.mp3' 'Polyarny Khor' 'Doroga' 'Sever' 1988 'Kyrillisk – bare i filnavnet €'

tagged 'Quotes/Say "Hello".mp3' 'The "Echoes"' 'Say "Hello"' "Singer's Choice" 1979 "'single' and \"double\""
untagged "Quotes/It's_Me - Don't_Ask.mp3"
untagged 'Quotes/"Nobody" - "Nothing".mp3'

tagged_by_lame 'Jazz/Blue Kitchen/Slow Boil.mp3' 'Blue Kitchen Trio' 'Slow Boil' 'Simmer' 1961 'Mono'
tagged_by_lame 'Jazz/Blue Kitchen/Café Münch.mp3' 'Blue Kitchen Trio' 'Café Münch' 'Simmer' 1961 'Opptak nr. 3, på Café Münch'
tagged 'Jazz/Blue Kitchen/Encore/Deep/Deeper/A title that fills all its thirty.mp3' \
    'An artist as long as the field' 'A title that fills all thirty!' 'An album name of thirty chars.' 1962 \
    'A comment of thirty characters' # thirty characters each: no padding is left
untagged 'Jazz/A-B-C.mp3'
untagged 'Jazz/no_artist_here.mp3'

tagged 'Various/Brass Lantern - Harbour.mp3' 'Brass Lantern' 'Harbour' '' '' ''
tagged 'Various/Quiet.Mp3' 'Copper Kettle' 'Quiet' 'Steam' 2001 'Extension in mixed case' 7
untagged 'Various/ - Leading_space.mp3'
untagged 'Various/Brass_Lantern - Lighthouse.mp3'

tune "$disk/Various/doorbell.wav" E5 C5
printf 'Bought at a flea market.\n' >"$disk/readme.txt"
printf 'Åse Sørlie: sang, gitar\n' >"$disk/Fjord & Fjell/hefte.txt"
mkdir -p "$disk/Empty directory"
