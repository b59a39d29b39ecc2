// Every shape the JSON writer produces reads back: the same writer calls made on the XML text writer
// and on the JSON writer, whose output is then turned back into XML, give the same XML text.

#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/json/JsonTextReader.h>
#include <QxXmlLib16/json/JsonTextWriter.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "json/support/WriterCalls.h"

#include <gtest/gtest.h>

#include <functional>

using namespace QxXmlLib16;
using namespace WriterCalls;

namespace {

struct Shape {
    const char* name;
    Writes writes;
    bool usesNamespaces;
};

void PrintTo(const Shape& c, std::ostream* os) {
    *os << c.name;
}

const Shape kShapes[] = {
    {"Value", [](CXmlWriter& w) { Value(w, L"r", L"5", itI4); }, false},
    {"EmptyString", [](CXmlWriter& w) { Element(w, L"r", [](CXmlWriter& w) { Value(w, L"s", L""); }); },
     false},
    {"Nothing",
     [](CXmlWriter& w) { Element(w, L"r", [](CXmlWriter& w) { Element(w, L"e", [](CXmlWriter&) {}); }); },
     false},
    {"OnlyAttributes",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Element(w, L"a", [](CXmlWriter& w) { w.WriteAttributeString(L"x", L"", L"1", itI4); });
             Value(w, L"b", L"2");
         });
     },
     false},
    {"AttributesAndText",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             w.WriteAttributeString(L"x", L"", L"1", itI4);
             w.WriteAttributeString(L"y", L"", L"true", itBoolean);
             w.WriteString(L"t", itString, false);
         });
     },
     false},
    {"Nil",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Element(w, L"n", [](CXmlWriter& w) { w.WriteAttributeNil(); });
             Element(w, L"m", [](CXmlWriter& w) {
                 w.WriteAttributeString(L"x", L"", L"1", itI4);
                 w.WriteAttributeNil();
             });
         });
     },
     false},
    {"RepeatedObjectsThenAMember",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 for (const wchar_t* id : {L"1", L"2", L"3"})
                     Element(w, L"item", [id](CXmlWriter& w) {
                         w.WriteAttributeString(L"id", L"", id, itI4);
                         Value(w, L"v", L"x");
                     });
             });
             Value(w, L"after", L"z");
         });
     },
     false},
    {"RepeatedValuesAndNils",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 Value(w, L"v", L"1.5", itDecimal);
                 Element(w, L"v", [](CXmlWriter& w) { w.WriteAttributeNil(); });
                 Value(w, L"v", L"", itString);
                 Element(w, L"v", [](CXmlWriter&) {});
             });
         });
     },
     false},
    {"CollectionsInARowAndOneItem",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) { Value(w, L"a", L"1"); });
             Collection(w, [](CXmlWriter& w) {
                 Value(w, L"b", L"2");
                 Value(w, L"b", L"3");
             });
             Collection(w, [](CXmlWriter& w) { Element(w, L"c", [](CXmlWriter&) {}); });
         });
     },
     false},
    {"RepeatedGroupOfSeveralNames",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 for (const wchar_t* name : {L"a", L"b", L"a", L"a", L"b"})
                     Value(w, name, name);
             });
         });
     },
     false},
    {"NestedCollections",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 for (int i = 0; i < 2; ++i)
                     Element(w, L"seg", [](CXmlWriter& w) {
                         Collection(w, [](CXmlWriter& w) {
                             Value(w, L"pt", L"1");
                             Value(w, L"pt", L"2");
                         });
                     });
             });
         });
     },
     false},
    {"TextAfterChildren",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 Value(w, L"a", L"1");
                 Value(w, L"a", L"2");
             });
             w.WriteString(L"tail", itString, false);
         });
     },
     false},
    {"EscapedText",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             w.WriteAttributeString(L"q", L"", L"\"<&>\"\n\tx", itString);
             Value(w, L"t", L"a \"quote\", a \\ and\nlines\tand \xE9\x1F600");
         });
     },
     false},
    {"Namespaces",
     [](CXmlWriter& w) {
         w.SetDefaultNamespace(L"urn:d");
         w.AddNamespace(L"p", L"urn:p");
         w.AddNamespace(L"xsi", CXmlWriter::XSI_NAMESPACE);
         Element(
             w, L"r",
             [](CXmlWriter& w) {
                 w.WriteAttributeString(L"a", L"urn:p", L"1", itString);
                 w.WriteAttributeType(L"urn:p", L"T", itString);
                 Element(
                     w, L"c", [](CXmlWriter& w) { Value(w, L"d", L"x"); }, L"urn:p");
                 Element(
                     w, L"e", [](CXmlWriter&) {}, L"urn:d");
                 Element(
                     w, L"n", [](CXmlWriter& w) { w.WriteAttributeNil(); }, L"urn:p");
             },
             L"urn:d");
     },
     true},
    {"RootPrefixMadeByTheWriter",
     [](CXmlWriter& w) {
         Element(
             w, L"r", [](CXmlWriter& w) { Value(w, L"v", L"1"); }, L"urn:r");
     },
     true},
};

std::wstring XmlText(const Writes& writes) {
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writes(writer);
    writer.Close();
    return stream.GetText();
}

std::wstring Json(const Writes& writes, JsonRoundTrip level, bool formatted) {
    CTextStream stream;
    CJsonTextWriter writer(stream);
    writer.SetSupportRoundtrip(level);
    writer.SetFormat(formatted);
    writer.SetRfc8259Escaping(true);
    writer.WriteStartDocument();
    writes(writer);
    writer.WriteEndDocument();
    writer.Close();
    return stream.GetText();
}

std::wstring JsonToXmlText(const std::wstring& json, JsonRoundTrip level) {
    CSerializationContext context;
    context.GetJsonContext()->SetSupportRoundtrip(level);
    const CBinaryData xml = CJsonTextReader::ConvertJsonToXml(json, context);
    return CEncoder::Utf8ToUnicode(xml.GetData(), static_cast<int>(xml.GetLength()));
}

class JsonShapes : public testing::TestWithParam<Shape> {};

TEST_P(JsonShapes, ReadBackAsTheSameXml) {
    const std::wstring expected = XmlText(GetParam().writes);
    for (JsonRoundTrip level : {jrtMarkers, jrtFull}) {
        if (level == jrtMarkers && GetParam().usesNamespaces) continue;
        for (bool formatted : {false, true}) {
            const std::wstring json = Json(GetParam().writes, level, formatted);
            EXPECT_EQ(expected, JsonToXmlText(json, level))
                << "level " << level << " formatted " << formatted << "\n"
                << testing::PrintToString(json);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Writer, JsonShapes, testing::ValuesIn(kShapes),
                         [](const testing::TestParamInfo<Shape>& info) { return info.param.name; });

} // namespace
