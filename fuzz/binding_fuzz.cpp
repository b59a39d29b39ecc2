// XML text (or anything else) into bound objects: the GPX bindings and the proof bindings, picked by
// the name of the document element, so that the binding engine meets malformed and schema-invalid
// content alike. What loads must write back as XML and load again to the same text, and must write
// as JSON and read back without any failure other than the library's own.
#include <QxXmlLib16/QxXmlLib16.h>

#include "GpxBindings.h"
#include "GpxNamespaces.h"
#include "binding/support/ContentSchema.h"
#include "binding/support/Crate.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/TestSchema.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

// The local name of the first start tag, found without parsing: a wrong guess on broken input only
// means another class meets it.
std::string RootName(const uint8_t* data, size_t size) {
    for (size_t i = 0; i + 1 < size; ++i) {
        if (data[i] != '<' || data[i + 1] == '?' || data[i + 1] == '!' || data[i + 1] == '/') continue;
        std::string name;
        for (size_t j = i + 1; j < size && data[j] > ' ' && data[j] != '>' && data[j] != '/'; ++j)
            name += static_cast<char>(data[j]);
        const size_t colon = name.find(':');
        return colon == std::string::npos ? name : name.substr(colon + 1);
    }
    return std::string();
}

CSmartPtr<CXmlObjectBase> NewRoot(const std::string& name) {
    if (name == "gpx") return new Gpx::CGpx();
    if (name == "trip") return new TestSchema::CTrip();
    if (name == "groups") return new GroupsSchema::CGroups();
    if (name == "crate") return new GroupsSchema::CCrate();
    if (name == "bag") return new ContentSchema::CBag();
    return new CElement(L"any");
}

// UTF-8, so that characters beyond 16 bits come back whole; unformatted, since indentation added
// around the children of wildcard content with text of its own is part of that text when read back.
CBinaryData ToXml(const CXmlObjectBase& object, const CSerializationContext& context) {
    return object.ToXmlStream(true, false, encUTF8, eolLF, context);
}

void PrintUtf8(const std::wstring& text) {
    const CBinaryData bytes = CEncoder::UnicodeToUtf8Binary(text.c_str());
    std::fwrite(bytes.GetData(), 1, bytes.GetLength(), stderr);
}

[[noreturn]] void Fail(const char* what, const std::wstring& detail) {
    std::fprintf(stderr, "%s\n", what);
    PrintUtf8(detail.substr(0, 2000));
    std::fputc('\n', stderr);
    std::abort();
}

std::wstring Text(const CBinaryData& utf8) {
    return CEncoder::Utf8ToUnicode(utf8.GetData(), static_cast<int>(utf8.GetLength()));
}

// Where two texts part, with some of what leads up to it.
std::wstring Difference(const std::wstring& a, const std::wstring& b) {
    size_t at = 0;
    while (at < a.size() && at < b.size() && a[at] == b[at])
        ++at;
    const size_t from = at > 200 ? at - 200 : 0;
    return a.substr(from, 400) + L"\n----\n" + b.substr(from, 400);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const std::string rootName = RootName(data, size);
    std::vector<unsigned char> bytes(data, data + size);
    CSerializationContext context;
    if (rootName == "gpx") context.SetDefaultNamespaceURI(Gpx::kNamespace);
    CSmartPtr<CXmlObjectBase> object = NewRoot(rootName);
    try {
        object->FromXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()), context);
    } catch (const CQxException&) {
        return 0;
    }

    // Whatever the bindings accepted, they write so that it loads again as the same object.
    CBinaryData written;
    try {
        written = ToXml(*object, context);
    } catch (const CQxException& e) {
        Fail("what the bindings accepted does not write", e.GetFullMessage());
    }
    CSmartPtr<CXmlObjectBase> copy = NewRoot(rootName);
    try {
        copy->FromXmlStream(written, context);
    } catch (const CQxException& e) {
        Fail("what the bindings wrote does not load again", e.GetFullMessage());
    }
    const CBinaryData again = ToXml(*copy, context);
    if (again.GetLength() != written.GetLength() ||
        std::memcmp(again.GetData(), written.GetData(), written.GetLength()) != 0)
        Fail("what the bindings wrote loads as another object", Difference(Text(written), Text(again)));

    // JSON declares every namespace on the root, so that wildcard content can be written at all.
    try {
        CXmlDocument document(context);
        document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
        Gpx::DeclareNamespaces(document, context);
        context.GetJsonContext()->SetRfc8259Escaping(size % 2 == 0);
        const std::wstring json = object->ToJson(true, eolLF, context);
        CSmartPtr<CXmlObjectBase> fromJson = NewRoot(rootName);
        fromJson->FromJson(json.c_str(), context);
    } catch (const CQxException&) {
    }
    return 0;
}
