#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <string>

namespace QxXmlLib16 {
class CSerializationContext;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
class QxVariant;
} // namespace QxXmlLib16

namespace QxXmlLib16Data {

// Model group of a class's content (exported, as ContentKind is).
enum QX_API XmlElementGroupType : int {
    egSequence = 0,
    egChoice = 1,
    egAll = 2,
};

// How a member's content stands in its parent. Any value other than etElement means the content is
// written inline among the parent's own children (a referenced group); etGroup is the plain case.
// As the probe argument of ElementFromXml, etElement means "must be satisfied here".
enum XmlElementType : int {
    etElement = 0,
    etGroup = 1,
};

// Converts an enumeration value to its text and back (generated per enumeration).
typedef const wchar_t* (*EnumToTextFunction)(int value);
typedef int (*TextToEnumFunction)(const wchar_t* text);
// Creates the generated class of a member: by class number, or by the element being read.
typedef QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase> (*ClassFactoryFunction)(int classNumber,
                                                                                  const wchar_t* elementName);
typedef QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase> (*ElementFactoryFunction)(
    QxXmlLib16::CXmlElement* element);

// Descriptor of one child-element member of a generated class. Descriptors are created once per
// class, shared by all its instances and by all threads, and never change after construction. A
// descriptor reaches the member only through the class's AccessProperty with its property number.
class QX_API CElementInfo {
public:
    // Class, collection and wildcard members.
    CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
    // Enumeration members.
    CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool nillable,
                 EnumToTextFunction enumToText, TextToEnumFunction textToEnum, const wchar_t* defaultValue);
    // Primitive members.
    CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool nillable,
                 QxXmlLib16::ItemType itemType, const wchar_t* format,
                 QxXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                 const QxXmlLib16::CPrimitiveRestrictions& restrictions, const wchar_t* defaultValue);
    virtual ~CElementInfo();
    CElementInfo(const CElementInfo&) = delete;
    CElementInfo& operator=(const CElementInfo&) = delete;

    // Writes the member; true when something was written.
    virtual bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                              const QxXmlLib16::CXmlGeneratedClass* object,
                              QxXmlLib16::CXmlWriter* writer) const = 0;
    // Takes the member from *current onward among parent's children and moves *current past what it
    // consumed; true when the member is satisfied. With probe etElement a missing mandatory member is
    // an error; otherwise a miss is reported by false. namespaceURI is that of the enclosing content.
    virtual bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                                QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                                QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                                XmlElementType probe) const = 0;
    // All-group members report a missing mandatory member here; the base must never be called.
    virtual bool Validate(const QxXmlLib16::CSerializationContext& context,
                          const QxXmlLib16::CXmlGeneratedClass* object, bool found, bool check) const;
    // Writes the attributes of an inline child on the parent's element; the base writes nothing.
    virtual void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                           const QxXmlLib16::CXmlGeneratedClass* object,
                                           QxXmlLib16::CXmlWriter* writer) const;

    const std::wstring& GetName() const { return m_name; }
    const std::wstring& GetNamespace() const { return m_namespace; }
    int GetPropertyNumber() const { return m_propertyNumber; }
    const QxXmlLib16::CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    QxXmlLib16::ItemType GetItemType() const { return m_itemType; }
    const std::wstring& GetFormat() const { return m_format; }
    QxXmlLib16::CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }
    const std::wstring& GetDefaultValue() const { return m_defaultValue; }
    bool IsNillable() const { return m_nillable; }
    bool IsPrimitive() const { return m_isPrimitive; }
    EnumToTextFunction GetEnumToText() const { return m_enumToText; }
    TextToEnumFunction GetTextToEnum() const { return m_textToEnum; }

    // Property access with failures wrapped as validation errors naming the member.
    int InvokePropertyGet(QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value) const;
    int ReadProperty(const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value) const;
    int InvokePropertySet(QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::QxVariant& value,
                          const QxXmlLib16::CXmlElement& element) const;
    // The element has this member's name and (unless namespaces are ignored) namespace.
    bool IsThisElement(const QxXmlLib16::CSerializationContext& context,
                       const QxXmlLib16::CXmlElement* element) const;
    void CheckRestriction(const QxXmlLib16::QxVariant& value) const;
    QxXmlLib16::CXmlElement* FromXml_Int(QxXmlLib16::CXmlObjectBase* child, QxXmlLib16::CXmlElement* element,
                                         QxXmlLib16::CXmlElement* first,
                                         const QxXmlLib16::CSerializationContext& context, bool flag) const;
    void AttributesToXml_Int(const QxXmlLib16::CXmlObjectBase* child, QxXmlLib16::CXmlWriter* writer,
                             const QxXmlLib16::CSerializationContext& context) const;
    // The namespace wildcard content is written in by default.
    static std::wstring GetAnyDefaultNamespace(const wchar_t* rule, const wchar_t* a, const wchar_t* b);

    // The shared writers and readers the concrete descriptors combine.
    bool ElementToXmlCls(const QxXmlLib16::CSerializationContext& context,
                         const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlWriter* writer,
                         bool flag) const;
    bool ElementToXmlCol(const QxXmlLib16::CSerializationContext& context,
                         const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlWriter* writer) const;
    bool ElementToXmlPrim(const QxXmlLib16::CSerializationContext& context,
                          const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlWriter* writer) const;
    bool ElementToXmlEnum(const QxXmlLib16::CSerializationContext& context,
                          const QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlWriter* writer,
                          EnumToTextFunction enumToText) const;
    void ElementFromXmlPrim(const QxXmlLib16::CSerializationContext& context,
                            QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement** current) const;
    void ElementFromXmlEnum(const QxXmlLib16::CSerializationContext& context,
                            QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement** current) const;

private:
    std::wstring m_name;
    std::wstring m_namespace;
    int m_propertyNumber;
    QxXmlLib16::CPrimitiveRestrictions m_restrictions;
    QxXmlLib16::ItemType m_itemType;
    std::wstring m_format;
    QxXmlLib16::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
    std::wstring m_defaultValue;
    bool m_nillable;
    EnumToTextFunction m_enumToText;
    TextToEnumFunction m_textToEnum;
    bool m_isPrimitive;
};

} // namespace QxXmlLib16Data
