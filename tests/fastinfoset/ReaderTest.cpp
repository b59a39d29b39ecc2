// The reader on the shared vectors, on every truncation of them, on hand-made documents with each
// construct a reader must accept or step over, and on each fault it must refuse. The integer and
// length forms at their boundaries are read from the reference encoder's output (InteropTest).

#include "support/FiTesting.h"

#include "foundation/support/MessageOf.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace QxXmlLib16;
using namespace FiTesting;

namespace {

// A document in hex: as given when it has its own header, else after the plainest one.
Octets Document(const std::string& hex) {
    return FromHex(hex.rfind("E0 00 00 01", 0) == 0 ? hex : "E0 00 00 01 00 " + hex);
}

std::wstring Refusal(const std::string& hex,
                     const CSerializationContext& context = CSerializationContext::m_defaultContext) {
    return MessageOf<CQxException>([&] { Loaded(Document(hex), context); });
}

std::wstring Text(const std::string& hex, const CSerializationContext& context) {
    return Loaded(Document(hex), context)->GetDocumentElement()->GetText();
}

CSerializationContext WithAlphabet(const std::wstring& alphabet) {
    CSerializationContext context;
    context.GetFIContext()->SetUseGeneratedVocabulary(true);
    context.GetFIContext()->GetVocabulary().GetRestrictedAlphabets().push_back(alphabet);
    return context;
}

class Vectors : public testing::TestWithParam<std::string> {};

TEST_P(Vectors, LoadIntoTheTreeOfTheirXml) {
    const std::unique_ptr<CXmlDocument> fi = Loaded(ReadFile(GetParam() + ".finf"));
    const std::unique_ptr<CXmlDocument> xml = Loaded(ReadFile(GetParam() + ".xml"));
    EXPECT_EQ(L"", TreeDifference(*xml->GetDocumentElement(), *fi->GetDocumentElement()));
}

// Cut anywhere after the identification, plain or compressed, a document is refused, never read
// past its end.
TEST_P(Vectors, AreRefusedWhenCutShortPlainOrCompressed) {
    const Octets octets = ReadFile(GetParam() + ".finf");
    const Octets identification = FromHex("E0 00 00 01");
    const size_t identified =
        std::search(octets.begin(), octets.end(), identification.begin(), identification.end()) -
        octets.begin() + 4;
    for (size_t length = identified; length < octets.size(); ++length) {
        const Octets cut(octets.begin(), octets.begin() + length);
        const std::wstring plain = MessageOf<CQxException>([&] { Loaded(cut); });
        ASSERT_EQ(L"Failed to parse FastInfoset. Unexpected End of File.", plain) << length;
        ASSERT_EQ(plain,
                  MessageOf<CQxException>([&] { Loaded(Compressed(cut, length % 2 ? ctGzip : ctZlib)); }))
            << length;
    }
}

INSTANTIATE_TEST_SUITE_P(Shared, Vectors, testing::ValuesIn(VectorPaths()), [](const auto& info) {
    return Documents::TestName(info.param.substr(info.param.find("fi-vectors/") + 11));
});

TEST(Header, ADeclarationInFrontReadsLikeTheDocumentWithoutIt) {
    const Octets plain = Document("3C 00 72 FF");
    const std::string declaration = "<?xml version='1.0' encoding='finf'?>";
    Octets declared(declaration.begin(), declaration.end());
    declared.insert(declared.end(), plain.begin(), plain.end());
    EXPECT_EQ(L"",
              TreeDifference(*Loaded(plain)->GetDocumentElement(), *Loaded(declared)->GetDocumentElement()));
}

TEST(Header, InputWithoutOneIsReadAsXmlText) {
    EXPECT_EQ(L"x", Loaded(FromHex("3C 72 3E 78 3C 2F 72 3E"))->GetDocumentElement()->GetText()); // <r>x</r>
    // A declaration of the format not followed by the identification is text, which the XML
    // reader then refuses.
    const std::string text = "<?xml version='1.0' encoding='finf'?><r/>";
    const std::wstring message = MessageOf<CQxException>([&] { Loaded(Octets(text.begin(), text.end())); });
    EXPECT_NE(L"(no exception)", message);
    EXPECT_EQ(std::wstring::npos, message.find(L"FastInfoset")) << message;
    EXPECT_NE(std::wstring::npos,
              MessageOf<CQxException>([] { Loaded(FromHex("E0 00 00")); }).find(L" at line 1"));
}

// Documents assembled by hand, each with what the tree must hold.
struct Accepted {
    const char* name;
    std::string hex;
    std::wstring xml; // the same document as text
};

const Accepted kAccepted[] = {
    {"attributeListEndsTheElement", "7C 00 72 78 00 78 40 31 FF F0", L"<r x='1'/>"},
    {"attributeListThenContent", "7C 00 72 78 00 78 40 31 F0 90 74 FF", L"<r x='1'>t</r>"},
    {"twoLevelsClosedByOneOctet", "3C 00 72 3C 00 63 FF F0", L"<r><c/></r>"},
    {"emptyValueAndValueByIndex", "7C 00 72 78 00 78 FF 78 00 79 40 76 78 00 7A 80 FF F0",
     L"<r x='' y='v' z='v'/>"},
    {"chunksJoinAndDropCarriageReturns", "3C 00 72 90 61 92 00 0D 0A 62 A0 FF", L"<r>a\nba</r>"},
    {"commentsInstructionsAndEntityReferences",
     "E2 02 61 62 63 E1 01 70 69 FF 3C 00 72 E2 80 E1 80 01 78 79 C8 00 65 90 74 FF", L"<r>t</r>"},
    {"documentTypeWithIdentifiers", "C6 00 73 E1 00 70 FF F0 3C 00 72 FF", L"<r/>"},
    {"utf8OutsideTheBasicPlane", "3C 00 72 82 01 F0 9F 98 80 FF", L"<r>\U0001F600</r>"},
    {"utf16", "7C 00 72 78 00 78 15 00 E9 D8 3D DE 00 F0 85 00 E9 FF", L"<r x='\u00E9\U0001F600'>\u00E9</r>"},
    {"numericAlphabet", "3C 00 72 98 02 00 A1 2C 5F FF", L"<r>-12.5</r>"},
    {"dateAndTimeAlphabetPadded", "3C 00 72 98 05 23 DF FF", L"<r>23Z</r>"},
    {"namespacesAndTheXmlPrefix",
     "78 CF 01 70 31 04 75 72 6E 3A 61 CD 04 75 72 6E 3A 64 F0 3F 81 81 00 72 7B 80 80 03 6C 61 6E 67 41 65 "
     "6E F0 3D 82 00 63 FF F0",
     L"<p1:r xmlns:p1='urn:a' xmlns='urn:d' xml:lang='en'><c/></p1:r>"},
    {"undeclaredDefault", "38 CD 04 75 72 6E 3A 64 F0 3D 81 00 72 38 CC F0 3C 80 FF F0",
     L"<r xmlns='urn:d'><r xmlns=''/></r>"},
    // Local names "a" and "b", the attribute value "v" and the chunk "b" of an initial vocabulary
    // take the first indexes: <b a="v"> and the chunk by those, after the literal local name "c".
    {"initialVocabulary",
     "E0 00 00 01 20 00 98 01 00 61 00 62 00 00 76 00 00 62 7C 81 78 80 80 F0 3C 00 63 A0 FF F0",
     L"<b a='v'><c>b</c></b>"},
};

class AcceptedDocuments : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedDocuments, ReadIntoTheTreeOfTheirText) {
    const std::unique_ptr<CXmlDocument> fi = Loaded(Document(GetParam().hex));
    const std::string text = Utf8(GetParam().xml);
    const std::unique_ptr<CXmlDocument> xml = Loaded(Octets(text.begin(), text.end()));
    EXPECT_EQ(L"", TreeDifference(*xml->GetDocumentElement(), *fi->GetDocumentElement()));
}

