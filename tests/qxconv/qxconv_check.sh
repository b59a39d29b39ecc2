#!/usr/bin/env bash
# Runs qxconv as a user would: formats from the names and from --to, compression, the statistics,
# refused input with its line and column, bad arguments, and the progress of a large input.
#   qxconv_check.sh QXCONV SHARED_GPX_DIR WORK_DIR
set -uo pipefail
qxconv="$1" shared="$2" work="$3"
mkdir -p "$work" && cd "$work" || exit 1
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

in="$shared/strava-hike.gpx"
"$qxconv" "$in" hike.fi || fail "XML to Fast Infoset"
[ "$(head -c 4 hike.fi | od -An -tx1 | tr -d ' ')" = e0000001 ] || fail "hike.fi is no Fast Infoset document"
"$qxconv" hike.fi hike.json || fail "Fast Infoset to JSON"
python3 -m json.tool hike.json >/dev/null || fail "a standard JSON tool refuses hike.json"
"$qxconv" hike.json hike.gpx || fail "JSON to XML"
xmllint --noout --schema "$shared/gpx.xsd" hike.gpx 2>/dev/null || fail "the XML from JSON is no valid GPX"
"$qxconv" "$in" direct.gpx && cmp -s direct.gpx hike.gpx || fail "XML through Fast Infoset and JSON differs"

"$qxconv" --to json "$in" hike.out || fail "--to json"
python3 -m json.tool hike.out >/dev/null || fail "--to json wrote no JSON"
"$qxconv" "$in" hike.json.gz || fail "to hike.json.gz"
gzip -dc hike.json.gz | cmp -s - hike.json || fail "hike.json.gz is not hike.json compressed"
"$qxconv" --gzip hike.json.gz packed.fi || fail "--gzip from compressed JSON"
gzip -dc <packed.fi | cmp -s - hike.fi || fail "--gzip did not compress the Fast Infoset"

stats=$("$qxconv" --stats "$in" stats.fi) || fail "--stats"
grep -q "^input   .*strava-hike.gpx: XML, $(stat -c %s "$in") bytes$" <<<"$stats" &&
grep -q "^output  stats.fi: Fast Infoset, $(stat -c %s stats.fi) bytes$" <<<"$stats" &&
grep -q '^ratio   0\.[0-9]\{3\}$' <<<"$stats" && grep -q '^read    [0-9.]* s$' <<<"$stats" &&
grep -q '^write   [0-9.]* s$' <<<"$stats" || fail "statistics:
$stats"

printf '<a>\n  <b x="1">\n    <c></b>\n</a>\n' >broken.xml
"$qxconv" broken.xml out.json 2>stderr.txt
[ $? -eq 1 ] || fail "malformed XML did not end with status 1"
grep -qx 'broken.xml:3:10: mismatched tag at line 3' stderr.txt || fail "malformed XML: $(cat stderr.txt)"
printf '{"a": {\n  "b": [1, ]}}' >broken.json
"$qxconv" broken.json out.xml 2>stderr.txt && fail "malformed JSON was accepted"
grep -q "^broken.json:2:12: .* at line 2, position 12\.$" stderr.txt || fail "malformed JSON: $(cat stderr.txt)"
"$qxconv" missing.xml out.xml 2>stderr.txt && fail "a missing file was accepted"
grep -qx 'qxconv: Failed to open the file \[missing.xml\].' stderr.txt || fail "missing file: $(cat stderr.txt)"
[ ! -e out.xml ] && [ ! -e out.json ] || fail "a failed conversion left an output"

"$qxconv" --to yaml "$in" x >/dev/null 2>&1; [ $? -eq 2 ] || fail "--to yaml did not end with status 2"
"$qxconv" "$in" >/dev/null 2>&1; [ $? -eq 2 ] || fail "a missing output did not end with status 2"

# A large input reports its progress on stderr; a small one says nothing.
"$qxconv" "$in" quiet.fi 2>stderr.txt && [ ! -s stderr.txt ] || fail "a small input wrote to stderr: $(cat stderr.txt)"
python3 -c 'import sys
row = "<p n=\"%07d\">" + "x" * 80 + "</p>\n"
sys.stdout.write("<big>\n" + "".join(row % i for i in range(1100000)) + "</big>\n")' >big.xml
"$qxconv" big.xml big.fi 2>stderr.txt || fail "the large input: $(cat stderr.txt)"
grep -q '^qxconv: reading big.xml (1[0-9][0-9] MB)' stderr.txt && grep -q 'writing big.fi: 1100001 of 1100001 elements$' stderr.txt ||
    fail "no progress for the large input: $(cat stderr.txt)"
rm -f big.xml big.fi

[ $failures -eq 0 ] && echo "qxconv ok"
