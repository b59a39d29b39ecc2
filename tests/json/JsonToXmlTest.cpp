// JSON turned back into XML text where the writer's shapes do not reach (JsonTextWriterTest reads
// those back): what the writer never writes, the lower levels, and what XML cannot take.

#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/json/JsonTextReader.h>

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

namespace {

CSerializationContext Context(JsonRoundTrip level, const wchar_t* rootName = nullptr) {
    CSerializationContext context;
    context.GetJsonContext()->SetSupportRoundtrip(level);
    context.GetJsonContext()->SetRootElementName(rootName);
    return context;
}

std::string Xml(const std::wstring& json, const CSerializationContext& context) {
    const CBinaryData bytes = CJsonTextReader::ConvertJsonToXml(json, context);
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

struct XmlCase {
    const char* name;
    JsonRoundTrip level;
    const wchar_t* json;
    const char* xml;
};

void PrintTo(const XmlCase& c, std::ostream* os) {
    *os << c.name;
}

class JsonToXml : public testing::TestWithParam<XmlCase> {};

TEST_P(JsonToXml, ReversesTheWritersMapping) {
    EXPECT_EQ(GetParam().xml, Xml(GetParam().json, Context(GetParam().level)));
}

#define XSI_NIL(prefix)                                                                                      \
    "xmlns:" prefix "=\"http://www.w3.org/2001/XMLSchema-instance\" " prefix ":nil=\"true\""

const XmlCase kXmlCases[] = {
    {"TextBeforeAChild", jrtMarkers, L"{\"r\": {\"#text\": \"t\", \"c\": {}}}", "<r>t\t<c/>\n</r>\n"},
    {"EmptyArrayIsNoElement", jrtFull, L"{\"r\": {\"a\": [], \"b\": {}}}", "<r>\n\t<b/>\n</r>\n"},
    {"NullAttributeIsLeftOut", jrtFull, L"{\"a\": {\"@x\": null, \"@y\": false}}", "<a y=\"false\"/>\n"},
    // The nil attribute's prefix is not one the document declares.
    {"DeclaredPrefixesAreKnown", jrtFull,
     L"{\"AA:r\": {\"@xmlns:AA\": \"urn:r\", \"@xmlns\": \"urn:d\", \"AA:n\": null}}",
     "<AA:r xmlns:AA=\"urn:r\" xmlns=\"urn:d\">\n\t<AA:n " XSI_NIL("AB") "/>\n</AA:r>\n"},
    {"MarkersArePlainNamesAtLevelZero", jrtNone, L"{\"r\": {\"x\": 1, \"y\": {\"z\": \"t\"}}}",
     "<r>\n\t<x>1</x>\n\t<y>\n\t\t<z>t</z>\n\t</y>\n</r>\n"},
    {"CharactersAboveTheBasicPlane", jrtFull, L"{\"a\": \"\\uD83D\\uDE00\x1F601\"}",
     "<a>\xF0\x9F\x98\x80\xF0\x9F\x98\x81</a>\n"},
};

INSTANTIATE_TEST_SUITE_P(Cases, JsonToXml, testing::ValuesIn(kXmlCases),
                         [](const testing::TestParamInfo<XmlCase>& info) { return info.param.name; });

TEST(JsonToXmlRoot, RootElementNameHoldsTheWholeValue) {
    EXPECT_EQ("<doc>\n\t<a>1</a>\n\t<b>2</b>\n</doc>\n",
              Xml(L"{\"a\": 1, \"b\": 2}", Context(jrtFull, L"doc")));
    EXPECT_EQ("<n>5</n>\n", Xml(L"5", Context(jrtFull, L"n")));
    EXPECT_EQ("<n>1</n>\n<n>2</n>\n", Xml(L"[1, 2]", Context(jrtFull, L"n")));
}

struct FailureCase {
    const char* name;
    JsonRoundTrip level;
    const wchar_t* json;
    const wchar_t* message; // with its path
    bool invalidState;      // else a validation failure
};

void PrintTo(const FailureCase& c, std::ostream* os) {
    *os << c.name;
}

class JsonToXmlFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(JsonToXmlFailure, MessageAndPath) {
    try {
        Xml(GetParam().json, Context(GetParam().level));
        ADD_FAILURE() << "converted";
    } catch (const CQxInvalidStateException& e) {
        EXPECT_TRUE(GetParam().invalidState);
        EXPECT_EQ(GetParam().message, e.GetMessage());
    } catch (const CQxValidationException& e) {
        EXPECT_FALSE(GetParam().invalidState);
        EXPECT_EQ(GetParam().message, e.GetMessage());
    }
}

const FailureCase kFailureCases[] = {
    {"EmptyName", jrtFull, L"{\"r\": {\"\": 1}}", L"JSON item has an empty Name.\nPath: .r", false},
    {"EmptyTextKeyAtLevelZero", jrtNone, L"{\"r\": {\"x\": 1, \"\": \"t\"}}",
     L"JSON item has an empty Name.\nPath: .r", false},
    {"EmptyAttributeName", jrtMarkers, L"{\"r\": {\"@\": 1}}", L"JSON item has an empty Name.\nPath: .r.@",
     false},
    {"TopLevelArray", jrtFull, L"[1]", L"JSON item has an empty Name.", false},
    {"TopLevelValue", jrtFull, L"\"x\"", L"JSON item has an empty Name.", false},
    {"ArrayInArray", jrtFull, L"{\"r\": {\"a\": [[1]]}}", L"JSON item has an empty Name.\nPath: .r.a.a[0]",
     false},
    {"MarkersAreNoElementNamesAtLevelZero", jrtNone, L"{\"a\": {\"@x\": \"1\", \"#text\": \"t\"}}",
     L"Failed to convert name '@x' to Element name in XML.\nPath: .a.@x", true},
    {"ElementNameNotXml", jrtFull, L"{\"r\": {\"1st\": 1}}",
     L"Failed to convert name '1st' to Element name in XML.\nPath: .r.1st", true},
    {"AttributeNameNotXml", jrtFull, L"{\"r\": {\"@a b\": 1}}",
     L"Failed to convert name 'a b' to Attribute name in XML.\nPath: .r.@a b", true},
    {"ControlCharacterInText", jrtFull, L"{\"r\": {\"a\": \"x\\u0001\"}}",
     L"Failed to convert value 'x\x01' to Element string value in XML.\nPath: .r.a", true},
    {"LoneSurrogateInAttribute", jrtFull, L"{\"r\": {\"@a\": \"\\uDC00\"}}",
     L"Failed to convert value '\xDC00' to Attribute string value in XML.\nPath: .r.@a", true},
    {"AttributeAfterChild", jrtFull, L"{\"r\": {\"c\": 1, \"@a\": 2}}",
     L"Failed to convert value '2' to Attribute string value in XML.\nPath: .r.@a", true},
    {"ObjectAsAttribute", jrtFull, L"{\"r\": {\"@a\": {}}}",
     L"JSON item [@a] must have a string, number, boolean or null value.\nPath: .r.@a", false},
    {"ArrayAsText", jrtFull, L"{\"r\": {\"#text\": []}}",
     L"JSON item [#text] must have a string, number, boolean or null value.\nPath: .r.#text", false},
    {"TextOutsideAnyElement", jrtFull, L"{\"#text\": \"t\"}",
     L"Failed to convert value 't' to Element string value in XML.\nPath: .#text", true},
    {"NoElement", jrtFull, L"{}", L"The JSON text holds no element.", false},
};

INSTANTIATE_TEST_SUITE_P(Cases, JsonToXmlFailure, testing::ValuesIn(kFailureCases),
                         [](const testing::TestParamInfo<FailureCase>& info) { return info.param.name; });

TEST(JsonToXmlFailure, LongValuesAreCutShortInTheMessage) {
    try {
        Xml(L"{\"a\": \"" + std::wstring(1000, L'v') + L"\\u0000\"}", Context(jrtFull));
        FAIL();
    } catch (const CQxInvalidStateException& e) {
        EXPECT_EQ(L"Failed to convert value '" + std::wstring(64, L'v') +
                      L"...' to Element string value in XML.",
                  e.GetMessage().substr(0, e.GetMessage().find(L'\n')));
    }
}

} // namespace