INSTANTIATE_TEST_SUITE_P(Reader, AcceptedDocuments, testing::ValuesIn(kAccepted),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Context, KeepsCdataDelimitersAndLendsAlphabetsOfAnyWidth) {
    const std::string cdata = "3C 00 72 8C 26 00 78 3C 79 FF";
    EXPECT_EQ(L"x<y", Text(cdata, CSerializationContext()));
    CSerializationContext context;
    context.SetStripCDATA(false);
    EXPECT_EQ(L"<![CDATA[x<y]]>", Text(cdata, context));
    // "aq" in five bits a character, padded with ones.
    EXPECT_EQ(L"aq", Text("3C 00 72 98 09 04 3F FF", WithAlphabet(L"abcdefghijklmnopq")));
}

TEST(Callback, CompletedElementsAreOfferedAndMayBeDropped) {
    static int offered;
    offered = 0;
    CXmlDocument document([](CXmlElement* element) {
        ++offered;
        return element->GetLocalName() == L"c";
    });
    Octets octets = Document("3C 00 72 3C 00 63 F0 01 F0 3C 00 64 FF F0");
    document.LoadXmlStream(octets.data(), static_cast<unsigned long>(octets.size()));
    EXPECT_EQ(4, offered);
    const CXmlElement* child = document.GetDocumentElement()->GetFirstElement();
    ASSERT_NE(nullptr, child);
    EXPECT_EQ(L"d", child->GetLocalName());
    EXPECT_EQ(nullptr, child->GetNextSiblingElement());
}

struct Refused {
    const char* name;
    std::string hex;
    std::wstring message;
};

const std::wstring kFailed = L"Failed to parse FastInfoset. ";
const std::wstring kBit2 =
    kFailed + L"Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet.";
const std::wstring kBit3 =
    kFailed + L"Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.";
const std::wstring kBit4 =
    kFailed + L"Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.";

