#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>

#include <string>

namespace QxXmlLib16 {

// Base of the collections of primitive values: the facets every item must satisfy, the format its
// text is written with, the whitespace rule its text is read with, and its item type.
class QX_API CXmlTypeCollection : public CXmlCollectionBase {
public:
    // The facets follow in record order; a negative number or a null or empty text is absent. The
    // pattern mode comes last, as in the record.
    CXmlTypeCollection(ItemType itemType, const wchar_t* elementName, const wchar_t* namespaceURI,
                       int minOccurs, int maxOccurs, const wchar_t* pattern, long long minLength,
                       long long maxLength, const wchar_t* minInclusive, const wchar_t* maxInclusive,
                       const wchar_t* minExclusive, const wchar_t* maxExclusive, long long length,
                       long long totalDigits, long long fractionDigits,
                       CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar_t* format,
                       PatternMode patternMode = pmTranslated);
    ~CXmlTypeCollection() override;

    // Parses one item from its element text and appends it.
    virtual void AddFromString(std::wstring text) = 0;

    ItemType GetItemType() const { return m_itemType; }
    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    const std::wstring& GetFormat() const { return m_format; }
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }

protected:
    // Takes current and its following siblings while they carry the collection's element name;
    // returns the first sibling that does not (null when they run out).
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;

private:
    CPrimitiveRestrictions m_restrictions;
    std::wstring m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
    ItemType m_itemType;
};

} // namespace QxXmlLib16
