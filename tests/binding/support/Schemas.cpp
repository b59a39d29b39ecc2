#include "binding/support/Schemas.h"

#include "binding/support/ContentSchema.h"
#include "binding/support/Crate.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/TestSchema.h"
#include "support/Documents.h"

#include "GpxBindings.h"

using namespace QxXmlLib16;

namespace {

const wchar_t kCrateContent[] =
    L"<count>1</count><item id=\"1\"/><o:x/><shape xsi:type=\"Circle\" radius=\"1\"/>"
    L"<pick><count>2</count></pick><item id=\"2\"/><count>3</count>"
    L"<shape xsi:type=\"Square\" side=\"2\"/><o:y>t</o:y>";

} // namespace

std::string SchemaFile(Schema schema) {
    switch (schema) {
    case Schema::Trip:
        return QX_TEST_SOURCE_DIR "/binding/support/testschema.xsd";
    case Schema::Groups:
        return QX_TEST_SOURCE_DIR "/binding/support/groups.xsd";
    case Schema::Content:
        return QX_TEST_SOURCE_DIR "/binding/support/content.xsd";
    case Schema::Gpx:
        return Documents::Shared("gpx/gpx.xsd");
    case Schema::Crate:
    case Schema::Untyped:
        break;
    }
    return "";
}

CSmartPtr<CXmlObjectBase> NewRoot(Schema schema) {
    switch (schema) {
    case Schema::Trip:
        return new TestSchema::CTrip();
    case Schema::Groups:
        return new GroupsSchema::CGroups();
    case Schema::Crate:
        return new GroupsSchema::CCrate();
    case Schema::Content:
        return new ContentSchema::CBag();
    case Schema::Untyped:
        return new CElement(L"any");
    case Schema::Gpx:
        break;
    }
    return new Gpx::CGpx();
}

std::wstring ValidDocument(Schema schema) {
    switch (schema) {
    case Schema::Trip:
        return L"<trip xmlns=\"urn:qx:test:trip\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
               L"id=\"T1\">"
               L"<title>Coast</title><mode>walk</mode><distance>12.5</"
               L"distance><created>2024-05-01T10:00:00Z</created>"
               L"<start lat=\"50.1\" "
               L"lon=\"-4\"><label>Bay</label></start><contact><email>ann@example.org</email>"
               L"</contact></trip>";
    case Schema::Groups:
        return ProofDocuments::Groups();
    case Schema::Crate:
        return std::wstring(L"<crate ") + ProofDocuments::kGroupsNamespaces + L">" + kCrateContent +
               L"</crate>";
    case Schema::Content:
        return L"<bag xmlns=\"urn:qx:test:content\" "
               L"xmlns:o=\"urn:qx:o\"><i4>1</i4><o:x/><own><t/></own></bag>";
    case Schema::Gpx:
    case Schema::Untyped:
        break;
    }
    return L"<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"t\"></gpx>";
}

std::wstring Edited(Schema schema, const std::wstring& from, const std::wstring& to) {
    std::wstring document = ValidDocument(schema);
    const size_t at = document.find(from);
    if (at == std::wstring::npos) return L"(no such text: " + from + L")";
    return document.replace(at, from.size(), to);
}
