#!/usr/bin/env bash
# Runs qxxsd as a user would: exit statuses, messages on stderr, the files it writes and where the
# options put them, remote schemas through --map and XML_CATALOG_FILES.
#   qxxsd_command.sh QXXSD WORK_DIR
set -uo pipefail
qxxsd="$1" work="$2"
rm -rf "$work" && mkdir -p "$work" && cd "$work" || exit 1
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
schema() { # NAME BODY: a schema of namespace urn:t whose body starts on line 3
    printf '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:t="urn:t"\n targetNamespace="urn:t">\n%s\n</xs:schema>\n' "$2" >"$1"
}

"$qxxsd" >/dev/null 2>stderr.txt; [ $? -eq 2 ] && grep -q '^usage: qxxsd' stderr.txt || fail "no arguments: $(cat stderr.txt)"
"$qxxsd" --bogus a.xsd -o out >/dev/null 2>&1; [ $? -eq 2 ] || fail "an unknown option was accepted"
"$qxxsd" --map nothing a.xsd -o out >/dev/null 2>&1; [ $? -eq 2 ] || fail "--map without = was accepted"

schema bad.xsd '<xs:simpleType name="S"><xs:restriction base="xs:string">
<xs:pattern value="a+?"/></xs:restriction></xs:simpleType>'
"$qxxsd" bad.xsd -o bad-out >stdout.txt 2>stderr.txt; status=$?
[ $status -eq 1 ] || fail "a refused schema exits with $status"
grep -q '^bad.xsd:4: error: the pattern "a+?" is not an XML Schema regular expression: ' stderr.txt ||
    fail "refusal: $(cat stderr.txt)"
[ ! -s stdout.txt ] && [ ! -e bad-out ] || fail "a refused schema left output"

schema main.xsd '<xs:import namespace="urn:r" schemaLocation="http://example.org/r.xsd"/>
<xs:complexType name="Note" mixed="true"><xs:sequence><xs:element name="b" type="xs:string"/></xs:sequence></xs:complexType>
<xs:element name="order" xmlns:r="urn:r"><xs:complexType><xs:sequence>
<xs:element name="code" type="r:Code"/><xs:element name="note" type="t:Note"/></xs:sequence></xs:complexType></xs:element>'
printf '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:r">
<xs:simpleType name="Code"><xs:restriction base="xs:token"><xs:pattern value="\\i\\c*"/></xs:restriction></xs:simpleType>
</xs:schema>\n' >r.xsd
"$qxxsd" main.xsd -o out 2>stderr.txt; [ $? -eq 1 ] && grep -q 'pass --map http://example.org/r.xsd=FILE' stderr.txt ||
    fail "unresolved import: $(cat stderr.txt)"
"$qxxsd" main.xsd --map http://example.org/r.xsd=r.xsd -o out 2>stderr.txt || fail "--map: $(cat stderr.txt)"
grep -q '^main.xsd:4: warning: mixed content' stderr.txt || fail "no warning: $(cat stderr.txt)"
[ -f out/main.h ] && [ -f out/main.cpp ] && grep -q '^namespace Main {' out/main.h || fail "files or namespace: $(ls out)"
grep -q 'pmExact' out/main.cpp || fail "patterns are not read with pmExact"

printf '<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog"><system systemId="http://example.org/r.xsd" uri="r.xsd"/></catalog>\n' >r.catalog
XML_CATALOG_FILES="$PWD/r.catalog" "$qxxsd" -q main.xsd -n Shop::Orders -p orders -i gen/ -o again \
    --depfile orders.d 2>stderr.txt || fail "catalog: $(cat stderr.txt)"
[ ! -s stderr.txt ] || fail "-q printed: $(cat stderr.txt)"
grep -q '#include "gen/orders.h"' again/orders.cpp && grep -A1 '^namespace Shop {' again/orders.h | grep -q '^namespace Orders {' ||
    fail "-n, -p or -i had no effect"
grep -q 'r.xsd' orders.d && grep -q 'main.xsd' orders.d || fail "depfile: $(cat orders.d)"
XML_CATALOG_FILES="$PWD/r.catalog" "$qxxsd" -q main.xsd -n Shop::Orders -p orders -i gen/ -o twice 2>/dev/null
cmp -s again/orders.h twice/orders.h && cmp -s again/orders.cpp twice/orders.cpp || fail "the output differs between runs"

[ $failures -eq 0 ] && echo "qxxsd command ok"
exit $failures
