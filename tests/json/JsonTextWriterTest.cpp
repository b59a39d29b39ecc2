// The JSON writer on its own, driven as the binding drives it: element, attribute and text calls,
// with the context states a collection descriptor sets around its items. Every shape it writes
// also reads back: the JSON turned into XML gives the XML text writer's output for the same calls.

#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/json/JsonTextReader.h>
#include <QxXmlLib16/json/JsonTextWriter.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "foundation/support/MessageOf.h"
#include "json/support/WriterCalls.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

using namespace QxXmlLib16;
using namespace WriterCalls;

namespace {

struct Options {
    JsonRoundTrip level = jrtFull;
    bool format = false;
    bool rfc8259 = false;
    EOLType eol = eolLF;
};

// The whole document the writes make inside the document frame.
std::wstring Json(const Writes& writes, Options options = Options()) {
    CTextStream stream;
    CJsonTextWriter writer(stream);
    writer.Open();
    writer.SetSupportRoundtrip(options.level);
    writer.SetFormat(options.format);
    writer.SetRfc8259Escaping(options.rfc8259);
    writer.SetEOLType(options.eol);
    writer.WriteStartDocument();
    writes(writer);
    writer.WriteEndDocument();
    writer.Close();
    return stream.GetText();
}

std::wstring Thrown(const Writes& writes, Options options = Options()) {
    return MessageOf<CQxException>([&] { Json(writes, options); });
}

Writes Root(const Writes& content) {
    return [content](CXmlWriter& w) { Element(w, L"r", content); };
}

std::wstring XmlText(const Writes& writes) {
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writes(writer);
    writer.Close();
    return stream.GetText();
}

std::wstring JsonToXmlText(const std::wstring& json, JsonRoundTrip level) {
    CSerializationContext context;
    context.GetJsonContext()->SetSupportRoundtrip(level);
    const CBinaryData xml = CJsonTextReader::ConvertJsonToXml(json, context);
    return CEncoder::Utf8ToUnicode(xml.GetData(), static_cast<int>(xml.GetLength()));
}

const Options kRfc8259{jrtFull, false, true};

// Namespaces read back at level 2 only; the XML text writer has no JSON form of a comment, and
// level 2 refuses an undeclared namespace.
enum ReadBack { rbEveryLevel, rbLevelTwo, rbNone };

struct Shape {
    const char* name;
    Writes writes;
    const wchar_t* json; // null where only the reading back is checked
    ReadBack readBack = rbEveryLevel;
    Options options = kRfc8259; // under which json is written
};

void PrintTo(const Shape& c, std::ostream* os) {
    *os << c.name;
}

const Writes QualifiedChild = [](CXmlWriter& w) {
    w.AddNamespace(L"p", L"urn:p");
    Element(
        w, L"r",
        [](CXmlWriter& w) {
            Element(
                w, L"c",
                [](CXmlWriter& w) {
                    w.WriteAttributeString(L"lang", CXmlWriter::XML_NAMESPACE, L"en", itString);
                    w.WriteAttributeString(L"q", L"urn:p", L"1", itI4);
                },
                L"urn:p");
        },
        L"urn:r");
};

const Writes AttributeAndText = Root([](CXmlWriter& w) {
    Element(w, L"a", [](CXmlWriter& w) {
        w.WriteAttributeString(L"x", L"", L"1", itString);
        w.WriteString(L"t", itString, false);
    });
});

const Writes Commented = Root([](CXmlWriter& w) {
    w.WriteComment(L"a */ b");
    Value(w, L"a", L"1", itI4);
});

const Shape kShapes[] = {
    {"Value", [](CXmlWriter& w) { Value(w, L"r", L"5", itI4); }, L"{\"r\": 5}"},
    {"NilIsNullAndNothingIsAnEmptyObject", Root([](CXmlWriter& w) {
         Element(w, L"n", [](CXmlWriter& w) { w.WriteAttributeNil(); });
         Element(w, L"e", [](CXmlWriter&) {});
         Value(w, L"s", L"");
         Element(w, L"a", [](CXmlWriter& w) {
             w.WriteAttributeString(L"x", L"", L"1", itI4);
             w.WriteAttributeNil();
         });
     }),
     L"{\"r\": {\"n\": null,\"e\": {},\"s\": \"\",\"a\": {\"@x\": 1,\"#text\": null}}}"},
    {"OnlyAttributes", Root([](CXmlWriter& w) {
         Element(w, L"a", [](CXmlWriter& w) { w.WriteAttributeString(L"x", L"", L"1", itI4); });
         Value(w, L"b", L"2");
     }),
     L"{\"r\": {\"a\": {\"@x\": 1},\"b\": \"2\"}}"},
    {"AttributesAndText",
     [](CXmlWriter& w) {
         Element(w, L"r", [](CXmlWriter& w) {
             w.WriteAttributeString(L"x", L"", L"1", itI4);
             w.WriteAttributeString(L"y", L"", L"true", itBoolean);
             w.WriteString(L"t", itString, false);
         });
     },
     L"{\"r\": {\"@x\": 1,\"@y\": true,\"#text\": \"t\"}}"},
    // Repeated simple elements are an array of values, so that a collection of primitives reads
    // back as a collection.
    {"MembersAfterACollectionAndCollectionsInARow", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             Value(w, L"a", L"1", itI4);
             Value(w, L"a", L"2", itI4);
         });
         Collection(w, [](CXmlWriter& w) {
             Element(w, L"b", [](CXmlWriter& w) { Value(w, L"c", L"3", itI4); });
             Element(w, L"b", [](CXmlWriter& w) { w.WriteAttributeNil(); });
         });
         Value(w, L"z", L"end");
     }),
     L"{\"r\": {\"a\": [1,2],\"b\": [{\"c\": 3},null],\"z\": \"end\"}}"},
    {"RepeatedObjectsWithAttributes", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             for (const wchar_t* id : {L"1", L"2"})
                 Element(w, L"item", [id](CXmlWriter& w) {
                     w.WriteAttributeString(L"id", L"", id, itI4);
                     Value(w, L"v", L"x");
                 });
         });
     }),
     L"{\"r\": {\"item\": [{\"@id\": 1,\"v\": \"x\"},{\"@id\": 2,\"v\": \"x\"}]}}"},
    {"RepeatedValuesNilsAndEmptyOnes", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             Value(w, L"v", L"1.5", itDecimal);
             Element(w, L"v", [](CXmlWriter& w) { w.WriteAttributeNil(); });
             Value(w, L"v", L"", itString);
             Element(w, L"v", [](CXmlWriter&) {});
         });
         Collection(w, [](CXmlWriter& w) { Value(w, L"one", L"1"); });
     }),
     L"{\"r\": {\"v\": [1.5,null,\"\",{}],\"one\": [\"1\"]}}"},
    // The items of a repeated group are elements of several names: each name change ends the
    // array, so that every element keeps its key and the order survives.
    {"ItemsOfSeveralNamesKeepTheirKeys", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             Value(w, L"a", L"1", itI4);
             Value(w, L"b", L"2", itI4);
             Value(w, L"a", L"3", itI4);
             Value(w, L"b", L"4", itI4);
         });
     }),
     L"{\"r\": {\"a\": [1],\"b\": 2,\"a\": 3,\"b\": 4}}"},
    {"NestedCollections", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             for (int i = 0; i < 2; ++i)
                 Element(w, L"seg", [](CXmlWriter& w) {
                     Collection(w, [](CXmlWriter& w) {
                         Value(w, L"pt", L"1", itI4);
                         Value(w, L"pt", L"2", itI4);
                     });
                 });
         });
     }),
     L"{\"r\": {\"seg\": [{\"pt\": [1,2]},{\"pt\": [1,2]}]}}"},
    {"TextAfterRepeatedChildrenClosesTheArray", Root([](CXmlWriter& w) {
         Collection(w, [](CXmlWriter& w) {
             Value(w, L"a", L"1", itI4);
             Value(w, L"a", L"2", itI4);
         });
         w.WriteString(L"t", itString, false);
     }),
     L"{\"r\": {\"a\": [1,2],\"#text\": \"t\"}}"},
    {"DefaultNamespaceNeedsNoPrefix",
     [](CXmlWriter& w) {
         w.SetDefaultNamespace(L"urn:r");
         Element(
             w, L"r",
             [](CXmlWriter& w) {
                 Element(
                     w, L"a", [](CXmlWriter& w) { w.WriteString(L"1", itI4, false); }, L"urn:r");
             },
             L"urn:r");
     },
     L"{\"r\": {\"@xmlns\": \"urn:r\",\"a\": 1}}", rbLevelTwo},
    {"KeysAtTheMarkersLevel", AttributeAndText, L"{\"r\": {\"a\": {\"@x\": \"1\",\"#text\": \"t\"}}}",
     rbEveryLevel, Options{jrtMarkers}},
    {"KeysWithoutRoundTrip", AttributeAndText, L"{\"r\": {\"a\": {\"x\": \"1\",\"\": \"t\"}}}", rbEveryLevel,
     Options{jrtNone}},
    {"PrefixesAndDeclarations", QualifiedChild,
     L"{\"AA:r\": {\"@xmlns:AA\": \"urn:r\",\"@xmlns:p\": \"urn:p\",\"p:c\": {\"@xml:lang\": \"en\","
     L"\"@p:q\": 1}}}",
     rbLevelTwo},
    {"NamespacesLeftOutBelowLevelTwo", QualifiedChild, L"{\"r\": {\"c\": {\"@lang\": \"en\",\"@q\": 1}}}",
     rbLevelTwo, Options{jrtMarkers}},
    {"UndeclaredNamespacesLeftOutBelowLevelTwo",
     [](CXmlWriter& w) {
         Element(
             w, L"r",
             [](CXmlWriter& w) {
                 Element(
                     w, L"c", [](CXmlWriter& w) { w.WriteAttributeType(L"urn:types", L"T", itString); },
                     L"urn:other");
             },
             L"urn:r");
     },
     L"{\"r\": {\"c\": {\"@type\": \"T\"}}}", rbNone, Options{jrtMarkers}},
    // Declarations in the order of their URIs.
    {"TypeAttributeWithItsPrefix",
     [](CXmlWriter& w) {
         w.AddNamespace(L"xsi", CXmlWriter::XSI_NAMESPACE);
         w.AddNamespace(L"t", L"urn:types");
         Element(w, L"r", [](CXmlWriter& w) { w.WriteAttributeType(L"urn:types", L"T", itString); });
     },
     L"{\"r\": {\"@xmlns:xsi\": \"http://www.w3.org/2001/XMLSchema-instance\",\"@xmlns:t\": \"urn:types\","
     L"\"@xsi:type\": \"t:T\"}}",
     rbLevelTwo},
    {"RepeatedObjectsFormatted",
     [](CXmlWriter& w) {
         Element(w, L"R", [](CXmlWriter& w) {
             Collection(w, [](CXmlWriter& w) {
                 Element(w, L"G", [](CXmlWriter& w) { Value(w, L"b", L"1", itI4); });
                 Element(w, L"G", [](CXmlWriter& w) { Value(w, L"b", L"2", itI4); });
             });
         });
     },
     L"{\n\t\"R\": {\n\t\t\"G\": [\n\t\t\t{\n\t\t\t\t\"b\": 1\n\t\t\t},\n\t\t\t{\n\t\t\t\t\"b\": "
     L"2\n\t\t\t}\n\t\t]\n\t}\n}",
     rbEveryLevel, Options{jrtFull, true}},
    {"FormattedLinesEndAsTheEolTypeSays", Root([](CXmlWriter& w) {
         w.WriteAttributeString(L"x", L"", L"1", itI4);
         Value(w, L"a", L"l1\nl2");
     }),
     L"{\r\n\t\"r\": {\r\n\t\t\"@x\": 1,\r\n\t\t\"a\": \"l1\r\nl2\"\r\n\t}\r\n}", rbEveryLevel,
     Options{jrtFull, true, false, eolCRLF}},
    {"KeysAndNamespaceUrisAreEscaped",
     [](CXmlWriter& w) {
         w.SetDefaultNamespace(L"urn:\"q\"");
         Element(w, L"r", [](CXmlWriter& w) { Value(w, L"a\\b", L"1", itI4); });
     },
     L"{\"r\": {\"@xmlns\": \"urn:\\\"q\\\"\",\"a\\\\b\": 1}}", rbNone},
    {"CommentsBetweenMembers", Commented, L"{\"r\": /* a * / b */\n{\"a\": 1}}", rbNone, Options{}},
    {"CommentsLeftOutUnderRfc8259", Commented, L"{\"r\": {\"a\": 1}}", rbNone},
};

