#include "ProofDocuments.h"

namespace ProofDocuments {

// Every repeated member filled, every wildcard used.
const wchar_t kContentFull[] =
    LR"(<bag xmlns="urn:qx:test:content" xmlns:a="urn:qx:a" xmlns:b="urn:qx:b" xmlns:o="urn:qx:o" a:tag="t1">)"
    L"<hex>0FA1</hex><hex>FF</hex><b64>AQID</b64><i1>-128</i1><i1>127</i1><i2>-32768</i2>"
    L"<i4>0</i4><i4>100</i4><i8>-9223372036854775808</i8><ui1>255</ui1><ui2>65535</ui2>"
    L"<ui4>4294967295</ui4><ui8>18446744073709551615</ui8><r4>1.5</r4><r8>-2.25E10</r8>"
    L"<dur>P1Y2M3DT4H5M6S</dur><ym>2024-02</ym><md>--12-25</md><yr>1999</yr><mo>--07</mo><dy>---31</dy>"
    L"<date>2024-02-29</date><date>1970-01-01</date><dt>2024-01-02T03:04:05</dt><tm>23:59:59</tm>"
    L"<str>abc</str><str> x y </str><bool>true</bool><bool>false</bool><dec>123.45</dec>"
    L"<int>-1234567890123456789012</int><shade>dark</shade><shade>light</shade>"
    L"<o:any o:k=\"v\"><o:deep>text</o:deep></o:any><local xmlns=\"\">plain</local>"
    L"<a:one>1</a:one><b:two/><own><note>n</note></own><free/><o:free2>x</o:free2>"
    L"</bag>";

const wchar_t kGroupsPicks[] = L"<pick><item id=\"1\"/></pick>"
                               L"<pick><shape xsi:type=\"Circle\" colour=\"red\" radius=\"2\"/></pick>"
                               L"<pick><count>5</count></pick>"
                               L"<pick><colour>blue</colour></pick>"
                               L"<pick><o:thing>x</o:thing></pick>";
// The all group in reverse schema order.
const wchar_t kGroupsBag[] = L"<bag><more>m</more><tint>green</tint><note>n</note>"
                             L"<figure xsi:type=\"Square\" side=\"3\"/><spare id=\"2\"/><extra>e</extra>"
                             L"<colour>green</colour><count>7</count><shape xsi:type=\"Square\" side=\"4\"/>"
                             L"<item id=\"3\"/></bag>";
const wchar_t kGroupsMain[] = L"<main xsi:type=\"Circle\" radius=\"1.5\"/>";
// Repeated members after the mandatory ones: abstract figures, one palette per repeated alternative,
// and a label holding the Stamp group, whose attribute stands on the label itself.
const wchar_t kGroupsTail[] = L"<figure xsi:type=\"Circle\" radius=\"1\"/>"
                              L"<figure xsi:type=\"Square\" colour=\"blue\" side=\"2\"/>"
                              L"<palette><item id=\"4\"/><item id=\"5\"/></palette>"
                              L"<palette><colour>red</colour><colour>green</colour></palette>"
                              L"<palette><count>1</count><note>two</note><count>3</count></palette>"
                              L"<palette><shape xsi:type=\"Square\" side=\"5\"/>"
                              L"<shape xsi:type=\"Circle\" radius=\"6\"/></palette>"
                              L"<palette><size>1.25</size><size>2</size></palette>"
                              L"<palette><o:a/><o:b>x</o:b></palette>"
                              L"<label signed=\"true\"><text>t</text><by>me</by></label>"
                              L"<note>after</note><count>8</count>";

const wchar_t kGroupsNamespaces[] =
    L"xmlns=\"urn:qx:test:groups\" "
    L"xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:o=\"urn:other\"";

std::wstring Groups(const std::wstring& picks, const std::wstring& bag, const std::wstring& tail) {
    return std::wstring(L"<groups ") + kGroupsNamespaces + L">" + picks + bag + kGroupsMain + tail +
           L"</groups>";
}

} // namespace ProofDocuments
