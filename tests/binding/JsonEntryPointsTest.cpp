// The JSON entry points of bound objects: every output shape reads back through every input shape,
// and the context's namespace switch is set and put back around a load.

#include "binding/support/Trips.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>

using namespace QxXmlLib16;
using namespace TestSchema;

namespace {

// Level 2 needs every namespace below the root declared on it: xsi for the stop's type.
CSerializationContext TripContext() {
    CSerializationContext context;
    context.GetNamespaceAliases().Add(L"xsi", CXmlWriter::XSI_NAMESPACE);
    return context;
}

void ExpectSameTrip(const CTrip& original, const std::function<void(CTrip&)>& load) {
    CSmartPtr<CTrip> copy(new CTrip());
    try {
        load(*copy);
    } catch (const CQxException& e) {
        ADD_FAILURE() << testing::PrintToString(e.GetFullMessage());
        return;
    }
    EXPECT_EQ(original.ToXml(), copy->ToXml());
}

std::string TempFile(const char* name) {
    return testing::TempDir() + name;
}

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

std::string Utf8(const std::wstring& text) {
    const CBinaryData bytes = CEncoder::UnicodeToUtf8Binary(text.c_str());
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

} // namespace

TEST(JsonEntryPoints, TextInEveryLayout) {
    const CSmartPtr<CTrip> trip = Trips::NilContact();
    const CSerializationContext context = TripContext();
    for (EOLType eol : {eolLF, eolCRLF})
        for (bool formatted : {false, true}) {
            const std::wstring json = trip->ToJson(formatted, eol, context);
            EXPECT_EQ(formatted, json.find(eol == eolLF ? L"{\n" : L"{\r\n") == 0);
            ExpectSameTrip(*trip, [&](CTrip& copy) { copy.FromJson(json.c_str(), context); });
        }
}

TEST(JsonEntryPoints, StreamsInEveryEncodingAndCompression) {
    const CSmartPtr<CTrip> trip = Trips::Minimal();
    const CSerializationContext context = TripContext();
    const std::wstring text = trip->ToJson(true, eolLF, context);
    for (XmlEncoding encoding : {encUTF8, encUTF16})
        for (CompressionType compression : {ctNone, ctGzip, ctZlib}) {
            SCOPED_TRACE(testing::Message() << "encoding " << encoding << " compression " << compression);
            const CBinaryData data = trip->ToJsonStream(true, encoding, eolLF, context, compression);
            if (compression == ctNone && encoding == encUTF8) {
                EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(text.c_str()), data);
            }
            // The loaders take UTF-8 only.
            if (encoding == encUTF8)
                ExpectSameTrip(*trip, [&](CTrip& copy) { copy.FromJsonStream(data, context); });
        }
}

TEST(JsonEntryPoints, FilesPlainAndCompressed) {
    const CSmartPtr<CTrip> trip = Trips::Minimal();
    const CSerializationContext context = TripContext();
    const std::string path = TempFile("entry_points.json");
    for (CompressionType compression : {ctNone, ctGzip}) {
        trip->ToJsonFile(Wide(path).c_str(), true, encUTF8, eolCRLF, context, compression);
        ExpectSameTrip(*trip, [&](CTrip& copy) { copy.FromJsonFile(Wide(path).c_str(), context); });
    }
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(0x1F, static_cast<unsigned char>(bytes.at(0))); // gzip
    ExpectSameTrip(*trip, [&](CTrip& copy) {
        copy.FromJson(Utf8(trip->ToJson(true, eolLF, context)).c_str(), context);
    });
    std::remove(path.c_str());
    EXPECT_EQ(L"ZLIB Compression only available for To Stream methods.", MessageOf<CQxException>([&] {
                  trip->ToJsonFile(Wide(path).c_str(), true, encUTF8, eolLF, context, ctZlib);
              }));
    EXPECT_FALSE(std::ifstream(path).good());
}

namespace {

// Notes the namespace switch its load sees, and can refuse the load.
class CSwitchProbe : public CXmlObjectBase {
public:
    bool sawIgnoreNamespaces = false;
    bool refuse = false;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }

protected:
    void ToXml_Int(CXmlWriter*, bool, const wchar_t*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CSerializationContext& context,
                             bool) override {
        sawIgnoreNamespaces = context.GetIgnoreNamespaces();
        if (refuse) throw CQxValidationException(L"refused", L"/r");
        return firstChild;
    }
};

} // namespace

// Below level 2 the load matches names by their local part; the switch is put back afterwards,
// whether the load succeeds or fails.
TEST(JsonEntryPoints, NamespaceSwitchIsSetForTheLoadAndPutBack) {
    for (JsonRoundTrip level : {jrtNone, jrtMarkers, jrtFull})
        for (bool refuse : {false, true}) {
            SCOPED_TRACE(testing::Message() << "level " << level << " refuse " << refuse);
            CSerializationContext context;
            context.GetJsonContext()->SetSupportRoundtrip(level);
            CSmartPtr<CSwitchProbe> probe(new CSwitchProbe);
            probe->refuse = refuse;
            EXPECT_EQ(refuse ? L"refused\nPath: /r" : L"(no exception)",
                      MessageOf<CQxException>([&] { probe->FromJson(L"{\"r\": 1}", context); }));
            EXPECT_EQ(level != jrtFull, probe->sawIgnoreNamespaces);
            EXPECT_FALSE(context.GetIgnoreNamespaces());
        }
    // The value put back is the computed one: with SchemaType 2 the switch itself stays set.
    CSerializationContext context;
    context.SetSchemaType(stNoNamespaces);
    CSmartPtr<CSwitchProbe> probe(new CSwitchProbe);
    probe->FromJson(L"{\"r\": 1}", context);
    context.SetSchemaType(stDefault);
    EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(JsonEntryPoints, GrammarErrorsReachTheCaller) {
    CSmartPtr<CTrip> trip(new CTrip());
    EXPECT_EQ(
        L"Unexpected End of File. Expected Object terminator character '}' at line 1, position 16.\n"
        L"Path: .trip",
        MessageOf<CQxValidationException>([&] { trip->FromJson(L"{\"trip\": {\"a\": 1", TripContext()); }));
    EXPECT_EQ(L"JSON String is empty!", MessageOf<CQxException>([&] { trip->FromJson(L"", TripContext()); }));
}

// Wildcard content of any depth writes as JSON without recursion; reading JSON stops at the
// reader's depth limit with its message, long before any stack would suffer.
TEST(JsonEntryPoints, MillionLevelsWriteWholeAndReadUpToTheLimit) {
    const size_t depth = 1000000;
    std::wstring xml;
    for (size_t i = 0; i < depth; ++i)
        xml += L"<a>";
    xml += L"leaf";
    for (size_t i = 0; i < depth; ++i)
        xml += L"</a>";
    CSmartPtr<CElement> element(new CElement(L"a"));
    element->FromXml(xml.c_str());
    const std::wstring json = element->ToJson(false);
    ASSERT_EQ(7 * (depth - 1) + 11 + 2, json.size());
    EXPECT_EQ(0u, json.find(L"{\"a\": {\"a\": {"));
    EXPECT_EQ(json.size() - depth - 11, json.find(L"\"a\": \"leaf\"}"));

    const std::wstring message = MessageOf<CQxValidationException>([&] { element->FromJson(json.c_str()); });
    EXPECT_EQ(0u, message.find(L"JSON exceeded depth limit at line 1, position 601.\nPath: .a.a.a"))
        << Utf8(message);
}