class JsonWriterShapes : public testing::TestWithParam<Shape> {};

TEST_P(JsonWriterShapes, AreWrittenAndReadBackAsTheSameXml) {
    if (GetParam().json) EXPECT_EQ(GetParam().json, Json(GetParam().writes, GetParam().options));
    Options options = kRfc8259;
    const std::wstring expected = XmlText(GetParam().writes);
    for (JsonRoundTrip level : {jrtMarkers, jrtFull}) {
        if (GetParam().readBack == rbNone || (level == jrtMarkers && GetParam().readBack == rbLevelTwo))
            continue;
        for (bool formatted : {false, true}) {
            options.level = level;
            options.format = formatted;
            const std::wstring json = Json(GetParam().writes, options);
            EXPECT_EQ(expected, JsonToXmlText(json, level))
                << "level " << level << " formatted " << formatted << "\n"
                << testing::PrintToString(json);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Writer, JsonWriterShapes, testing::ValuesIn(kShapes),
                         [](const testing::TestParamInfo<Shape>& info) { return info.param.name; });

} // namespace

// Texts of the numeric and boolean kinds that are no JSON literal are strings, so that the output
// stays JSON.
TEST(JsonWriterValues, LiteralsOnlyWhereTheTextIsOne) {
    struct Case {
        ItemType type;
        const wchar_t* text;
        const wchar_t* written;
    } const cases[] = {
        {itR8, L"1.5E-3", L"1.5E-3"},
        {itR8, L"-0", L"-0"},
        {itR8, L"INF", L"\"INF\""},
        {itR4, L"NaN", L"\"NaN\""},
        {itI4, L"+5", L"\"+5\""},
        {itI4, L"007", L"\"007\""},
        {itDecimal, L"12.50", L"12.50"},
        {itDecimal, L".5", L"\".5\""},
        {itDecimal, L"5.", L"\"5.\""},
        {itInteger, L"123456789012345678901234567890", L"123456789012345678901234567890"},
        {itBoolean, L"true", L"true"},
        {itBoolean, L"0", L"0"},
        {itBoolean, L"TRUE", L"\"TRUE\""},
        {itDateTime, L"2024", L"\"2024\""},
        {itString, L"true", L"\"true\""},
        {itI8, L"1e", L"\"1e\""},
    };
    for (const Case& c : cases) {
        CTextStream stream;
        CJsonTextWriter writer(stream);
        writer.WriteValue(c.text, c.type);
        EXPECT_EQ(c.written, std::wstring(stream.GetText())) << c.type;
    }
}

// Namespaces below the root must be declared there at level 2.
TEST(JsonWriterMisuse, UndeclaredNamespacesAndContentOutOfOrderAreRefused) {
    const std::pair<const wchar_t*, Writes> cases[] = {
        {L"Unknown Namespace: c.",
         [](CXmlWriter& w) {
             w.WriteStartElement(L"r", L"urn:r");
             w.WriteStartElement(L"c", L"urn:undeclared");
         }},
        {L"Unknown Namespace: x.",
         [](CXmlWriter& w) {
             w.WriteStartElement(L"r", L"");
             w.WriteAttributeString(L"x", L"urn:undeclared", L"1", itString);
         }},
        {L"Unknown Namespace: type.",
         [](CXmlWriter& w) {
             w.AddNamespace(L"xsi", CXmlWriter::XSI_NAMESPACE);
             w.WriteStartElement(L"r", L"");
             w.WriteAttributeType(L"urn:types", L"T", itString);
         }},
        {L"Attributes must be added before elements", Root([](CXmlWriter& w) {
             Value(w, L"a", L"1");
             w.WriteAttributeString(L"x", L"", L"1", itString);
         })},
        {L"Attributes must be added before elements",
         [](CXmlWriter& w) {
             w.WriteStartElement(L"r", L"");
             w.WriteString(L"v", itString, false);
             w.WriteAttributeNil();
         }},
        {L"The element [r] already has a value: JSON has no place for further content after it.",
         [](CXmlWriter& w) {
             w.WriteStartElement(L"r", L"");
             w.WriteString(L"v", itString, false);
             w.WriteStartElement(L"c", L"");
         }},
        {L"No Element is open.", [](CXmlWriter& w) { w.WriteEndElement(); }},
        {L"An Element has not been closed.", [](CXmlWriter& w) { w.WriteStartElement(L"r", L""); }},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.first, Thrown(c.second));
    CTextStream stream;
    CJsonTextWriter writer(stream);
    EXPECT_THROW(writer.SetEOLType(EOLType(2)), CQxException);
    EXPECT_THROW(writer.SetSupportRoundtrip(JsonRoundTrip(3)), CQxInvalidParamException);
}

// Default escaping keeps the established form; the RFC 8259 mode escapes what the RFC requires.
TEST(JsonWriterEscaping, BothModesCharacterByCharacter) {
    struct Case {
        const wchar_t* text;
        const wchar_t* established;
        const wchar_t* rfc8259;
    } const cases[] = {
        {L"a\"b", L"\"a\"b\"", L"\"a\\\"b\""},
        {L"a\\b", L"\"a\\b\"", L"\"a\\\\b\""},
        {L"\t\b\f", L"\"\t\b\f\"", L"\"\\t\\b\\f\""},
        {L"a\nb", L"\"a\r\nb\"", L"\"a\\nb\""},
        {L"a\rb", L"\"ab\"", L"\"a\\rb\""},
        {L"\x01\x1F", L"\"\\u0001\\u001F\"", L"\"\\u0001\\u001F\""},
        {L"/\x7F\xE9\x1F600", L"\"/\x7F\xE9\x1F600\"", L"\"/\x7F\xE9\x1F600\""},
        {L"\xD83D\xDE00", L"\"\xD83D\xDE00\"", L"\"\\uD83D\\uDE00\""},
    };
    for (const Case& c : cases) {
        for (bool rfc8259 : {false, true}) {
            CTextStream stream;
            CJsonTextWriter writer(stream);
            writer.SetEOLType(eolCRLF);
            writer.SetRfc8259Escaping(rfc8259);
            writer.WriteValue(c.text, itString);
            EXPECT_EQ(rfc8259 ? c.rfc8259 : c.established, std::wstring(stream.GetText()));
        }
    }
}

// The writer flushes whenever 4096 characters wait, so a file stream never holds more than that
// plus one piece.
TEST(JsonWriterLayout, FlushesInBlocks) {
    struct CountingStream : CTextStream {
        void Flush() override {
            largest = std::max(largest, static_cast<unsigned long>(GetLength()));
            total += GetLength();
            m_buffer.Empty();
        }
        unsigned long largest = 0, total = 0;
    } stream;
    CJsonTextWriter writer(stream);
    writer.WriteStartDocument();
    writer.WriteStartElement(L"r", L"");
    writer.SetContextState(CXmlWriter::csArrayStarting);
    for (int i = 0; i < 5000; ++i)
        Value(writer, L"item", L"some text of the item", itString);
    writer.SetContextState(CXmlWriter::csArrayComplete);
    writer.WriteEndElement();
    writer.WriteEndDocument();
    EXPECT_GE(stream.total, 5000UL * 20);
    EXPECT_LT(stream.largest, 4096UL + 100);
}
