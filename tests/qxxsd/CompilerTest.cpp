// The compiler on its own: schemas it refuses, with the file, line and reason; constructs it skips,
// with a warning; where it finds the schemas a schema names; the same output for the same input;
// and damaged schemas, which must end in a refusal or in bindings, never in a crash.

#include "qxxsd/support/Cases.h"

#include "Compiler.h"
#include "Diagnostics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace fs = std::filesystem;
using Qxxsd::CompileOptions;
using Qxxsd::CompileResult;
using Qxxsd::CSchemaError;

namespace {

const char kHeader[] =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='urn:t' targetNamespace='urn:t'>";

// A folder of schema files, removed at the end of the test.
class Schemas {
public:
    Schemas() {
        static int count = 0;
        m_folder = testing::TempDir() + "qxxsd-" + std::to_string(getpid()) + "-" + std::to_string(++count);
        fs::create_directories(m_folder);
    }
    ~Schemas() { fs::remove_all(m_folder); }
    std::wstring Add(const std::string& name, const std::string& text) {
        Cases::WriteFile(m_folder + "/" + name, text);
        return Cases::Wide(m_folder + "/" + name);
    }
    // A schema of target namespace urn:t whose body starts on line 2.
    std::wstring AddSchema(const std::string& name, const std::string& body) {
        return Add(name, std::string(kHeader) + "\n" + body + "\n</xs:schema>\n");
    }
    const std::string& Folder() const { return m_folder; }

private:
    std::string m_folder;
};

CompileResult Compile(const std::vector<std::wstring>& schemas,
                      std::map<std::wstring, std::wstring> mappings = {},
                      std::vector<std::wstring> catalogs = {}) {
    CompileOptions options;
    options.schemas = schemas;
    options.emit = {L"Test", L"test", L""};
    options.mappings = std::move(mappings);
    options.catalogs = std::move(catalogs);
    return Qxxsd::Compile(options);
}

std::string Refusal(const std::vector<std::wstring>& schemas) {
    try {
        Compile(schemas);
    } catch (const CSchemaError& e) {
        return Cases::Utf8(e.Text());
    }
    return "(accepted)";
}

struct Refused {
    const char* what;
    const char* body;     // from line 2 of schema.xsd
    const char* expected; // after "schema.xsd:"
};

const Refused kRefused[] = {
    {"unknown type", "<xs:element name='a' type='t:Missing'/>", "2: error: unknown type {urn:t}Missing"},
    {"unknown built-in", "\n<xs:element name='a' type='xs:strin'/>",
     "3: error: unknown type {http://www.w3.org/2001/XMLSchema}strin: XML Schema has no such built-in"},
    {"unknown element",
     "<xs:complexType name='C'><xs:sequence>\n<xs:element ref='t:nope'/></xs:sequence></xs:complexType>",
     "3: error: unknown element {urn:t}nope"},
    {"unknown attribute group", "<xs:complexType name='C'>\n<xs:attributeGroup ref='t:G'/></xs:complexType>",
     "3: error: unknown attribute group {urn:t}G"},
    {"group in itself",
     "<xs:group name='A'><xs:sequence>\n<xs:group ref='t:B'/></xs:sequence></xs:group>\n"
     "<xs:group name='B'><xs:choice>\n<xs:group ref='t:A'/></xs:choice></xs:group>",
     "error: the group {urn:t}"},
    {"attribute group in itself",
     "<xs:attributeGroup name='A'>\n<xs:attributeGroup ref='t:A'/></xs:attributeGroup>",
     "3: error: the attribute group {urn:t}A contains itself"},
    {"type derived from itself",
     "<xs:complexType name='A'><xs:complexContent><xs:extension "
     "base='t:B'/></xs:complexContent></xs:complexType>\n"
     "<xs:complexType name='B'><xs:complexContent><xs:extension "
     "base='t:A'/></xs:complexContent></xs:complexType>",
     "error: the type {urn:t}"},
    {"bound of another type",
     "<xs:simpleType name='S'><xs:restriction base='xs:int'>\n<xs:minInclusive value='x'/>"
     "</xs:restriction></xs:simpleType>",
     "2: error: the bound \"x\" is not a value of S"},
    {"length of a number",
     "<xs:simpleType name='S'>\n<xs:restriction base='xs:decimal'><xs:length value='2'/>"
     "</xs:restriction></xs:simpleType>",
     "3: error: the length facets do not apply to S"},
    {"negative length",
     "<xs:simpleType name='S'><xs:restriction base='xs:string'>\n<xs:length value='-2'/>"
     "</xs:restriction></xs:simpleType>",
     "3: error: the facet xs:length needs a non-negative integer, not \"-2\""},
    {"pattern that does not close",
     "<xs:simpleType name='S'><xs:restriction base='xs:string'>\n"
     "<xs:pattern value='x[ab'/></xs:restriction></xs:simpleType>",
     "3: error: the pattern \"x[ab\" is not an XML Schema regular expression: missing closing bracket "
     "(at character 2)"},
    // Other dialects' syntax that PCRE would take: each is refused, in a list type's pattern too.
    {"reluctant quantifier",
     "<xs:simpleType name='S'><xs:restriction base='xs:token'>\n<xs:pattern value='[0-9]'/>\n"
     "<xs:pattern value='a+?'/></xs:restriction></xs:simpleType>",
     "4: error: the pattern \"a+?\" is not an XML Schema regular expression: reluctant and possessive "
     "quantifiers are not XML Schema syntax (at character 3)"},
    {"inline option",
     "<xs:simpleType name='S'><xs:restriction><xs:simpleType><xs:list itemType='xs:int'/></xs:simpleType>\n"
     "<xs:pattern value='(?i)x'/></xs:restriction></xs:simpleType>",
     "3: error: the pattern \"(?i)x\" is not an XML Schema regular expression: (? (options, lookaround or "
     "a named group) is not XML Schema syntax (at character 1)"},
    {"unknown block",
     "<xs:simpleType name='S'><xs:restriction base='xs:string'>\n"
     "<xs:pattern value='\\p{IsKlingon}+'/></xs:restriction></xs:simpleType>",
     "3: error: the pattern \"\\p{IsKlingon}+\" is not an XML Schema regular expression: unknown block "
     "name [IsKlingon] (at character 1)"},
    {"undeclared prefix", "<xs:element name='a' type='u:T'/>",
     "2: error: the prefix u of \"u:T\" is not declared"},
    {"declared twice", "<xs:element name='a'/>\n<xs:element name='a'/>",
     "3: error: the element {urn:t}a is declared twice (also at"},
    {"negative minOccurs",
     "<xs:complexType name='C'><xs:sequence>\n<xs:element name='a' minOccurs='-1'/>"
     "</xs:sequence></xs:complexType>",
     "3: error: minOccurs and maxOccurs take non-negative integers"},
    {"minOccurs above maxOccurs",
     "<xs:complexType name='C'><xs:sequence>\n<xs:element name='a' minOccurs='3' maxOccurs='2'/>"
     "</xs:sequence></xs:complexType>",
     "3: error: minOccurs is greater than maxOccurs"},
    {"default of another type", "\n<xs:element name='a' type='xs:int' default='x'/>",
     "3: error: the default value \"x\" of a is not valid"},
    {"fixed value outside the enumeration",
     "<xs:simpleType name='E'><xs:restriction base='xs:string'><xs:enumeration "
     "value='a'/></xs:restriction></xs:simpleType>\n"
     "<xs:complexType name='C'><xs:attribute name='e' type='t:E' fixed='b'/></xs:complexType>",
     "3: error: the fixed value \"b\" of e is not valid: it is not one of the enumeration's values"},
    {"redefine", "<xs:redefine schemaLocation='other.xsd'/>", "2: error: xs:redefine is not supported"},
    {"missing include", "<xs:include schemaLocation='missing.xsd'/>", "missing.xsd cannot be read"},
    {"remote import", "\n<xs:import namespace='urn:r' schemaLocation='http://example.org/r.xsd'/>",
     "3: error: the schema http://example.org/r.xsd is not fetched from the network; pass --map "
     "http://example.org/r.xsd=FILE, or name a catalog that maps it in XML_CATALOG_FILES"},
    {"import without location",
     "<xs:import namespace='urn:r'/>\n<xs:element name='a' xmlns:r='urn:r' type='r:T'/>",
     "3: error: unknown type {urn:r}T; its namespace is imported at "},
    {"extension of a choice",
     "<xs:complexType name='A'><xs:choice><xs:element name='a'/></xs:choice></xs:complexType>\n"
     "<xs:complexType name='B'><xs:complexContent><xs:extension base='t:A'><xs:sequence><xs:element "
     "name='b'/>"
     "</xs:sequence></xs:extension></xs:complexContent></xs:complexType>",
     "3: error: the extension of {urn:t}A adds elements to a choice or all group"},
    {"group in an all", "<xs:complexType name='C'><xs:all>\n<xs:sequence/></xs:all></xs:complexType>",
     "3: error: xs:all may hold only elements"},
    {"simple type without content", "\n<xs:simpleType name='S'/>",
     "3: error: the simple type has no restriction, list or union"},
};

class Refusals : public testing::TestWithParam<Refused> {};

TEST_P(Refusals, NameFileLineAndReason) {
    Schemas schemas;
    const std::wstring schema = schemas.AddSchema("schema.xsd", GetParam().body);
    const std::string refusal = Refusal({schema});
    EXPECT_NE(std::string::npos, refusal.find(schemas.Folder() + "/schema.xsd:")) << refusal;
    EXPECT_NE(std::string::npos, refusal.find(GetParam().expected)) << refusal;
}

INSTANTIATE_TEST_SUITE_P(Schemas, Refusals, testing::ValuesIn(kRefused),
                         [](const testing::TestParamInfo<Refused>& info) {
                             std::string name = info.param.what;
                             for (char& c : name)
                                 if (!isalnum(static_cast<unsigned char>(c))) c = '_';
                             return name;
                         });

TEST(Refusals, DocumentsThatAreNoSchemas) {
    Schemas schemas;
    const std::string broken =
        Refusal({schemas.Add("broken.xsd", std::string(kHeader) + "\n<oops></xs:schema>")});
    EXPECT_NE(std::string::npos,
              broken.find("broken.xsd: error: the schema is not well-formed XML: mismatched tag at line 2"))
        << broken;
    EXPECT_NE(std::string::npos, Refusal({schemas.Add("other.xsd", "<html/>")})
                                     .find("other.xsd is not an XML Schema: its document element is {}html"));
}

struct Warned {
    const char* body;
    const char* expected;
};

TEST(Warnings, NameTheSkippedConstructAndWhatTheCodeDoesInstead) {
    const Warned warned[] = {
        {"<xs:complexType name='P' mixed='true'>\n<xs:sequence><xs:element "
         "name='b'/></xs:sequence></xs:complexType>",
         "2: warning: mixed content: the text between the child elements of P is not kept"},
        {"<xs:element name='k'><xs:complexType/>\n<xs:key name='id'><xs:selector xpath='.'/><xs:field "
         "xpath='@a'/></xs:key>"
         "</xs:element>",
         "3: warning: the identity constraint xs:key is not enforced"},
        {"<xs:complexType name='W'><xs:sequence>\n<xs:any/></xs:sequence></xs:complexType>",
         "3: warning: the wildcard's processContents=\"strict\" is not enforced"},
    };
    for (const Warned& warning : warned) {
        Schemas schemas;
        const CompileResult result = Compile({schemas.AddSchema("schema.xsd", warning.body)});
        ASSERT_EQ(1u, result.warnings.size()) << warning.expected;
        EXPECT_NE(std::string::npos, Cases::Utf8(result.warnings[0]).find(warning.expected))
            << Cases::Utf8(result.warnings[0]);
    }
}

// ---- Finding schemas ----------------------------------------------------------------------------

const char kImporting[] = "<xs:import namespace='urn:r' schemaLocation='http://example.org/schemas/r.xsd'/>\n"
                          "<xs:element name='a' xmlns:r='urn:r' type='r:T'/>";
const char kImported[] = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:r'>"
                         "<xs:include schemaLocation='part.xsd'/></xs:schema>";
const char kPart[] = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:r'>"
                     "<xs:simpleType name='T'><xs:restriction base='xs:int'/></xs:simpleType></xs:schema>";

bool Declares(const CompileResult& result, const char* text) {
    return result.files.front().second.find(text) != std::string::npos;
}

TEST(Locations, MapResolvesARemoteSchemaAndItsRelativeInclude) {
    Schemas schemas;
    const std::wstring importing = schemas.AddSchema("schema.xsd", kImporting);
    const std::wstring imported = schemas.Add("r.xsd", kImported);
    schemas.Add("part.xsd", kPart);
    // The include of part.xsd is relative to the URL, which no mapping names: the local copy beside
    // the mapped file is not taken for it.
    EXPECT_THROW(Compile({importing}, {{L"http://example.org/schemas/r.xsd", imported}}), CSchemaError);
    const CompileResult result = Compile(
        {importing}, {{L"http://example.org/schemas/r.xsd", imported},
                      {L"http://example.org/schemas/part.xsd", Cases::Wide(schemas.Folder() + "/part.xsd")}});
    EXPECT_TRUE(Declares(result, "class CA"));
}

TEST(Locations, CatalogRewritesAPrefix) {
    Schemas schemas;
    const std::wstring importing = schemas.AddSchema("schema.xsd", kImporting);
    fs::create_directories(schemas.Folder() + "/mirror");
    schemas.Add("mirror/r.xsd", kImported);
    schemas.Add("mirror/part.xsd", kPart);
    const std::wstring catalog =
        schemas.Add("catalog.xml", "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'>"
                                   "<rewriteSystem systemIdStartString='http://example.org/schemas/' "
                                   "rewritePrefix='mirror/'/></catalog>");
    EXPECT_TRUE(Declares(Compile({importing}, {}, {catalog}), "class CA"));
}

TEST(Locations, ImportWithoutLocationByNamespace) {
    Schemas schemas;
    const std::wstring importing =
        schemas.AddSchema("schema.xsd", "<xs:import namespace='urn:r'/>\n"
                                        "<xs:element name='a' xmlns:r='urn:r' type='r:T'/>");
    schemas.Add("part.xsd", kPart);
    EXPECT_TRUE(Declares(Compile({importing}, {{L"urn:r", Cases::Wide(schemas.Folder() + "/part.xsd")}}),
                         "class CA"));
}

TEST(Locations, XmlNamespaceNeedsNoSchema) {
    Schemas schemas;
    const std::wstring schema = schemas.AddSchema(
        "schema.xsd",
        "<xs:import namespace='http://www.w3.org/XML/1998/namespace' "
        "schemaLocation='http://www.w3.org/2001/xml.xsd'/>\n"
        "<xs:element name='a'><xs:complexType><xs:attribute ref='xml:lang'/><xs:attribute ref='xml:space'/>"
        "</xs:complexType></xs:element>");
    const CompileResult result = Compile({schema});
    EXPECT_TRUE(Declares(result, "GetLang()"));
    EXPECT_TRUE(Declares(result, "enum Space"));
}

// ---- Output --------------------------------------------------------------------------------------

TEST(Output, SameSchemasSameBytes) {
    for (const std::string& name : Cases::Schemas()) {
        CompileOptions options;
        options.schemas = {Cases::Wide(Cases::Folder() + "/" + name + ".xsd")};
        options.emit = {L"Same", L"same", L"gen/"};
        options.mappings = {
            {L"http://schemas.example.org/money.xsd", Cases::Wide(Cases::Folder() + "/imports/money.xsd")}};
        EXPECT_TRUE(Qxxsd::Compile(options).files == Qxxsd::Compile(options).files) << name;
    }
}

// A global element of no type binds to no class; alone in a schema it once named one all the same.
TEST(Output, AnUntypedGlobalElementIsNoRoot) {
    Schemas schemas;
    const CompileResult result =
        Compile({schemas.AddSchema("schema.xsd", "<xs:element name='a' fixed='x'/>")});
    ASSERT_FALSE(result.files.empty());
    for (const auto& file : result.files)
        EXPECT_EQ(std::string::npos, file.second.find("L\"a\"")) << Cases::Utf8(file.first);
}

TEST(Output, OneSourcePerSchemaNamed) {
    Schemas schemas;
    const std::wstring first =
        schemas.AddSchema("first.xsd", "<xs:include schemaLocation='second.xsd'/><xs:complexType name='A'/>");
    const std::wstring second = schemas.AddSchema("second.xsd", "<xs:complexType name='B'/>");
    const CompileResult result = Compile({first, second});
    ASSERT_EQ(3u, result.files.size());
    EXPECT_EQ(L"test.h", result.files[0].first);
    EXPECT_EQ(L"test.cpp", result.files[1].first);
    EXPECT_EQ(L"test-second.cpp", result.files[2].first);
    // second.xsd was brought in by first.xsd: its class is in the first source.
    EXPECT_NE(std::string::npos, result.files[1].second.find("CB::CB("));
    EXPECT_EQ(2u, result.inputs.size());
}

// ---- Damaged schemas ----------------------------------------------------------------------------

// Schemas changed at random (a line dropped or repeated, an attribute value or a character
// replaced) compile or are refused; any other outcome is a fault.
TEST(Damaged, SchemasAreRefusedOrCompiled) {
    std::mt19937 random(20240601);
    int compiled = 0, refused = 0;
    for (const std::string& name : Cases::Schemas()) {
        const std::string original = Cases::ReadFile(Cases::Folder() + "/" + name + ".xsd");
        std::vector<std::string> lines;
        for (size_t start = 0, end; start < original.size(); start = end + 1) {
            end = original.find('\n', start);
            if (end == std::string::npos) end = original.size();
            lines.push_back(original.substr(start, end - start));
        }
        for (int round = 0; round < 40; ++round) {
            std::vector<std::string> changed = lines;
            const size_t line = random() % changed.size();
            switch (random() % 4) {
            case 0:
                changed.erase(changed.begin() + line);
                break;
            case 1:
                changed.insert(changed.begin() + line, changed[random() % changed.size()]);
                break;
            case 2: {
                const size_t quote = changed[line].find('"');
                const std::string donor = changed[random() % changed.size()];
                const size_t from = donor.find('"');
                if (quote != std::string::npos && from != std::string::npos)
                    changed[line].replace(quote, changed[line].find('"', quote + 1) - quote,
                                          donor.substr(from, donor.find('"', from + 1) - from));
                break;
            }
            default:
                if (!changed[line].empty())
                    changed[line][random() % changed[line].size()] = "<>\"/:x0- "[random() % 9];
            }
            std::string text;
            for (const std::string& part : changed)
                text += part + "\n";
            Schemas schemas;
            fs::create_directories(schemas.Folder() + "/imports/parts");
            for (const char* helper : {"imports/common.xsd", "imports/money.xsd", "imports/chameleon.xsd",
                                       "imports/parts/part.xsd"})
                schemas.Add(helper, Cases::ReadFile(Cases::Folder() + "/" + helper));
            const std::wstring schema = schemas.Add(name + ".xsd", text);
            try {
                Compile({schema}, {{L"http://schemas.example.org/money.xsd",
                                    Cases::Wide(schemas.Folder() + "/imports/money.xsd")}});
                ++compiled;
            } catch (const CSchemaError&) {
                ++refused;
            }
        }
    }
    // Both outcomes occur, or the damage was not varied enough to mean anything.
    EXPECT_GT(compiled, 50);
    EXPECT_GT(refused, 50);
}

} // namespace
