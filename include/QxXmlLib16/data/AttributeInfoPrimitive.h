#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/data/AttributeInfo.h>

namespace QxXmlLib16Data {

// An attribute of a primitive type, with its facets.
class QX_API CAttributeInfoPrimitive : public CAttributeInfo {
public:
    CAttributeInfoPrimitive(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                            bool optional, QxXmlLib16::ItemType itemType, const wchar_t* format,
                            QxXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                            const QxXmlLib16::CPrimitiveRestrictions& restrictions,
                            const wchar_t* defaultValue);

    void AttributeToXml(const QxXmlLib16::CSerializationContext& context,
                        const QxXmlLib16::CXmlGeneratedClass* object,
                        QxXmlLib16::CXmlWriter* writer) const override;
    // Matches name and namespace exactly, whatever the context says about namespaces.
    bool AttributeFromXml(const QxXmlLib16::CSerializationContext& context,
                          QxXmlLib16::CXmlGeneratedClass* object,
                          QxXmlLib16::CXmlAttribute* attribute) const override;
    void Validate(const QxXmlLib16::CSerializationContext& context, bool found) const override;

    void CheckRestriction(QxXmlLib16::QxVariant value) const;
    QxXmlLib16::ItemType GetItemType() const { return m_itemType; }

private:
    QxXmlLib16::CPrimitiveRestrictions m_restrictions;
    QxXmlLib16::ItemType m_itemType;
    std::wstring m_format;
    QxXmlLib16::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

} // namespace QxXmlLib16Data
