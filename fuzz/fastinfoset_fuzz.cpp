// Fast Infoset (or anything else) through the reader into a document tree; a tree that loads is
// written back as Fast Infoset and must load again into the same tree. Any exception other than the
// library's own is a bug, and so is a sanitizer report or a written document that does not read
// back.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace QxXmlLib16;

namespace {

// Odd-sized inputs read with a vocabulary known in advance: names, values, and alphabets of other
// widths than the built-in ones, one of them too small to use.
const CFastInfosetContext& Context(size_t size) {
    static const CFastInfosetContext plain;
    static const CFastInfosetContext generated = [] {
        CFastInfosetContext context;
        context.SetUseGeneratedVocabulary(true);
        CFIVocabulary& vocabulary = context.GetVocabulary();
        vocabulary.AddElement(L"p", L"urn:p", L"e");
        vocabulary.AddAttribute(L"", L"", L"a");
        vocabulary.AddAttributeValue(L"v");
        vocabulary.AddElementValue(L"t");
        std::wstring eightBits;
        for (wchar_t c = 0x20; c < 0xA0; ++c)
            eightBits += c;
        for (const std::wstring& alphabet :
             {std::wstring(L"abcdefghijklmnopq"), eightBits, std::wstring(L"x")})
            vocabulary.GetRestrictedAlphabets().push_back(alphabet);
        return context;
    }();
    return size % 2 ? generated : plain;
}

// The tree in document order, without recursion: any depth is written. False for a tree whose text
// would be taken for CDATA sections, which do not come back as written.
bool Write(const CXmlElement& root, CXmlWriter& writer) {
    const CXmlElement* element = &root;
    for (;;) {
        writer.WriteStartElement(element->GetLocalName(), element->GetNamespaceURI());
        for (const CXmlAttribute* attribute : element->GetAttributes())
            writer.WriteAttributeString(attribute->GetLocalName(), attribute->GetNamespaceURI(),
                                        attribute->GetValue(), itString);
        if (element->GetText().compare(0, 9, L"<![CDATA[") == 0) return false;
        writer.WriteString(element->GetText(), itString, false);
        if (element->GetFirstElement()) {
            element = element->GetFirstElement();
            continue;
        }
        for (;;) {
            writer.WriteEndElement();
            if (element == &root) return true;
            if (element->GetNextSiblingElement()) {
                element = element->GetNextSiblingElement();
                break;
            }
            element = element->GetParentElement();
        }
    }
}

bool SameNode(const CXmlElement& a, const CXmlElement& b) {
    if (a.GetLocalName() != b.GetLocalName() || a.GetNamespaceURI() != b.GetNamespaceURI() ||
        a.GetText() != b.GetText() || a.GetAttributes().size() != b.GetAttributes().size())
        return false;
    for (size_t i = 0; i < a.GetAttributes().size(); ++i) {
        const CXmlAttribute& x = *a.GetAttributes()[i];
        const CXmlAttribute& y = *b.GetAttributes()[i];
        if (x.GetLocalName() != y.GetLocalName() || x.GetNamespaceURI() != y.GetNamespaceURI() ||
            x.GetValue() != y.GetValue())
            return false;
    }
    return true;
}

bool SameTree(const CXmlElement& first, const CXmlElement& second) {
    const CXmlElement* a = &first;
    const CXmlElement* b = &second;
    for (;;) {
        if (!SameNode(*a, *b) || !a->GetFirstElement() != !b->GetFirstElement()) return false;
        if (a->GetFirstElement()) {
            a = a->GetFirstElement();
            b = b->GetFirstElement();
            continue;
        }
        for (;;) {
            if (a == &first) return true;
            if (!a->GetNextSiblingElement() != !b->GetNextSiblingElement()) return false;
            if (a->GetNextSiblingElement()) {
                a = a->GetNextSiblingElement();
                b = b->GetNextSiblingElement();
                break;
            }
            a = a->GetParentElement();
            b = b->GetParentElement();
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const CFastInfosetContext& context = Context(size);
    CXmlDocument document;
    try {
        CFastInfosetReader reader(context, document);
        if (!reader.Parse(data, size)) return 0;
    } catch (const CQxException&) {
        return 0;
    }
    CBinaryStream stream;
    CXmlDocument again;
    try {
        {
            CFastInfosetWriter writer(context, stream);
            writer.WriteStartDocument(fidNone);
            if (!Write(*document.GetDocumentElement(), writer)) return 0;
            writer.WriteEndDocument();
            writer.Close();
        }
        const CBinaryData& written = stream.GetBinaryStream();
        CFastInfosetReader reader(context, again);
        reader.Parse(written.GetData(), written.GetLength());
    } catch (const CQxException&) {
        std::abort(); // what the library wrote, it must read
    }
    if (!SameTree(*document.GetDocumentElement(), *again.GetDocumentElement())) std::abort();
    return 0;
}
