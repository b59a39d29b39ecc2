#!/usr/bin/env bash
# Runs qxgpx as a user would: the sample's summary, a refused document, and writing back.
#   qxgpx_check.sh QXGPX SHARED_GPX_DIR WORK_DIR
set -uo pipefail
qxgpx="$1" shared="$2" work="$3"
mkdir -p "$work" && cd "$work" || exit 1
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

summary=$("$qxgpx") || fail "the sample did not load"
expected='creator       qxgpx sample
name          Lakeside loop
waypoints     2
routes        1 (2 points)
tracks        1 (2 segments, 6 points)'
[ "$summary" != "${summary#"$expected"}" ] || fail "summary begins otherwise:
$summary"
grep -q '^time span     2024-05-04T09:00:00Z .. 2024-05-04T10:11:20Z (1:11:20)$' <<<"$summary" &&
grep -q '^bounds        lat 46.204 .. 46.2115, lon 6.142 .. 6.152$' <<<"$summary" &&
grep -q '^track length  2\.[0-9]* km$' <<<"$summary" || fail "time span, bounds or length:
$summary"

"$qxgpx" "$shared/invalid/osmand-empty-ele.gpx" >/dev/null 2>stderr.txt
status=$?
[ $status -ne 0 ] || fail "an invalid document was accepted"
grep -q 'unexpected element \[ele\] remains un processed' stderr.txt && grep -q 'Path: /gpx/trk/trkseg/trkpt\[1\]' stderr.txt || fail "no XPath on stderr: $(cat stderr.txt)"
grep -q '^.*/osmand-empty-ele.gpx:5:7: ' stderr.txt || fail "no line and column on stderr: $(cat stderr.txt)"
"$qxgpx" missing.gpx >/dev/null 2>&1 && fail "a missing file was accepted"
python3 -c 'n = 1000000
print("<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"deep\"><extensions>"
      "<a xmlns=\"urn:x\">" + "<a>" * (n - 1) + "</a>" * n + "</extensions></gpx>")' >deep.gpx
"$qxgpx" deep.gpx >/dev/null 2>stderr.txt || fail "foreign content a million levels deep: $(cat stderr.txt)"
"$qxgpx" --bogus >/dev/null 2>&1; [ $? -eq 2 ] || fail "an unknown option was accepted"

rm -f sample.out.gpx sample.out.gpx.gz
"$qxgpx" --timings --out sample.out.gpx >timings.txt || fail "--out failed"
grep -Eq '^load [0-9]+\.[0-9]{3} s$' timings.txt && grep -Eq '^write [0-9]+\.[0-9]{3} s$' timings.txt ||
    fail "timings: $(cat timings.txt)"
xmllint --noout --schema "$shared/gpx.xsd" sample.out.gpx 2>/dev/null || fail "written sample is invalid"
"$qxgpx" --gzip --out sample.out.gpx.gz >/dev/null || fail "--gzip failed"
cmp -s <(gzip -dc sample.out.gpx.gz) sample.out.gpx || fail "the gzip output holds other text"
[ "$("$qxgpx" sample.out.gpx.gz)" = "$summary" ] || fail "the compressed copy reads otherwise"

# JSON: written as every JSON tool reads it, read back by name or by --in-format, compressed too.
rm -f sample.out.json sample.out.json.gz from-json.gpx
"$qxgpx" --format json --out sample.out.json >/dev/null || fail "--format json failed"
python3 -c 'import json, sys; json.load(open(sys.argv[1], encoding="utf-8"))' sample.out.json ||
    fail "Python does not read the JSON"
[ "$("$qxgpx" sample.out.json)" = "$summary" ] || fail "the JSON reads otherwise"
"$qxgpx" --in-format json --out from-json.gpx sample.out.json >/dev/null || fail "--in-format json failed"
xmllint --noout --schema "$shared/gpx.xsd" from-json.gpx 2>/dev/null || fail "XML from JSON is invalid"
cmp -s from-json.gpx sample.out.gpx || fail "XML from JSON differs from XML from XML"
"$qxgpx" --format json --gzip --out sample.out.json.gz >/dev/null || fail "--format json --gzip failed"
[ "$("$qxgpx" --in-format json sample.out.json.gz)" = "$summary" ] || fail "the compressed JSON reads otherwise"
printf '{"gpx": {"@version": "1.1", "@creator": "x",\n "wpt": [{"@lat": 1, "@lon": }]}}' >bad.json
"$qxgpx" bad.json >/dev/null 2>stderr.txt && fail "bad JSON was accepted"
grep -q "^bad.json:2:30: .*found '}' at line 2, position 30" stderr.txt && grep -q 'Path: .gpx.wpt.wpt\[0\].@lon' stderr.txt ||
    fail "no position or path for bad JSON: $(cat stderr.txt)"
"$qxgpx" --format yaml >/dev/null 2>&1; [ $? -eq 2 ] || fail "an unknown format was accepted"

# Fast Infoset: written with --format fi, recognised on input, compressed too, and the same XML back.
rm -f sample.out.finf sample.out.finf.gz from-fi.gpx
"$qxgpx" --format fi --out sample.out.finf >/dev/null || fail "--format fi failed"
[ "$(head -c 4 sample.out.finf | od -An -tx1 | tr -d ' \n')" = e0000001 ] || fail "no Fast Infoset header"
[ "$("$qxgpx" sample.out.finf)" = "$summary" ] || fail "the Fast Infoset reads otherwise"
"$qxgpx" --out from-fi.gpx sample.out.finf >/dev/null || fail "reading Fast Infoset failed"
cmp -s from-fi.gpx sample.out.gpx || fail "XML from Fast Infoset differs from XML from XML"
"$qxgpx" --format fi --gzip --out sample.out.finf.gz >/dev/null || fail "--format fi --gzip failed"
[ "$("$qxgpx" sample.out.finf.gz)" = "$summary" ] || fail "the compressed Fast Infoset reads otherwise"
"$qxgpx" --in-format fi sample.out.finf >/dev/null 2>&1; [ $? -eq 2 ] || fail "fi was accepted as an input format"

[ $failures -eq 0 ] && echo "qxgpx ok"
exit $failures
