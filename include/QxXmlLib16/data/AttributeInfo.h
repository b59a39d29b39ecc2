#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {
class CSerializationContext;
class CXmlAttribute;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
class QxVariant;
} // namespace QxXmlLib16

namespace QxXmlLib16Data {

// Descriptor of one attribute (or attribute wildcard) of a generated class. Like the element
// descriptors it is shared and immutable, and reaches the member through AccessProperty.
class QX_API CAttributeInfo {
public:
    CAttributeInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool optional,
                   const wchar_t* defaultValue);
    virtual ~CAttributeInfo();
    CAttributeInfo(const CAttributeInfo&) = delete;
    CAttributeInfo& operator=(const CAttributeInfo&) = delete;

    virtual void AttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                const QxXmlLib16::CXmlGeneratedClass* object,
                                QxXmlLib16::CXmlWriter* writer) const = 0;
    // True when the attribute belongs to this descriptor and was stored.
    virtual bool AttributeFromXml(const QxXmlLib16::CSerializationContext& context,
                                  QxXmlLib16::CXmlGeneratedClass* object,
                                  QxXmlLib16::CXmlAttribute* attribute) const = 0;
    // Reports a required attribute that was not found.
    virtual void Validate(const QxXmlLib16::CSerializationContext& context, bool found) const = 0;

    const std::wstring& GetName() const { return m_name; }
    const std::wstring& GetNamespace() const { return m_namespace; }
    int GetPropertyNumber() const { return m_propertyNumber; }
    bool IsOptional() const { return m_optional; }
    const std::wstring& GetDefaultValue() const { return m_defaultValue; }

    int InvokePropertyGet(QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value) const;
    int ReadProperty(const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value) const;
    int InvokePropertySet(QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value,
                          const QxXmlLib16::CXmlAttribute& attribute) const;
    bool IsThisAttribute(const QxXmlLib16::CSerializationContext& context,
                         QxXmlLib16::CXmlAttribute* attribute) const;
    static void TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                              const std::wstring& targetNamespace);
    static bool IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                 const std::wstring& targetNamespace);
    static std::wstring GetTargetNamespace(const QxXmlLib16::CXmlObjectBase* object);
    static void ToXml_Int(const QxXmlLib16::CXmlObjectBase* object, QxXmlLib16::CXmlWriter* writer,
                          bool isRoot, const wchar_t* namespaceURI,
                          const QxXmlLib16::CSerializationContext& context);

private:
    std::wstring m_name;
    std::wstring m_namespace;
    int m_propertyNumber;
    bool m_optional;
    std::wstring m_defaultValue;
};

} // namespace QxXmlLib16Data
