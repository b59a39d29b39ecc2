// Every real GPX file, and a generated one, through JSON and back into the bindings: the same XML
// text again, and JSON that Python's json module reads.

#include "GpxBindings.h"
#include "GpxNamespaces.h"
#include "support/TempFile.h"
#include "support/Documents.h"
#include "json/support/PythonJson.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace QxXmlLib16;

namespace {

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// A GPX document in the bindings, and a context that writes it as it came: GPX as the default
// namespace and the namespaces of its extensions declared on the root, where level 2 needs them.
struct Loaded {
    CSmartPtr<Gpx::CGpx> gpx{new Gpx::CGpx};
    CSerializationContext context;
    int foreignNamespaces = 0; // other than GPX's and the schema instance's
};

void Load(const std::string& path, Loaded& loaded) {
    CXmlDocument document(loaded.context);
    document.Load(Wide(path).c_str());
    loaded.gpx->FromXmlElement(document.GetDocumentElement(), loaded.context);
    loaded.context.SetDefaultNamespaceURI(Gpx::kNamespace);
    loaded.foreignNamespaces = Gpx::DeclareNamespaces(document, loaded.context);
    if (loaded.context.GetNamespaceAliases().DoesNamespaceExist(CXmlWriter::XSI_NAMESPACE))
        --loaded.foreignNamespaces;
}

// Writes the loaded document as JSON, reads it back into new bindings, and expects the same XML.
// Returns the JSON.
std::wstring ExpectJsonRoundTrip(const Loaded& loaded, bool formatted, bool rfc8259) {
    loaded.context.GetJsonContext()->SetRfc8259Escaping(rfc8259);
    const std::wstring json = loaded.gpx->ToJson(formatted, eolLF, loaded.context);
    const CSmartPtr<Gpx::CGpx> copy(new Gpx::CGpx);
    try {
        copy->FromJson(json.c_str(), loaded.context);
    } catch (const CQxException& e) {
        ADD_FAILURE() << Narrow(e.GetFullMessage());
        return json;
    }
    EXPECT_TRUE(loaded.gpx->ToXml(true, true, eolLF, loaded.context) ==
                copy->ToXml(true, true, eolLF, loaded.context));
    return json;
}

void ExpectJsonProof(const std::string& path, const std::string& name) {
    Loaded loaded;
    Load(path, loaded);
    std::vector<std::string> files;
    for (bool formatted : {false, true}) {
        const std::wstring strict = ExpectJsonRoundTrip(loaded, formatted, true);
        files.push_back(PythonJson::WriteUtf8File(name + std::to_string(formatted) + ".json", strict));
        // The established escaping serves the files whose strings need no escaping.
        if (PythonJson::HasCharactersLeftUnescaped(strict)) continue;
        const std::wstring established = ExpectJsonRoundTrip(loaded, formatted, false);
        EXPECT_TRUE(strict == established);
    }
    EXPECT_EQ("", PythonJson::Run(files));
}

class RealFileJson : public ::testing::TestWithParam<std::string> {};

TEST_P(RealFileJson, RoundTripsThroughJsonAtLevelTwo) {
    ExpectJsonProof(Documents::Shared(GetParam()), "json-" + GetParam().substr(4));
}

TEST(LongDecimalsJson, EveryDigitKeptAsANumber) {
    ExpectJsonProof(Documents::Shared("gpx/long-decimals/garmin-connect-bikeride.gpx"), "json-long-decimals");
    Loaded loaded;
    Load(Documents::Shared("gpx/long-decimals/garmin-connect-bikeride.gpx"), loaded);
    EXPECT_NE(
        std::wstring::npos,
        loaded.gpx->ToJson(false, eolLF, loaded.context).find(L"\"@lat\": 35.7804112695157527923583984375"));
}

TEST(GeneratedJson, RoundTripsThroughJsonAtLevelTwo) {
    const std::string path = TempPath("generated-json.gpx");
    const std::string command = "python3 '" + Documents::Shared("../tools/gen_gpx.py") +
                                "' --points 3000 --waypoints 20 --routes 3 -o '" + path + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ExpectJsonProof(path, "json-generated");
}

// Level 1 drops namespaces: it carries the files whose content is all GPX's own, and the others
// lose the namespaces of their extensions.
TEST_P(RealFileJson, LevelOneKeepsExactlyTheFilesWithoutForeignContent) {
    Loaded loaded;
    Load(Documents::Shared(GetParam()), loaded);
    loaded.context.GetJsonContext()->SetSupportRoundtrip(jrtMarkers);
    loaded.context.GetJsonContext()->SetRfc8259Escaping(true);
    const std::wstring json = loaded.gpx->ToJson(true, eolLF, loaded.context);
    EXPECT_EQ(std::wstring::npos, json.find(L"xmlns"));
    const CSmartPtr<Gpx::CGpx> copy(new Gpx::CGpx);
    bool same = false;
    try {
        copy->FromJson(json.c_str(), loaded.context);
        same = loaded.gpx->ToXml() == copy->ToXml();
    } catch (const CQxException&) {
    }
    EXPECT_EQ(loaded.foreignNamespaces == 0, same) << loaded.foreignNamespaces << " foreign namespaces";
}

INSTANTIATE_TEST_SUITE_P(Shared, RealFileJson, ::testing::ValuesIn(Documents::SharedFiles("gpx", ".gpx")),
                         [](const auto& info) { return Documents::TestName(info.param.substr(4)); });

} // namespace
