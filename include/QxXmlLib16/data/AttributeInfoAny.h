#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/AttributeInfo.h>

#include <string>

namespace QxXmlLib16Data {

// An attribute wildcard (anyAttribute): the member is a CAttributeCol that takes every attribute
// whose namespace fits the namespace rule, read against the target namespace.
class QX_API CAttributeInfoAny : public CAttributeInfo {
public:
    CAttributeInfoAny(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool optional,
                      const wchar_t* defaultValue, const wchar_t* namespaceRule,
                      const wchar_t* targetNamespace);

    // Writes the attributes of the member's collection; a member holding none writes nothing.
    void AttributeToXml(const QxXmlLib16::CSerializationContext& context,
                        const QxXmlLib16::CXmlGeneratedClass* object,
                        QxXmlLib16::CXmlWriter* writer) const override;
    // Takes any attribute whose namespace fits. A member that is not a CAttributeCol throws
    // CQxException "Serialization Data Error : The collection should be a CAttributeCol, it was not!".
    bool AttributeFromXml(const QxXmlLib16::CSerializationContext& context,
                          QxXmlLib16::CXmlGeneratedClass* object,
                          QxXmlLib16::CXmlAttribute* attribute) const override;
    // A wildcard is never required.
    void Validate(const QxXmlLib16::CSerializationContext& context, bool found) const override;

    const std::wstring& GetNamespaceRestriction() const { return m_namespaceRule; }
    const std::wstring& GetRestrictionTargetNamespace() const { return m_targetNamespace; }

private:
    std::wstring m_namespaceRule;
    std::wstring m_targetNamespace;
};

} // namespace QxXmlLib16Data
