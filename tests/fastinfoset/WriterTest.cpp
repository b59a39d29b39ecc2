// The writer's octets where the reference decoder cannot judge them: header and declarations,
// content left out, namespace undeclarations and type prefixes, the max add lengths, alphabets and
// algorithms by item type, and every failure. Tags, terminations and index forms are proved by the
// interoperability tests.

#include "support/FiTesting.h"

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace QxXmlLib16;
using namespace FiTesting;

namespace {

typedef std::function<void(CFastInfosetWriter&)> Body;
typedef CFastInfosetContext::EncodedCharacterString Encoding;

// The octets after the header for body under context.
std::string BodyOctets(const CFastInfosetContext& context, const Body& body) {
    const Octets document = Written(context, body);
    return Hex(Octets(document.begin() + 5, document.end()));
}

std::string BodyOctets(const Body& body) {
    return BodyOctets(CFastInfosetContext(), body);
}

CFastInfosetContext Suggested() {
    CFastInfosetContext context;
    context.SetSuggestedValues();
    return context;
}

void Element(CFastInfosetWriter& writer, const wchar_t* name, const wchar_t* text = L"") {
    writer.WriteStartElement(name, L"");
    writer.WriteString(text, itString, false);
    writer.WriteEndElement();
}

class Declarations : public testing::TestWithParam<int> {};

TEST_P(Declarations, PrecedeTheIdentificationAsUtf8) {
    const char* texts[] = {"<?xml encoding='finf'?>",
                           "<?xml encoding='finf' standalone='yes'?>",
                           "<?xml encoding='finf' standalone='no'?>",
                           "<?xml version='1.0' encoding='finf'?>",
                           "<?xml version='1.0' encoding='finf' standalone='yes'?>",
                           "<?xml version='1.0' encoding='finf' standalone='no'?>",
                           "<?xml version='1.1' encoding='finf'?>",
                           "<?xml version='1.1' encoding='finf' standalone='yes'?>",
                           "<?xml version='1.1' encoding='finf' standalone='no'?>"};
    CFastInfosetContext context;
    CBinaryStream stream;
    CFastInfosetWriter writer(context, stream);
    writer.WriteStartDocument(static_cast<FInfoDecl>(GetParam()));
    writer.Close();
    const Octets octets = ToOctets(stream.GetBinaryStream());
    const std::string expected = texts[GetParam() - 1];
    ASSERT_EQ(expected.size() + 5, octets.size());
    EXPECT_EQ(expected, std::string(octets.begin(), octets.begin() + expected.size()));
    EXPECT_EQ("E0 00 00 01 00", Hex(Octets(octets.begin() + expected.size(), octets.end())));
}

INSTANTIATE_TEST_SUITE_P(FInfoDecl, Declarations, testing::Range(1, 10));

TEST(Header, OutsideTheDeclarationsIsRefused) {
    CFastInfosetContext context;
    CBinaryStream stream;
    CFastInfosetWriter writer(context, stream);
    EXPECT_THROW(writer.WriteStartDocument(static_cast<FInfoDecl>(10)), CQxInvalidParamException);
    EXPECT_THROW(writer.WriteStartDocument(static_cast<FInfoDecl>(-1)), CQxInvalidParamException);
}

// A generated vocabulary is named in the header, and its entries go by index from the start.
TEST(Header, NamesTheExternalVocabularyWhenTheGeneratedOneIsUsed) {
    CFastInfosetContext context;
    context.SetUseGeneratedVocabulary(true);
    const Octets fixed = Written(context, [](CFastInfosetWriter& w) { Element(w, L"r"); });
    const std::string uri = "urn:qxxmllib16:fastinfoset:vocabulary";
    EXPECT_EQ("E0 00 00 01 20 10 00 24 " + Hex(Octets(uri.begin(), uri.end())) + " 3C 00 72 FF", Hex(fixed));

    context.SetExternalVocabularyURI(L"urn:example:vocab");
    context.GetVocabulary().AddElement(L"", L"", L"r");
    context.GetVocabulary().AddElementValue(L"go");
    EXPECT_EQ("E0 00 00 01 20 10 00 10 75 72 6E 3A 65 78 61 6D 70 6C 65 3A 76 6F 63 61 62 00 A0 FF",
              Hex(Written(context, [](CFastInfosetWriter& w) { Element(w, L"r", L"go"); })));
}

TEST(LeftOut, CommentsInstructionsSchemasAndDefaultValuesUnlessAskedFor) {
    auto body = [](CFastInfosetWriter& w) {
        w.WritePI(L"<?pi x?>");
        w.WriteStartElement(L"r", L"");
        w.WriteComment(L"c");
        w.WriteInlineSchema(L"xsi:schemaLocation=\"u s\"");
        w.WriteString(L"d", itString, true);
        w.WriteEndElement();
    };
    EXPECT_EQ("3C 00 72 FF", BodyOctets(body));
    EXPECT_EQ("3C 00 72 90 64 FF", BodyOctets([&](CFastInfosetWriter& w) {
                  w.SetWriteDefaultElementValues(true);
                  body(w);
              }));
}

TEST(Namespaces, TheDefaultOneNamesElementsWithoutPrefixAndIsUndeclaredForUnqualifiedOnes) {
    EXPECT_EQ("38 CD 04 75 72 6E 3A 64 F0 3D 81 00 72 38 CC F0 3C 80 01 FF FF",
              BodyOctets([](CFastInfosetWriter& w) {
                  w.SetDefaultNamespace(L"urn:d");
                  w.WriteStartElement(L"r", L"urn:d");
                  w.WriteStartElement(L"r", L"");
                  Element(w, L"r");
                  w.WriteEndElement();
                  w.WriteEndElement();
              }));
}

TEST(Namespaces, RootDeclarationsAndTypeNamesGetTheirPrefixes) {
    const Octets octets = Written(CFastInfosetContext(), [](CFastInfosetWriter& w) {
        w.AddNamespace(L"t", L"urn:t");
        w.WriteStartElement(L"r", L"");
        w.WriteAttributeType(L"urn:types", L"Place", itString);
        w.WriteAttributeNil();
        w.WriteEndElement();
    });
    const std::unique_ptr<CXmlDocument> document = Loaded(octets);
    const CXmlElement& root = *document->GetDocumentElement();
    EXPECT_EQ(L"AA:Place", root.GetAttribute(L"type", CXmlWriter::XSI_NAMESPACE));
    EXPECT_EQ(L"true", root.GetAttribute(L"nil", CXmlWriter::XSI_NAMESPACE));
    EXPECT_EQ(L"urn:types", document->LookupNamespaceFromAlias(L"AA"));
    EXPECT_EQ(L"urn:t", document->LookupNamespaceFromAlias(L"t"));
    EXPECT_EQ(CXmlWriter::XSI_NAMESPACE, document->LookupNamespaceFromAlias(L"AB"));
}

// Two attributes and two chunks of the same text.
std::string Repeated(const CFastInfosetContext& context, const wchar_t* text) {
    return BodyOctets(context, [text](CFastInfosetWriter& w) {
        w.WriteStartElement(L"r", L"");
        w.WriteAttributeString(L"x", L"", text, itString);
        w.WriteAttributeString(L"y", L"", text, itString);
        Element(w, L"c", text);
        Element(w, L"c", text);
        w.WriteEndElement();
    });
}

// A value shorter than the context's max add length is written once and then by index; one as
// long is always written literally.
TEST(Indexes, ValuesShorterThanTheMaxAddLengthAreWrittenOnceThenByIndex) {
    EXPECT_EQ(
        "7C 00 72 78 00 78 44 61 62 63 64 65 78 00 79 80 F0 3C 00 63 92 02 61 62 63 64 65 F0 01 A0 FF F0",
        Repeated(CFastInfosetContext(), L"abcde"));
    EXPECT_EQ("7C 00 72 78 00 78 05 61 62 63 64 65 66 78 00 79 05 61 62 63 64 65 66 F0 3C 00 63 82 03 61 62 "
              "63 64 65 66 F0 01 82 03 61 62 63 64 65 66 FF F0",
              Repeated(CFastInfosetContext(), L"abcdef"));
    CFastInfosetContext context;
    context.SetAttributeMaxAddLength(0);
    context.SetElementMaxAddLength(3);
    EXPECT_EQ("7C 00 72 78 00 78 01 61 62 78 00 79 01 61 62 F0 3C 00 63 91 61 62 F0 01 A0 FF F0",
              Repeated(context, L"ab"));
}

// Typed values under the suggested encodings, as attribute values (third bit) and chunks (fifth).
struct TypedCase {
    const char* name;
    ItemType type;
    const wchar_t* text;
    std::string attribute, chunk;
};

const TypedCase kTyped[] = {
    {"boolean", itBoolean, L"true", "70 50 38", "9C 14 38"},
    {"booleanFalse", itBoolean, L"0", "70 50 30", "9C 14 30"},
    {"date", itDate, L"2024-05-01", "20 14 20 24 A0 5A 01", "88 06 02 20 24 A0 5A 01"},
    {"dateTime", itDateTime, L"2024-05-01T10:00:00Z", "20 18 01 20 24 A0 5A 01 C1 0B 00 B0 0D",
     "88 06 07 20 24 A0 5A 01 C1 0B 00 B0 0D"},
    {"decimal", itDecimal, L"-12.5", "60 02 A1 2C 5F", "98 02 00 A1 2C 5F"},
    {"integer", itInteger, L"3", "60 00 3F", "98 00 3F"},
    {"int", itI4, L"42 -7", "70 37 00 00 00 2A FF FF FF F9", "9C 0E 05 00 00 00 2A FF FF FF F9"},
    {"short", itUi1, L"255", "70 21 00 FF", "9C 09 00 FF"},
    {"long", itUi4, L"7", "70 47 00 00 00 00 00 00 00 07", "9C 12 05 00 00 00 00 00 00 00 07"},
    {"unsignedAboveLong", itUi8, L"18446744073709551615",
     "08 0B 31 38 34 34 36 37 34 34 30 37 33 37 30 39 35 35 31 36 31 35",
     "82 11 31 38 34 34 36 37 34 34 30 37 33 37 30 39 35 35 31 36 31 35"},
    {"float", itR4, L"1.25", "70 63 3F A0 00 00", "9C 1A 01 3F A0 00 00"},
    {"double", itR8, L"1.5", "70 77 3F F8 00 00 00 00 00 00", "9C 1E 05 3F F8 00 00 00 00 00 00"},
    {"hexBinary", itHexBinary, L"CAFE", "70 01 CA FE", "9C 01 CA FE"},
    {"base64Binary", itBase64Binary, L"AQID", "70 12 01 02 03", "9C 06 00 01 02 03"},
    {"string", itString, L"\u00E9t\u00E9", "44 C3 A9 74 C3 A9", "92 02 C3 A9 74 C3 A9"},
    {"duration", itDuration, L"P1D", "42 50 31 44", "92 00 50 31 44"},
};

class Typed : public testing::TestWithParam<TypedCase> {};

TEST_P(Typed, ValuesUseTheEncodingOfTheirItemType) {
    const TypedCase& c = GetParam();
    const CFastInfosetContext context = Suggested();
    const std::string attribute = BodyOctets(context, [&](CFastInfosetWriter& w) {
        w.WriteStartElement(L"r", L"");
        w.WriteAttributeString(L"v", L"", c.text, c.type);
        w.WriteEndElement();
    });
    EXPECT_EQ("7C 00 72 78 00 76 " + c.attribute + " F0 FF", attribute);
    const std::string chunk = BodyOctets(context, [&](CFastInfosetWriter& w) {
        w.WriteStartElement(L"r", L"");
        w.WriteString(c.text, c.type, false);
        w.WriteEndElement();
    });
    EXPECT_EQ("3C 00 72 " + c.chunk + " FF", chunk);
}

INSTANTIATE_TEST_SUITE_P(Suggested, Typed, testing::ValuesIn(kTyped),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Typed, EightBitAlphabetsOfAGeneratedVocabularyAreSupported) {
    CFastInfosetContext context;
    context.SetUseGeneratedVocabulary(true);
    std::wstring alphabet;
    for (wchar_t c = 0x100; c < 0x180; ++c)
        alphabet += c;
    context.GetVocabulary().GetRestrictedAlphabets().push_back(alphabet);
    context.SetEncoding(itString, Encoding{Encoding::ekRestrictedAlphabet, 3});
    const Octets octets = Written(context, [](CFastInfosetWriter& w) {
        w.WriteStartElement(L"r", L"");
        w.WriteString(L"\u0101\u0100\u017F", itString, false);
        w.WriteEndElement();
    });
    EXPECT_EQ("98 0A 00 01 00 7F FF", Hex(Octets(octets.end() - 7, octets.end())));
    const std::unique_ptr<CXmlDocument> document = Loaded(octets, [&] {
        CSerializationContext serialization;
        *serialization.GetFIContext() = context;
        return serialization;
    }());
    EXPECT_EQ(L"\u0101\u0100\u017F", document->GetDocumentElement()->GetText());
}

struct RefusalCase {
    const char* name;
    CFastInfosetContext context;
    Body body;
    const wchar_t* message;
};

CFastInfosetContext WithEncoding(ItemType type, uint8_t kind, uint8_t index) {
    CFastInfosetContext context;
    context.SetEncoding(type, Encoding{kind, index});
    return context;
}

CFastInfosetContext WithAlphabet(const std::wstring& alphabet) {
    CFastInfosetContext context = WithEncoding(itString, Encoding::ekRestrictedAlphabet, 3);
    context.SetUseGeneratedVocabulary(true);
    context.GetVocabulary().GetRestrictedAlphabets().push_back(alphabet);
    return context;
}

void Chunk(CFastInfosetWriter& w, const wchar_t* text) {
    w.WriteStartElement(L"r", L"");
    w.WriteString(text, itString, false);
    w.WriteEndElement();
}

void Attribute(CFastInfosetWriter& w, const wchar_t* text) {
    w.WriteStartElement(L"r", L"");
    w.WriteAttributeString(L"a", L"", text, itString);
    w.WriteEndElement();
}

const RefusalCase kRefusals[] = {
    {"attributeAfterText", CFastInfosetContext(),
     [](CFastInfosetWriter& w) {
         w.WriteStartElement(L"r", L"");
         w.WriteString(L"t", itString, false);
         w.WriteAttributeString(L"a", L"", L"1", itString);
     },
     L"Attributes must be added before elements"},
    {"typeAfterChild", CFastInfosetContext(),
     [](CFastInfosetWriter& w) {
         w.WriteStartElement(L"r", L"");
         Element(w, L"c");
         w.WriteAttributeType(L"", L"T", itString);
     },
     L"Attributes must be added before elements"},
    {"attributeWithoutElement", CFastInfosetContext(), [](CFastInfosetWriter& w) { w.WriteAttributeNil(); },
     L"Attributes must be added before elements"},
    {"endWithoutElement", CFastInfosetContext(), [](CFastInfosetWriter& w) { w.WriteEndElement(); },
     L"No Element is open."},
    {"closeWithElementOpen", CFastInfosetContext(),
     [](CFastInfosetWriter& w) { w.WriteStartElement(L"r", L""); }, L"An Element has not been closed."},
    {"characterNotInAlphabet", Suggested(),
     [](CFastInfosetWriter& w) {
         w.WriteStartElement(L"r", L"");
         w.WriteString(L"2024-05-01T10:00:00.5Z", itDateTime, false);
         w.WriteEndElement();
     },
     L"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
    {"alphabetIndexUnknown", WithEncoding(itString, Encoding::ekRestrictedAlphabet, 3),
     [](CFastInfosetWriter& w) { Chunk(w, L"1"); },
     L"Failed to write FastInfoset. Invalid Restricted Alphabet value [3]"},
    {"alphabetTooSmall", WithAlphabet(L"a"), [](CFastInfosetWriter& w) { Chunk(w, L"a"); },
     L"Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20 "
     L"characters."},
    {"alphabetOfFiveBits", WithAlphabet(L"abcdefghijklmnopq"), [](CFastInfosetWriter& w) { Chunk(w, L"a"); },
     L"Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString."},
    {"algorithmUnknown", WithEncoding(itString, Encoding::ekEncodingAlgorithm, 11),
     [](CFastInfosetWriter& w) { Chunk(w, L"1"); },
     L"Failed to write FastInfoset. Invalid Encoding Algorithm value [11]"},
    {"algorithmRefusesText", WithEncoding(itString, Encoding::ekEncodingAlgorithm, 4),
     [](CFastInfosetWriter& w) { Chunk(w, L"x"); }, L"The value [x] can not be converted to a i4"},
    {"kindUnknownInAttribute", WithEncoding(itString, 3, 1),
     [](CFastInfosetWriter& w) { Attribute(w, L"1"); },
     L"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5."},
    {"kindUnknownInChunk", WithEncoding(itString, 3, 1), [](CFastInfosetWriter& w) { Chunk(w, L"1"); },
     L"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7."},
    {"utf16",
     [] {
         CFastInfosetContext context;
         context.SetDefaultStringEncoding(CFastInfosetContext::seUTF16BE);
         return context;
     }(),
     [](CFastInfosetWriter& w) { Chunk(w, L"1"); },
     L"Failed to write FastInfoset. Unsupported Feature UTF16BE in EncodedCharacterStringBit5."},
};

class Refusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(Refusals, RaiseTheirMessageAtTheOffendingCall) {
    EXPECT_EQ(GetParam().message,
              MessageOf<CQxException>([] { Written(GetParam().context, GetParam().body); }));
}

INSTANTIATE_TEST_SUITE_P(Writer, Refusals, testing::ValuesIn(kRefusals),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Depth, AMillionNestedElementsAreWrittenAndReadBack) {
    const int depth = 1000000;
    const Octets octets = Written(CFastInfosetContext(), [](CFastInfosetWriter& w) {
        for (int i = 0; i < depth; ++i)
            w.WriteStartElement(L"e", L"");
        w.WriteString(L"deep", itString, false);
        for (int i = 0; i < depth; ++i)
            w.WriteEndElement();
    });
    const std::unique_ptr<CXmlDocument> document = Loaded(octets);
    int levels = 1;
    const CXmlElement* element = document->GetDocumentElement();
    while (element->GetFirstElement()) {
        element = element->GetFirstElement();
        ++levels;
    }
    EXPECT_EQ(depth, levels);
    EXPECT_EQ(L"deep", element->GetText());
}

} // namespace