const Refused kRefused[] = {
    {"octetD0AmongChildren", "3C 00 72 D0 FF", kFailed + L"Invalid Encoding of Element type."},
    {"chunkAtDocumentLevel", "90 74 F0", kFailed + L"Invalid Encoding of Element type."},
    {"attributeListOddTerminator", "7C 00 72 78 00 78 40 31 80",
     kFailed + L"Invalid Encoding of Element type."},
    {"namespaceListWithoutTerminator", "38 CD 00 61 3C 00 72 FF",
     kFailed + L"Invalid Encoding of Element type."},
    {"elementPrefixWithoutNamespace", "3E 00 70 00 72 FF",
     kFailed + L"Invalid QName type Prefix without Namespace."},
    {"attributePrefixWithoutNamespace", "7C 00 72 7A 00 70 00 78 FF FF",
     kFailed + L"Invalid QName type Prefix without Namespace."},
    {"namespaceAttributePrefixAlone", "38 CE 00 70 F0 3C 00 72 FF",
     kFailed + L"Invalid QName type Prefix without Namespace."},
    {"elementNameIndexOutOfTable", "04 FF", kFailed + L"Index [5] is not in the element name table."},
    {"attributeNameIndexOutOfTable", "7C 00 72 02 40 31 FF",
     kFailed + L"Index [3] is not in the attribute name table."},
    {"attributeValueIndexOutOfTable", "7C 00 72 78 00 78 81 FF",
     kFailed + L"Index [2] is not in the value table."},
    {"chunkIndexOutOfTable", "3C 00 72 A0 FF", kFailed + L"Index [1] is not in the character chunk table."},
    {"nameIndexOutOfTable", "3C 85 FF", kFailed + L"Index [6] is not in the name table."},
    {"unknownAlphabet", "3C 00 72 88 08 00 FF", kFailed + L"Unknown Restricted Alphabet [3]."},
    {"characterOutsideTheAlphabet", "3C 00 72 88 05 F0 00 FF",
     kFailed + L"Invalid character in a Restricted Alphabet string."},
    {"unknownAlgorithm", "3C 00 72 8C 28 00 FF", L"Unknown byte encoding."},
    {"shortOfThreeOctets", "3C 00 72 8C 0A 00 00 01 02 FF", L"Invalid value for SHORT byte encoding."},
    {"invalidUtf8InAChunk", "3C 00 72 81 C3 28 FF", kFailed + L"Invalid UTF-8 string."},
    {"invalidUtf8InAName", "3C 01 C0 80 FF", kFailed + L"Invalid UTF-8 string."},
    {"encodedSurrogateInUtf8", "3C 00 72 82 00 ED A0 80 FF", kFailed + L"Invalid UTF-8 string."},
    {"utf16OfOddLength", "3C 00 72 86 00 00 E9 00 FF", kFailed + L"Invalid UTF-16 string."},
    {"utf16LoneSurrogate", "3C 00 72 85 D8 3D FF", kFailed + L"Invalid UTF-16 string."},
    // The integer and length forms: patterns no form has, padding that is not zero, and values
    // past 2^20.
    {"attributeNameForm", "7C 00 72 70 FF", kBit2},
    {"attributeNamePast2pw20", "7C 00 72 6F DF C0 FF", kBit2},
    {"elementNameForm", "31 FF", kBit3},
    {"elementNamePadding", "30 10 00 00 FF", kBit3},
    {"elementNamePast2pw20", "30 07 F7 E0 FF", kBit3},
    {"chunkIndexForm", "3C 00 72 B9 FF", kBit4},
    {"chunkIndexPadding", "3C 00 72 B8 10 00 00 FF", kBit4},
    {"valueIndexForm", "7C 00 72 78 00 78 F1 FF",
     kFailed + L"Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet."},
    {"nameLengthForm", "3C 41 72 FF",
     kFailed + L"Invalid NonEmptyOctetString type  on the second bit of an octet."},
    {"valueLengthForm", "7C 00 72 78 00 78 0A 31 FF",
     kFailed + L"Invalid NonEmptyOctetString type  on the fifth bit of an octet."},
    {"sequenceLengthForm", "E0 00 00 01 20 00 80 90", kFailed + L"Invalid length of a sequence."},
    {"lengthPastTheEnd", "3C 00 72 83 FF FF FF FF 61", kFailed + L"Unexpected End of File."},
    {"noElement", "F0", kFailed + L"The document has no element."},
    {"secondDocumentElement", "3C 00 72 F0 00 FF", kFailed + L"A second document element follows the first."},
    {"invalidNotation", "E0 00 00 01 10 D0 F0 3C 00 72 FF", kFailed + L"Invalid notation."},
};

class RefusedDocuments : public testing::TestWithParam<Refused> {};

TEST_P(RefusedDocuments, RaiseTheirMessage) {
    EXPECT_EQ(GetParam().message, Refusal(GetParam().hex));
}

INSTANTIATE_TEST_SUITE_P(Reader, RefusedDocuments, testing::ValuesIn(kRefused),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Alphabets, OfFewerThanTwoCharactersAreRefused) {
    EXPECT_EQ(kFailed + L"Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 "
                        L"characters.",
              Refusal("3C 00 72 98 08 00 FF", WithAlphabet(L"a")));
}

} // namespace
