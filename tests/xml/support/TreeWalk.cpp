#include "TreeWalk.h"

#include <QxXmlLib16/xml/XmlAttribute.h>

using namespace QxXmlLib16;

void WriteTree(const CXmlElement& element, CXmlWriter& writer) {
    writer.WriteStartElement(element.GetLocalName(), element.GetNamespaceURI());
    for (const CXmlAttribute* attribute : element.GetAttributes())
        writer.WriteAttributeString(attribute->GetLocalName(), attribute->GetNamespaceURI(),
                                    attribute->GetValue(), itString);
    writer.WriteString(element.GetText(), itString, false);
    for (const CXmlElement* child = element.GetFirstElement(); child; child = child->GetNextSiblingElement())
        WriteTree(*child, writer);
    writer.WriteEndElement();
}

std::wstring TreeDifference(const CXmlElement& expected, const CXmlElement& actual) {
    // The path is built only for a difference: it costs a walk over the siblings.
    auto where = [&expected] { return expected.GetXPath() + L": "; };
    if (expected.GetLocalName() != actual.GetLocalName() ||
        expected.GetNamespaceURI() != actual.GetNamespaceURI())
        return where() + L"name {" + actual.GetNamespaceURI() + L"}" + actual.GetLocalName();
    if (expected.GetText() != actual.GetText()) return where() + L"text [" + actual.GetText() + L"]";
    const auto& left = expected.GetAttributes();
    const auto& right = actual.GetAttributes();
    if (left.size() != right.size()) return where() + L"attribute count";
    for (size_t i = 0; i < left.size(); ++i) {
        if (left[i]->GetLocalName() != right[i]->GetLocalName() ||
            left[i]->GetNamespaceURI() != right[i]->GetNamespaceURI() ||
            left[i]->GetValue() != right[i]->GetValue())
            return where() + L"attribute " + left[i]->GetLocalName();
    }
    const CXmlElement* a = expected.GetFirstElement();
    const CXmlElement* b = actual.GetFirstElement();
    for (; a && b; a = a->GetNextSiblingElement(), b = b->GetNextSiblingElement()) {
        std::wstring difference = TreeDifference(*a, *b);
        if (!difference.empty()) return difference;
    }
    return a || b ? where() + L"child count" : std::wstring();
}
