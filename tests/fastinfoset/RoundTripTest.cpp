// Bound objects through the Fast Infoset entry points and back through every loading one: the
// objects read back write the same XML text as the originals.

#include "support/Documents.h"

#include "GpxBindings.h"
#include "binding/support/Trips.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace QxXmlLib16;
using namespace FiTesting;
using namespace FiDocuments;

namespace {

CSerializationContext ContextFor(bool suggested) {
    CSerializationContext context;
    if (suggested) context.GetFIContext()->SetSuggestedValues();
    return context;
}

class Objects : public testing::TestWithParam<Bound> {};

TEST_P(Objects, ReadBackFromStreamsWithEveryDeclarationAndCompression) {
    const CSmartPtr<CXmlObjectBase> object = GetParam().make();
    const CSerializationContext context = ContextFor(GetParam().suggested);
    const std::string expected = XmlOf(*object, context);
    for (FInfoDecl declaration : {fidNone, fidVersion10StandaloneYes})
        for (CompressionType compression : {ctNone, ctGzip, ctZlib}) {
            SCOPED_TRACE(testing::Message()
                         << "declaration " << declaration << " compression " << compression);
            const CBinaryData data = object->ToFastInfosetStream(declaration, context, compression);
            const CSmartPtr<CXmlObjectBase> copy = GetParam().make();
            copy->FromXmlStream(data, context);
            EXPECT_EQ("", TextDifference(expected, XmlOf(*copy, context)));
        }
}

TEST_P(Objects, ReadBackFromFilesAndBytes) {
    const CSmartPtr<CXmlObjectBase> object = GetParam().make();
    const CSerializationContext context = ContextFor(GetParam().suggested);
    const std::string expected = XmlOf(*object, context);
    const std::string path = TempPath(GetParam().name + ".finf");
    for (CompressionType compression : {ctNone, ctGzip}) {
        object->ToFastInfosetFile(Wide(path).c_str(), fidVersion10, context, compression);
        const CSmartPtr<CXmlObjectBase> copy = GetParam().make();
        copy->FromXmlFile(Wide(path).c_str(), context);
        EXPECT_EQ("", TextDifference(expected, XmlOf(*copy, context)));
        Octets bytes = ReadFile(path);
        const CSmartPtr<CXmlObjectBase> fromBytes = GetParam().make();
        fromBytes->FromXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()), context);
        EXPECT_EQ("", TextDifference(expected, XmlOf(*fromBytes, context)));
    }
    std::remove(path.c_str());
}

INSTANTIATE_TEST_SUITE_P(Schemas, Objects, testing::ValuesIn(SchemaObjects()),
                         [](const auto& info) { return info.param.name; });

TEST(Files, ZlibIsOnlyForStreams) {
    const std::string path = TempPath("refused.finf");
    std::remove(path.c_str());
    try {
        Trips::Minimal()->ToFastInfosetFile(Wide(path).c_str(), fidNone, CSerializationContext(), ctZlib);
        ADD_FAILURE() << "written";
    } catch (const CQxException& e) {
        EXPECT_EQ(L"ZLIB Compression only available for To Stream methods.", e.GetMessage());
    }
    EXPECT_EQ(nullptr, std::fopen(path.c_str(), "rb"));
}

TEST(Files, TheDocumentLoadsThemAsTheBindingsDo) {
    const std::string path = TempPath("document.finf");
    Trips::Full()->ToFastInfosetFile(Wide(path).c_str(), fidEncoding, CSerializationContext(), ctGzip);
    CXmlDocument fromFile;
    fromFile.Load(Wide(path).c_str());
    CXmlDocument fromText;
    fromText.LoadXml(Trips::Full()->ToXml(false, false).c_str());
    EXPECT_EQ(L"", TreeDifference(*fromText.GetDocumentElement(), *fromFile.GetDocumentElement()));
    std::remove(path.c_str());
}

class GpxDocuments : public testing::TestWithParam<std::string> {};

TEST_P(GpxDocuments, ReadBackIntoTheSameObjects) {
    CSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    gpx->FromXmlFile(Wide(GetParam()).c_str(), context);
    const CSmartPtr<Gpx::CGpx> copy(new Gpx::CGpx);
    copy->FromXmlStream(gpx->ToFastInfosetStream(fidNone, context, ctGzip), context);
    EXPECT_EQ("", TextDifference(XmlOf(*gpx, context), XmlOf(*copy, context)));
}

INSTANTIATE_TEST_SUITE_P(Shared, GpxDocuments, testing::ValuesIn(GpxFiles()), [](const auto& info) {
    std::string name = info.param.substr(info.param.rfind('/') + 1);
    name = name.substr(0, name.find('.'));
    for (char& c : name)
        if (!isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
});

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
