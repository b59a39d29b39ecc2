// XML text (or anything else) into a document tree, in the reading mode the input's size picks:
// with or without namespaces, CDATA kept or stripped, the whole tree kept or each completed element
// dropped by the element-complete callback. Every element left is asked for its XPath. Any
// exception other than the library's own is a bug, and so is any sanitizer report.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <vector>

using namespace QxXmlLib16;

namespace {

bool DropAllButTheDocumentElement(CXmlElement* element) {
    return element->GetParentElement() != nullptr;
}

void AskEveryPath(const CXmlElement* root) {
    const CXmlElement* element = root;
    while (element) {
        (void)element->GetXPath();
        if (element->GetFirstElement()) {
            element = element->GetFirstElement();
            continue;
        }
        while (element && element != root && !element->GetNextSiblingElement())
            element = element->GetParentElement();
        element = element && element != root ? element->GetNextSiblingElement() : nullptr;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    std::vector<unsigned char> bytes(data, data + size);
    CSerializationContext context;
    context.SetSchemaType(size % 2 ? stNoNamespaces : context.GetSchemaType());
    context.SetStripCDATA(size % 3 == 0);
    CXmlDocument document(size % 5 == 0 ? DropAllButTheDocumentElement : nullptr, context);
    try {
        document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
        AskEveryPath(document.GetDocumentElement());
    } catch (const CQxException&) {
    }
    return 0;
}
