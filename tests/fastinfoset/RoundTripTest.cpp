// Bound objects through the Fast Infoset entry points and back through every loading one: the
// objects read back write the same XML text as the originals.

#include "support/Corpus.h"

#include "binding/support/Trips.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace QxXmlLib16;
using namespace FiTesting;
using namespace FiCorpus;

namespace {

class Objects : public testing::TestWithParam<Bound> {};

TEST_P(Objects, ReadBackFromStreamsFilesAndBytesUnderEveryDeclarationAndCompression) {
    const CSmartPtr<CXmlObjectBase> object = GetParam().make();
    CSerializationContext context;
    if (GetParam().suggested) context.GetFIContext()->SetSuggestedValues();
    const std::string expected = XmlOf(*object, context);
    const auto expectSame = [&](const std::function<void(CXmlObjectBase&)>& load) {
        const CSmartPtr<CXmlObjectBase> copy = GetParam().make();
        load(*copy);
        EXPECT_EQ("", TextDifference(expected, XmlOf(*copy, context)));
    };
    const std::string file = TempPath(GetParam().name + ".finf");
    const std::wstring path = Wide(file);
    for (FInfoDecl declaration : {fidNone, fidVersion10StandaloneYes})
        for (CompressionType compression : {ctNone, ctGzip, ctZlib}) {
            SCOPED_TRACE(testing::Message()
                         << "declaration " << declaration << " compression " << compression);
            const CBinaryData data = object->ToFastInfosetStream(declaration, context, compression);
            expectSame([&](CXmlObjectBase& copy) { copy.FromXmlStream(data, context); });
            Octets bytes = ToOctets(data);
            expectSame([&](CXmlObjectBase& copy) {
                copy.FromXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()), context);
            });
            if (compression == ctZlib) continue; // streams only
            object->ToFastInfosetFile(path.c_str(), declaration, context, compression);
            expectSame([&](CXmlObjectBase& copy) { copy.FromXmlFile(path.c_str(), context); });
        }
    std::remove(file.c_str());
}

INSTANTIATE_TEST_SUITE_P(Schemas, Objects, testing::ValuesIn(SchemaObjects()),
                         [](const auto& info) { return info.param.name; });

TEST(Files, ZlibIsOnlyForStreamsAndTheDocumentLoadsTheRest) {
    const std::string path = TempPath("document.finf");
    std::remove(path.c_str());
    EXPECT_EQ(L"ZLIB Compression only available for To Stream methods.", MessageOf<CQxException>([&] {
                  Trips::Minimal()->ToFastInfosetFile(Wide(path).c_str(), fidNone, CSerializationContext(),
                                                      ctZlib);
              }));
    EXPECT_EQ(nullptr, std::fopen(path.c_str(), "rb"));

    Trips::Full()->ToFastInfosetFile(Wide(path).c_str(), fidEncoding, CSerializationContext(), ctGzip);
    CXmlDocument fromFile;
    fromFile.Load(Wide(path).c_str());
    CXmlDocument fromText;
    fromText.LoadXml(Trips::Full()->ToXml(false, false).c_str());
    EXPECT_EQ(L"", TreeDifference(*fromText.GetDocumentElement(), *fromFile.GetDocumentElement()));
    std::remove(path.c_str());
}

// A vocabulary both ends know in advance: its entries go by index from the first use, so the
// document shrinks, and it reads back only with the same vocabulary.
TEST(GeneratedVocabulary, IsSharedByWriterAndReader) {
    const CSmartPtr<TestSchema::CTrip> trip = Trips::Full();
    CSerializationContext context;
    CFastInfosetContext& fi = *context.GetFIContext();
    fi.SetUseGeneratedVocabulary(true);
    fi.SetExternalVocabularyURI(L"urn:qx:test:trip:vocabulary");
    const size_t before = trip->ToFastInfosetStream(fidNone, context).GetLength();
    for (const wchar_t* name : {L"title", L"mode", L"distance", L"audit", L"created", L"start", L"label"})
        fi.GetVocabulary().AddElement(L"AA", TestSchema::kNamespace, name);
    fi.GetVocabulary().AddElementValue(L"12.5");
    const CBinaryData data = trip->ToFastInfosetStream(fidNone, context);
    EXPECT_LT(data.GetLength(), before);

    const CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip);
    copy->FromXmlStream(data, context);
    EXPECT_EQ("", TextDifference(XmlOf(*trip), XmlOf(*copy)));
    EXPECT_THROW(copy->FromXmlStream(data), CQxException); // without the vocabulary
}

} // namespace
