// The JSON reader's grammar, events, positions, paths and limits, through a handler that records
// what it receives.

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/json/JsonTextReader.h>

#include "json/support/Handlers.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

namespace {

// Logs the events as compact text: {, }, [, ], name:, "string", #number, true, false, null. It can
// throw at a chosen event, as a handler that refuses the input does.
class Recorder : public IJsonReaderHandler {
public:
    std::wstring log;
    int throwAt = -1;

    void ReadStartDocument() override { Add(L"<"); }
    void ReadEndDocument() override { Add(L">"); }
    void ReadName(const std::wstring& name) override { Add(name + L":"); }
    void ReadString(const std::wstring& value) override { Add(L"\"" + value + L"\""); }
    void ReadNumber(const std::wstring& value) override { Add(L"#" + value); }
    void ReadStartObject() override { Add(L"{"); }
    void ReadEndObject() override { Add(L"}"); }
    void ReadStartArray() override { Add(L"["); }
    void ReadEndArray() override { Add(L"]"); }
    void ReadBool(bool value) override { Add(value ? L"true" : L"false"); }
    void ReadNull() override { Add(L"null"); }

private:
    void Add(const std::wstring& event) {
        if (m_count++ == throwAt) throw CQxException(L"refused at " + event);
        if (!log.empty()) log += L' ';
        log += event;
    }
    int m_count = 0;
};

std::wstring Events(const std::wstring& json, bool allowComments = true, const wchar_t* root = nullptr) {
    CJsonTextReader reader(json);
    Recorder recorder;
    reader.SetJsonReaderHandler(&recorder);
    reader.SetAllowComments(allowComments);
    reader.SetRootElementName(root);
    reader.Read();
    return recorder.log;
}

// The message of the failure reading json without its path, or "(read)".
std::wstring Failure(const std::wstring& json, bool allowComments = true) {
    try {
        Events(json, allowComments);
    } catch (const CQxValidationException& e) {
        return e.GetMessage().substr(0, e.GetMessage().find(L"\nPath: "));
    }
    return L"(read)";
}

struct EventCase {
    const char* name;
    const wchar_t* json;
    const wchar_t* events;
};

void PrintTo(const EventCase& c, std::ostream* os) {
    *os << c.name;
}

class JsonReaderEvents : public testing::TestWithParam<EventCase> {};

TEST_P(JsonReaderEvents, InDocumentOrder) {
    EXPECT_EQ(GetParam().events, Events(GetParam().json));
}

const EventCase kEventCases[] = {
    {"Member", L"{\"a\": 1}", L"< { a: #1 } >"},
    {"EveryValueKind",
     L"{\"s\": \"x\", \"n\": -1.5e+3, \"t\": true, \"f\": false, \"z\": null, \"o\": {}, \"a\": []}",
     L"< { s: \"x\" n: #-1.5e+3 t: true f: false z: null o: { } a: [ ] } >"},
    {"Nesting", L"[[1, [2]], {\"a\": [{}]}]", L"< [ [ #1 [ #2 ] ] { a: [ { } ] } ] >"},
    {"TopLevelScalar", L"  \"only\"  ", L"< \"only\" >"},
    {"NumbersAsWritten", L"[0, -0, 007, 1.50, 2E5, 3e-0]", L"< [ #0 #-0 #007 #1.50 #2E5 #3e-0 ] >"},
    {"Escapes", L"[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0041\\u00e9\"]", L"< [ \"\"\\/\b\f\n\r\tA\xE9\" ] >"},
    {"SurrogatePairJoined", L"[\"\\uD83D\\uDE00\", \"\\ud800x\", \"\\uDC00\"]",
     L"< [ \"\x1F600\" \"\xD800x\" \"\xDC00\" ] >"},
    {"LineFeedInStringDropped", L"[\"a\nb\", \"c\\nd\"]", L"< [ \"ab\" \"c\nd\" ] >"},
    {"Blanks", L"\t{\r\n \"a\" \t:\n[ 1 ,2 ] }\r\n", L"< { a: [ #1 #2 ] } >"},
    {"Comments", L"{/* c */ \"a\": 1 // d\n}", L"< { a: #1 } >"},
    {"CommentsEverywhereBlanksAre", L"/*a*/[/*b*/1/*c*/,//d\n2/*e*/]// f", L"< [ #1 #2 ] >"},
    {"EmptyText", L"  ", L"< >"},
};

INSTANTIATE_TEST_SUITE_P(Cases, JsonReaderEvents, testing::ValuesIn(kEventCases),
                         [](const testing::TestParamInfo<EventCase>& info) { return info.param.name; });

TEST(JsonReaderEvents, RootElementNameWrapsTheValue) {
    EXPECT_EQ(L"< { doc: [ #1 ] } >", Events(L"[1]", true, L"doc"));
    EXPECT_EQ(L"< { doc: } >", Events(L"", true, L"doc"));
}

struct ErrorCase {
    const char* name;
    const wchar_t* json;
    const wchar_t* message; // without the path
};

void PrintTo(const ErrorCase& c, std::ostream* os) {
    *os << c.name;
}

class JsonReaderErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(JsonReaderErrors, ExactMessageLineAndPosition) {
    EXPECT_EQ(GetParam().message, Failure(GetParam().json));
}

// Positions count the characters of the line up to and including the offending one; at the end of
// the text, all characters of the last line.
const ErrorCase kErrorCases[] = {
    {"ValueExpected", L"{\"a\": x}",
     L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, position "
     L"7."},
    {"ValueExpectedOnSecondLine", L"{\"a\": 1,\n  \"b\": ]}",
     L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found ']' at line 2, position "
     L"8."},
    {"NameQuote", L"{a: 1}",
     L"Expected quotation mark character '\"' before Name, found 'a' at line 1, position 2."},
    {"TrailingCommaInObject", L"{\"a\": 1,}",
     L"Expected quotation mark character '\"' before Name, found '}' at line 1, position 9."},
    {"NameSeparator", L"{\"a\" 1}",
     L"Expected Object Name/Value separator character ':', found '1' at line 1, position 6."},
    {"EndBeforeNameSeparator", L"{\"a\"  ",
     L"Unexpected End of File. Expected Object Name/Value separator character ':' at line 1, position 6."},
    {"EndBeforeMemberValue", L"{\"a\":\n",
     L"Unexpected End of File. Expected Object Value at line 2, position 0."},
    {"ObjectSeparator", L"{\"a\": 1 \"b\": 2}",
     L"Expected Object separator character ',', found '\"' at line 1, position 9."},
    {"EndInObject", L"{\"a\": 1",
     L"Unexpected End of File. Expected Object terminator character '}' at line 1, position 7."},
    {"EndAfterComma", L"{\"a\": 1, ",
     L"Unexpected End of File. Expected Object terminator character '}' at line 1, position 9."},
    {"EndAfterObjectStart", L"[{",
     L"Unexpected End of File. Expected Object terminator character '}}' at line 1, position 2."},
    {"ArraySeparator", L"[1 2]", L"Expected Array separator character ',', found '2' at line 1, position 4."},
    {"TrailingCommaInArray", L"[1,]",
     L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found ']' at line 1, position "
     L"4."},
    {"EndInArray", L"[1, [2]",
     L"Unexpected End of File. Expected Array terminator character ']' at line 1, position 7."},
    {"EndAfterArrayStart", L"[",
     L"Unexpected End of File. Expected Array terminator character ']' at line 1, position 1."},
    {"EndInUnicodeEscape", L"[\"\\u00",
     L"Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line 1, position 6."},
    {"NotAHexDigit", L"[\"\\u00g0\"]",
     L"Expected 4 hexadecimal digits'\\uxxxx', found 'g' at line 1, position 7."},
    {"InvalidEscape", L"[\"a\\x\"]", L"Invalid Escape Character 'x' at line 1, position 5."},
    {"EndInString", L"{\"a\": \"abc",
     L"Unexpected End of File. Expected string value at line 1, position 10."},
    {"EndInName", L"{\"ab", L"Unexpected End of File. Expected string value at line 1, position 4."},
    {"EndAfterBackslash", L"[\"\\", L"Unexpected End of File. Expected string value at line 1, position 3."},
    {"DigitAfterMinus", L"[-x]", L"Expected a digit '0' to '9', found 'x' at line 1, position 3."},
    {"DigitAfterPoint", L"[1.e5]", L"Expected a digit '0' to '9', found 'e' at line 1, position 4."},
    {"DigitInExponent", L"[1e+x]", L"Expected a digit '0' to '9', found 'x' at line 1, position 5."},
    {"EndAfterMinus", L"-", L"Unexpected End of File. Expected a digit '0' to '9' at line 1, position 1."},
    {"EndAfterPoint", L"1.", L"Unexpected End of File. Expected a digit '0' to '9' at line 1, position 2."},
    {"EndAfterExponent", L"1e",
     L"Unexpected End of File. Expected '+', '-' or a number at line 1, position 2."},
    {"EndAfterExponentSign", L"1E-", L"Unexpected End of File. Expected a number at line 1, position 3."},
    {"MisspeltLiteral", L"[tru]", L"Expected 'true', found ']' at line 1, position 5."},
    {"EndInLiteral", L"[nul", L"Unexpected End of File. Expected 'null' at line 1, position 4."},
    {"TrailingContent", L"{} {}", L"Expected End of File, found '{' at line 1, position 4."},
    // Lines counted inside comments too.
    {"AfterCommentsOverLines", L"[1, /* a\n b */ // c\n  x]",
     L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 3, position "
     L"3."},
    {"UnterminatedComment", L"[1 /* no end",
     L"Unexpected End of File. Expected Array terminator character ']' at line 1, position 12."},
    {"ByteOrderMarkIsNoValue", L"\xFEFF{}",
     L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '\xFEFF' at line 1, "
     L"position 1."},
};

INSTANTIATE_TEST_SUITE_P(Cases, JsonReaderErrors, testing::ValuesIn(kErrorCases),
                         [](const testing::TestParamInfo<ErrorCase>& info) { return info.param.name; });

TEST(JsonReaderComments, RefusedWhenSwitchedOff) {
    EXPECT_EQ(L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '/' at line 1, "
              L"position 2.",
              Failure(L"[/* c */1]", false));
    // A lone slash is no comment either way.
    EXPECT_EQ(L"Expected Array separator character ',', found '/' at line 1, position 4.",
              Failure(L"[1 / 2]"));
}

TEST(JsonReaderPaths, NameTheMemberAndItemWhereReadingStopped) {
    struct Case {
        const wchar_t* json;
        const wchar_t* path;
    } const cases[] = {
        {L"{\"a\": {\"b\": x}}", L".a.b"},
        {L"{\"a\": [{\"c\": 1}, {\"c\": tx}]}", L".a.a[1].c"},
        {L"{\"a\": [1, [2, x]]}", L".a.a[1]"},
        {L"{\"a\": {\"b\": 1} x}", L""},
    };
    for (const Case& c : cases) {
        try {
            Events(c.json);
            ADD_FAILURE() << "read: " << testing::PrintToString(std::wstring(c.json));
        } catch (const CQxValidationException& e) {
            EXPECT_EQ(c.path, e.GetPath()) << testing::PrintToString(e.GetMessage());
        }
    }
}

// A handler's refusal stops the reading and reaches the caller unchanged; its path is the member
// whose value it refused.
TEST(JsonReaderHandlers, ARefusalStopsTheReadingAtThatEvent) {
    const std::wstring json = L"{\"a\": [true, {\"b\": \"x\"}]}";
    for (int event = 0; event < 10; ++event) {
        CJsonTextReader reader(json);
        Recorder recorder;
        recorder.throwAt = event;
        reader.SetJsonReaderHandler(&recorder);
        EXPECT_THROW(reader.Read(), CQxException) << event;
    }
    CJsonTextReader reader(json);
    Recorder recorder;
    recorder.throwAt = 7; // the string "x"
    reader.SetJsonReaderHandler(&recorder);
    try {
        reader.Read();
        FAIL();
    } catch (const CQxException& e) {
        EXPECT_EQ(L"refused at \"x\"", e.GetMessage());
        EXPECT_EQ(L".a.a[1].b", reader.GetErrorPathProvider().GetPath());
    }
}

// The limit counts every value of the nesting, simple ones included: 99 arrays may hold a number,
// 100 may not.
TEST(JsonReaderLimits, DepthLimitCountsEveryValue) {
    const auto nested = [](int depth) {
        return std::wstring(static_cast<size_t>(depth), L'[') + L"1" +
               std::wstring(static_cast<size_t>(depth), L']');
    };
    EXPECT_EQ(L"(read)", Failure(nested(99)));
    EXPECT_EQ(L"JSON exceeded depth limit at line 1, position 101.", Failure(nested(100)));
}

// Nesting is followed without recursion: a million levels stop at the limit at once, and with the
// limit raised read through.
TEST(JsonReaderLimits, AMillionLevelsReadIteratively) {
    const size_t depth = 1000000;
    const std::wstring json = std::wstring(depth, L'[') + std::wstring(depth, L']');
    EXPECT_EQ(L"JSON exceeded depth limit at line 1, position 101.", Failure(json));

    struct Counter : CIgnoringHandler {
        size_t arrays = 0, deepest = 0, open = 0;
        void ReadStartArray() override { deepest = std::max(deepest, ++open), ++arrays; }
        void ReadEndArray() override { --open; }
    } counter;
    CJsonTextReader reader(json);
    reader.SetMaxDepth(static_cast<int>(depth));
    reader.SetJsonReaderHandler(&counter);
    reader.Read();
    EXPECT_EQ(depth, counter.arrays);
    EXPECT_EQ(depth, counter.deepest);
    EXPECT_EQ(0u, counter.open);
}

} // namespace
