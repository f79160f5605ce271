#!/bin/bash
# Makes the sample song: plays a list of notes through sox, encodes it with
# lame (128 kbit/s, constant, joint stereo) and writes an ID3v1 tag.
# The result is the same, byte for byte, on every run with the same tools.
#
# Usage: make_tune.sh [output.mp3]      (needs sox and lame)

set -euo pipefail
export LC_ALL=C

here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../../assets/mp1.mp3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

rate=44100
beat=0.26 # seconds to one step
steps=36

# Both voices: <first step> <length in steps> <note>
melody="
 0 2 E5
 2 1 G5
 3 1 A5
 4 3 C6
 7 1 B5
 8 2 A5
10 1 G5
11 1 E5
12 4 D5
16 2 E5
18 1 G5
19 1 A5
20 2 D6
22 2 C6
24 1 B5
25 1 A5
26 1 G5
27 1 B5
28 6 C6
"
bass="
 0 2 C3
 2 2 G3
 4 2 A2
 6 2 E3
 8 2 F2
10 2 C3
12 2 G2
14 2 D3
16 2 C3
18 2 G3
20 2 F2
22 2 A3
24 2 G2
26 2 F3
28 6 C3
"
# The chords, struck softly, one string after another
chords="
 0 4 C4 E4 G4
 4 4 A3 C4 E4
 8 4 F3 A3 C4
12 4 G3 B3 D4
16 4 C4 E4 G4
20 4 F3 A3 D4
24 4 G3 B3 F4
28 7 C4 E4 G4
"

calc() { awk "BEGIN { printf \"%.5f\", $1 }"; }

# The frequency of a note such as A4
hertz() {
    local name=${1%?} octave=${1: -1} half
    case $name in
    C) half=-9 ;; D) half=-7 ;; E) half=-5 ;; F) half=-4 ;; G) half=-2 ;; A) half=0 ;; B) half=2 ;;
    *) echo "unknown note $1" >&2; exit 1 ;;
    esac
    calc "440 * 2 ^ (($half + 12 * ($octave - 4)) / 12)"
}

count=0
files=()

# tone <kind> <start seconds> <seconds> <note> <volume> <pan -1..1>
tone() {
    local kind=$1 start=$2 long=$3 freq volume=$5 pan=$6 file left right
    freq=$(hertz "$4")
    file=$(printf '%s/n%04d.wav' "$work" "$count")
    count=$((count + 1))
    left=$(calc "$volume * sqrt((1 - ($pan)) / 2)")
    right=$(calc "$volume * sqrt((1 + ($pan)) / 2)")
    local tail
    case $kind in
    bell) # sines with a slow fall: the melody
        tail=$(calc "$long * 2 + 1.1")
        sox -R -D -n -r $rate -c 1 -b 24 "$file.m.wav" \
            synth "$tail" sine "$freq" synth "$tail" sine mix "$(calc "$freq * 2.001")" \
            synth "$tail" sine mix "$(calc "$freq * 0.9985")" \
            gain -6 fade l 0.008 "$tail" "$(calc "$tail - 0.012")"
        ;;
    bass) # a round, short tone
        tail=$(calc "$long + 0.1")
        sox -R -D -n -r $rate -c 1 -b 24 "$file.m.wav" \
            synth "$tail" triangle "$freq" synth "$tail" sine mix "$freq" \
            lowpass 900 gain -4 fade q 0.012 "$tail" "$(calc "$tail - 0.02")"
        ;;
    pluck) # a plucked string
        tail=$(calc "$long + 0.3")
        sox -R -D -n -r $rate -c 1 -b 24 "$file.m.wav" \
            synth "$tail" pluck "$freq" lowpass 4200 gain -5 fade q 0.003 "$tail" "$(calc "$tail * 0.6")"
        ;;
    esac
    sox -R -D "$file.m.wav" -r $rate -b 24 "$file" \
        remix "1v$left" "1v$right" pad "$start" 0
    rm "$file.m.wav"
    files+=("$file")
}

while read -r at long note; do
    [ -n "$at" ] && tone bell "$(calc "$at * $beat")" "$(calc "$long * $beat")" "$note" 0.42 0.25
done <<<"$melody"

while read -r at long note; do
    [ -n "$at" ] && tone bass "$(calc "$at * $beat")" "$(calc "$long * $beat")" "$note" 0.5 -0.15
done <<<"$bass"

while read -r at long notes; do
    [ -n "$at" ] || continue
    i=0
    for round in 0 1; do
        for note in $notes; do
            shift_by=$(calc "($at + $round * 2) * $beat + $i * 0.045 + $round * 0.02")
            tone pluck "$shift_by" "$(calc "$long * $beat * 0.5")" "$note" 0.28 -0.45
            i=$((i + 1))
        done
        i=0
    done
done <<<"$chords"

total=$(calc "$steps * $beat")
sox -R -D -m -v 1 "${files[@]}" -r $rate -b 24 -c 2 "$work/dry.wav" pad 0 1
sox -R -D "$work/dry.wav" -b 16 "$work/tune.wav" \
    highpass 45 reverb 32 40 70 trim 0 "$total" fade q 0 "$total" 2.2 norm -1.5

lame --quiet -m j -b 128 --cbr -q 2 --noreplaygain \
    --id3v1-only --tt Songbin --ta Songbin --tl Samples --ty 2026 \
    "$work/tune.wav" "$work/tune.mp3"
mv "$work/tune.mp3" "$out"
chmod 644 "$out"
