#include <QxXmlLib16/collections/XmlTypeCollection.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

namespace {

std::wstring TextOf(const wchar_t* text) {
    return text ? std::wstring(text) : std::wstring();
}

} // namespace

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, const wchar_t* elementName,
                                       const wchar_t* namespaceURI, int minOccurs, int maxOccurs,
                                       const wchar_t* pattern, long long minLength, long long maxLength,
                                       const wchar_t* minInclusive, const wchar_t* maxInclusive,
                                       const wchar_t* minExclusive, const wchar_t* maxExclusive,
                                       long long length, long long totalDigits, long long fractionDigits,
                                       CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar_t* format,
                                       PatternMode patternMode)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs)
    , m_restrictions(TextOf(pattern), minLength, maxLength, TextOf(minInclusive), TextOf(maxInclusive),
                     TextOf(minExclusive), TextOf(maxExclusive), length, totalDigits, fractionDigits,
                     patternMode)
    , m_format(TextOf(format))
    , m_whitespaceRule(whitespaceRule)
    , m_itemType(itemType) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* current,
                                             const CSerializationContext& context, bool) {
    const std::wstring& name = GetElementName();
    const std::wstring namespaceURI = GetNamespace();
    // Straight to the helper with the strings held here: no temporaries per element.
    while (current && CXmlObjectHelper::DoesElementNameMatch(context, current, name, namespaceURI)) {
        try {
            AddFromString(current->GetText());
        } catch (const CQxException& e) {
            // The failure names the item, not just the element that holds the collection.
            throw CQxValidationException(L"Failed to set the property value.", current->GetXPath(), e);
        }
        current = current->GetNextSiblingElement();
    }
    return current;
}

} // namespace QxXmlLib16
