#include "xml/StreamedLoad.h"

#include <QxXmlLib16/xml/ExpatReader.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/DocumentStore.h"

namespace QxXmlLib16 {
namespace internal {

CStreamedLoad::CStreamedLoad(CXmlDocument& document)
    : m_document(document) {
    m_document.m_store->streamLoads = true;
}

void CStreamedLoad::Finish() {
    if (CExpatReader* stream = m_document.m_store->stream.get()) stream->ReadRest(false);
}

void CStreamedLoad::Release(CXmlElement* element) {
    const CXmlDocument* document = element->m_document;
    if (!document || !document->m_store->streamed) return;
    // Content still to come is dropped as it arrives, and what came already once the element ends:
    // elements read so far may still be open in the parser.
    if (element->IsPending())
        element->SetFlag(CXmlElement::kDropContent, true);
    else
        element->ReleaseContent();
}

bool CStreamedLoad::TakeText(CXmlElement* element, std::wstring& text) {
    const CXmlDocument* document = element->m_document;
    if (!document || !document->m_store->streamed || element->IsPending() ||
        !(element->m_text & CXmlElement::kOwnedText))
        return false;
    text.swap(const_cast<std::wstring&>(element->StoredText()));
    element->ReleaseText();
    return true;
}

} // namespace internal
} // namespace QxXmlLib16
