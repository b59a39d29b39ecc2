// JSON (or anything else) through the document's JSON loader, the XML it makes through the XML
// reader, and that tree written back as JSON and read once more. Any exception other than the
// library's own is a bug, and so is any sanitizer report.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <vector>

using namespace QxXmlLib16;

namespace {

// Attributes, text, then children: the order the binding writes in. The reader's depth limit keeps
// the recursion short.
void WriteTree(const CXmlElement& element, CXmlWriter& writer) {
    writer.WriteStartElement(element.GetLocalName(), element.GetNamespaceURI());
    for (const CXmlAttribute* attribute : element.GetAttributes())
        writer.WriteAttributeString(attribute->GetLocalName(), attribute->GetNamespaceURI(),
                                    attribute->GetValue(), itString);
    for (const CXmlElement* child = element.GetFirstElement(); child; child = child->GetNextSiblingElement())
        WriteTree(*child, writer);
    writer.WriteString(element.GetText(), itString, false);
    writer.WriteEndElement();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    // The options follow from the length, so that every byte stays JSON.
    CSerializationContext context;
    const JsonRoundTrip level = JsonRoundTrip(size % 3);
    context.GetJsonContext()->SetSupportRoundtrip(level);
    context.GetJsonContext()->GetAllowComments(size % 5 != 0);
    if (size % 7 == 0) context.GetJsonContext()->SetRootElementName(L"root");
    context.GetJsonContext()->SetRfc8259Escaping(size % 2 == 0);
    std::vector<unsigned char> bytes(data, data + size);
    try {
        CXmlDocument document(context);
        CBinaryData xml = document.LoadJsonStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
        CXmlDocument tree(context);
        tree.LoadXmlStream(const_cast<unsigned char*>(xml.GetData()), xml.GetLength());
        CTextStream stream;
        CJsonTextWriter writer(stream);
        writer.SetSupportRoundtrip(level);
        writer.SetRfc8259Escaping(size % 2 == 0);
        writer.WriteStartDocument();
        WriteTree(*tree.GetDocumentElement(), writer);
        writer.WriteEndDocument();
        writer.Close();
        document.LoadJson(stream.GetText());
    } catch (const CQxException&) {
    }
    return 0;
}
