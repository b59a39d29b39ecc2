// Entities from a hostile sender: expansion that would amplify a small document into gigabytes is
// refused by expat's protection, and nothing outside the document (an external entity, the external
// DTD subset) is ever read, even where it names a file that exists. Each refusal is shown as the
// user meets it, from the document and from a bound load.

#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "support/Failure.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace QxXmlLib16;

namespace {

const std::wstring kAmplification =
    L"limit on input amplification factor (from DTD and entities) breached at line 1";
const char kSecret[] = "the content of a file beside the document";

// Entities l1 to lN, each ten references to the one before: 10^N copies of l0.
std::string NestedEntities(int levels, const std::string& use) {
    std::string text = "<!DOCTYPE l [<!ENTITY l0 'lollollollollollollollollollol'>";
    for (int i = 1; i <= levels; ++i) {
        text += "<!ENTITY l" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j)
            text += "&l" + std::to_string(i - 1) + ";";
        text += "'>";
    }
    return text + "]>" + use;
}

// One entity of 10,000 characters referenced 20,000 times: no nesting, 200 million characters.
std::string FlatEntities() {
    std::string text = "<!DOCTYPE l [<!ENTITY big '" + std::string(10000, 'x') + "'>]><l>";
    for (int i = 0; i < 20000; ++i)
        text += "&big;";
    return text + "</l>";
}

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

Failure DocumentFailure(const std::string& text) {
    return FailureOf([&] {
        CXmlDocument document;
        document.LoadXml(text.c_str());
    });
}

// The same text into bound objects: untyped content through the binding engine's streamed load.
Failure BoundFailure(const std::string& text) {
    return FailureOf([&] {
        CSmartPtr<CElement> element(new CElement(L"any"));
        element->FromXml(text.c_str());
    });
}

// A file with known content in the test's temporary folder, and its file: URI.
std::string WriteFile(const std::string& name, const std::string& content) {
    const std::string path = testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string FileUri(const std::string& path) {
    return "file://" + path;
}

std::wstring ExternalEntity(const std::string& systemId, int line = 1) {
    return L"The document refers to the external entity \"" + Wide(systemId) + L"\", which is never read, at line " +
           std::to_wstring(line);
}

std::wstring Undeclared(const wchar_t* entity) {
    return std::wstring(L"The entity [") + entity + L"] is declared outside the document, which is never read, at line 1";
}

} // namespace

TEST(EntityAmplification, RefusedWithExpatsMessageWhereverTheEntitiesAreUsed) {
    const std::pair<const char*, std::string> cases[] = {
        {"nested in text", NestedEntities(9, "<l>&l9;</l>")},
        {"nested in an attribute", NestedEntities(9, "<l a='&l9;'/>")},
        {"flat", FlatEntities()},
    };
    for (const auto& [name, text] : cases) {
        EXPECT_EQ(DocumentFailure(text), (Failure{kAmplification, L""})) << name;
        EXPECT_EQ(BoundFailure(text).message, kAmplification) << name;
    }
}

// The protection leaves ordinary use of entities alone: a thousand copies of a short text load.
TEST(EntityAmplification, ModestExpansionLoads) {
    CXmlDocument document;
    document.LoadXml(NestedEntities(3, "<l>&l3;</l>").c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetText().size(), 30000u);
}

// Files that exist beside the document: an entity's replacement text and a DTD that declares an
// entity and an attribute default. None of them is opened; every use of them is refused.
TEST(ExternalEntities, NeverReadAndTheirUseRefused) {
    const std::string secret = WriteFile("entity_secret.txt", kSecret);
    const std::string dtd = WriteFile("entity_secret.dtd", std::string("<!ENTITY e '") + kSecret +
                                                               "'><!ATTLIST a d CDATA 'from the DTD'>");
    const std::string secretUri = FileUri(secret);
    const std::string dtdUri = FileUri(dtd);
    const std::pair<std::string, Failure> cases[] = {
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + secretUri + "'>]><a>&e;</a>", {ExternalEntity(secretUri), L""}},
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + secret + "'>]>\n<a>\n&e;</a>", {ExternalEntity(secret, 3), L""}},
        {"<!DOCTYPE a [<!ENTITY e PUBLIC '-//x//e' '" + secretUri + "'>]><a>&e;</a>",
         {ExternalEntity(secretUri), L""}},
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + secretUri + "'>]><a x='&e;'/>",
         {L"reference to external entity in attribute at line 1", L""}},
        {"<!DOCTYPE a SYSTEM '" + dtdUri + "'><a>&e;</a>", {Undeclared(L"e"), L""}},
        // An external parameter entity is not read, so nothing declared after it counts either.
        {"<!DOCTYPE a [<!ENTITY % p SYSTEM '" + dtdUri + "'> %p;]><a>&e;</a>", {Undeclared(L"e"), L""}},
        {"<!DOCTYPE a [<!ENTITY % p SYSTEM '" + dtdUri + "'> %p; <!ENTITY f 'inside'>]><a>&f;</a>",
         {Undeclared(L"f"), L""}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(DocumentFailure(text), expected) << text;
        EXPECT_EQ(BoundFailure(text).message, expected.message) << text;
    }
}

// A document that names an external DTD but needs nothing from it loads as if it named none: the
// DTD's attribute default is not applied, so it was not read.
TEST(ExternalEntities, UnusedExternalSubsetLoadsWithoutIt) {
    const std::string dtd = FileUri(WriteFile("entity_unused.dtd", "<!ATTLIST a d CDATA 'from the DTD'>"));
    for (const std::string& doctype :
         {"<!DOCTYPE a SYSTEM '" + dtd + "'>", "<!DOCTYPE a [<!ENTITY % p SYSTEM '" + dtd + "'> %p;]>"}) {
        CXmlDocument document;
        document.LoadXml((doctype + "<a>text &amp; more</a>").c_str());
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ(root->GetText(), L"text & more") << doctype;
        EXPECT_TRUE(root->GetAttributes().empty()) << doctype;
    }
}

// A document loaded from a file refers to a file beside it by a relative name: still not read.
TEST(ExternalEntities, RelativeToALoadedFileNotReadEither) {
    WriteFile("entity_beside.txt", kSecret);
    const std::string document =
        WriteFile("entity_document.xml", "<!DOCTYPE a [<!ENTITY e SYSTEM 'entity_beside.txt'>]><a>&e;</a>");
    EXPECT_EQ(FailureOf([&] {
                  CXmlDocument loaded;
                  loaded.Load(Wide(document).c_str());
              }).message,
              ExternalEntity("entity_beside.txt"));
}
