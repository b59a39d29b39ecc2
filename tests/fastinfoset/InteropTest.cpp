// Interoperability with the reference implementation (the Java FastInfoset library):
// - what our writer produces decodes there to the infoset of our XML text output of the same
//   objects or calls;
// - what its encoder produces from the same XML loads through our reader into the tree that the
//   XML text gives, and into the same bound objects.
// Each direction converts all its documents in one batch (one JVM).

#include "support/Corpus.h"

#include "support/Documents.h"

#include "GpxBindings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace QxXmlLib16;
using namespace FiTesting;
using namespace FiCorpus;

namespace {

// A document of ours: its octets and the XML text of the same content.
struct Ours {
    std::string name;
    std::function<Octets()> fastInfoset;
    std::function<std::wstring()> xml;
    bool numbersByValue; // the reference decoder writes floating-point numbers in its own form
};

CSerializationContext GpxContext() {
    CSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    return context;
}

std::string FileName(const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    return Documents::TestName(name.substr(0, name.find('.')));
}

// The GPX documents, the generated one made only when first needed.
struct GpxSource {
    std::string name;
    std::function<std::string()> path;
};

std::vector<GpxSource> GpxSources() {
    std::vector<GpxSource> sources;
    for (const std::string& file : GpxFiles())
        sources.push_back(GpxSource{FileName(file), [file] { return file; }});
    sources.push_back(GpxSource{"generated", [] { return GeneratedGpx(3000); }});
    return sources;
}

std::vector<Ours> OurDocuments() {
    std::vector<Ours> documents;
    for (const Bound& bound : SchemaObjects())
        documents.push_back(Ours{bound.name,
                                 [bound] {
                                     CSerializationContext context;
                                     if (bound.suggested) context.GetFIContext()->SetSuggestedValues();
                                     return ToOctets(bound.make()->ToFastInfosetStream(fidNone, context));
                                 },
                                 [bound] { return bound.make()->ToXml(false, false); }, bound.suggested});
    for (const GpxSource& source : GpxSources()) {
        auto load = [source] {
            CSmartPtr<Gpx::CGpx> object(new Gpx::CGpx);
            object->FromXmlFile(Wide(source.path()).c_str(), GpxContext());
            return object;
        };
        documents.push_back(
            Ours{"gpx_" + source.name,
                 [load] { return ToOctets(load()->ToFastInfosetStream(fidVersion10, GpxContext())); },
                 [load] { return load()->ToXml(false, false, eolLF, GpxContext()); }, false});
    }
    for (const Script& script : Scripts())
        documents.push_back(Ours{"script_" + script.name, [script] { return AsFastInfoset(script); },
                                 [script] { return AsXml(script); }, false});
    return documents;
}

// Each direction is one test, so that its documents go through one JVM.
TEST(Reference, DecodesEveryDocumentOfOurWriterToTheInfosetOfOurXml) {
    const std::vector<Ours> documents = OurDocuments();
    std::vector<std::pair<std::string, std::string>> files;
    for (const Ours& document : documents) {
        const std::string in = TempPath("ours_" + document.name + ".finf");
        WriteFile(in, document.fastInfoset());
        files.emplace_back(in, in + ".xml");
    }
    ASSERT_EQ("", Reference("decode", files));
    for (size_t i = 0; i < documents.size(); ++i) {
        SCOPED_TRACE(documents[i].name);
        const std::unique_ptr<CXmlDocument> reference = Loaded(ReadFile(files[i].second));
        const std::string ours = Utf8(documents[i].xml());
        const std::unique_ptr<CXmlDocument> expected = Loaded(Octets(ours.begin(), ours.end()));
        EXPECT_EQ(L"", TreeDifference(*expected->GetDocumentElement(), *reference->GetDocumentElement(),
                                      documents[i].numbersByValue));
    }
}

// An XML document that the reference encoder turns into Fast Infoset for our reader.
struct Theirs {
    std::string name;
    std::function<std::string()> xml; // makes the document if needed; its path
    bool gpx;                         // also loaded into the GPX bindings
};

std::vector<Theirs> TheirDocuments() {
    std::vector<Theirs> documents;
    for (const std::string& vector : VectorPaths())
        documents.push_back(
            Theirs{"vector_" + FileName(vector), [vector] { return vector + ".xml"; }, false});
    for (const GpxSource& source : GpxSources())
        documents.push_back(Theirs{"gpx_" + source.name, source.path, true});
    for (const Bound& bound : SchemaObjects()) {
        if (bound.suggested) continue;
        documents.push_back(Theirs{bound.name,
                                   [bound] {
                                       const std::string path = TempPath("theirs_" + bound.name + ".xml");
                                       WriteFile(path, bound.make()->ToXml(true, true));
                                       return path;
                                   },
                                   false});
    }
    for (const Script& script : Scripts())
        documents.push_back(Theirs{"script_" + script.name,
                                   [script] {
                                       const std::string path = TempPath("theirs_" + script.name + ".xml");
                                       WriteFile(path, AsXml(script));
                                       return path;
                                   },
                                   false});
    return documents;
}

TEST(Reference, EncodesEveryDocumentIntoWhatOurReaderLoadsAsTheXml) {
    const std::vector<Theirs> documents = TheirDocuments();
    std::vector<std::pair<std::string, std::string>> files;
    for (const Theirs& document : documents)
        files.emplace_back(document.xml(), TempPath("theirs_" + document.name + ".finf"));
    ASSERT_EQ("", Reference("encode", files));
    for (size_t i = 0; i < documents.size(); ++i) {
        SCOPED_TRACE(documents[i].name);
        const Octets fi = ReadFile(files[i].second);
        const std::unique_ptr<CXmlDocument> ours = Loaded(fi);
        const std::unique_ptr<CXmlDocument> expected = Loaded(ReadFile(files[i].first));
        EXPECT_EQ(L"", TreeDifference(*expected->GetDocumentElement(), *ours->GetDocumentElement()));
        if (!documents[i].gpx) continue;
        const CSmartPtr<Gpx::CGpx> fromXml(new Gpx::CGpx), fromFi(new Gpx::CGpx);
        fromXml->FromXmlFile(Wide(files[i].first).c_str(), GpxContext());
        Octets bytes = fi;
        fromFi->FromXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()), GpxContext());
        EXPECT_EQ("", TextDifference(XmlOf(*fromXml, GpxContext()), XmlOf(*fromFi, GpxContext())));
    }
}

} // namespace
