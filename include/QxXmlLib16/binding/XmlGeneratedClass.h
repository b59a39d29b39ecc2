#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/binding/XmlObjectBase.h>

namespace QxXmlLib16Data {
class CAttributeInfo;
class CElementInfo;
class CParentElementInfo;
} // namespace QxXmlLib16Data

namespace QxXmlLib16 {

class QxVariant;

// Implemented by generated classes whose element is nillable.
class QX_API INillable {
public:
    virtual bool IsNil() const = 0;
    virtual void SetNil(bool nil) = 0;

protected:
    ~INillable() = default;
};

// Base of every class generated from a schema type. The generated class keeps its members as plain
// fields and describes them through static descriptors; this class writes and reads any generated
// class by walking those descriptors, and reaches the members only through AccessProperty.
class QX_API CXmlGeneratedClass : public CXmlObjectBase {
public:
    // The one gateway to the members: with read true the member's value goes into value (nil when
    // absent), with read false the member takes the value.
    virtual int AccessProperty(int propertyNumber, bool read, QxVariant& value) = 0;
    virtual const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const = 0;
    // Null-terminated, in schema order.
    virtual QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const = 0;
    // Null-terminated.
    virtual QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const = 0;
    // Called first when the object is read, so that it can reset its members.
    virtual void OnBeforeFromXml(CXmlElement* element, CXmlElement* firstChild,
                                 const CSerializationContext& context, bool flag) = 0;

    int ReadProperty(int propertyNumber, QxVariant& value) const;
    int GetClassElementInfoCount() const;
    bool IsElementInList(const CSerializationContext& context, CXmlElement* element) const;
    // True when a member may legitimately be absent or empty, so that an empty choice is acceptable.
    bool DoesElementContainOptionalElements() const;

    // Destroys a class's static descriptors and nulls the three references.
    static void CleanMetaData(QxXmlLib16Data::CParentElementInfo*& classInfo,
                              QxXmlLib16Data::CElementInfo**& elements,
                              QxXmlLib16Data::CAttributeInfo**& attributes);

protected:
    CXmlGeneratedClass() = default;
    CXmlGeneratedClass(const CXmlGeneratedClass&) = default;
    CXmlGeneratedClass& operator=(const CXmlGeneratedClass&) = default;

    void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             const CSerializationContext& context, bool flag) override;

    void ProcessAttributesToXml(const CSerializationContext& context,
                                QxXmlLib16Data::CElementInfo* const* elements,
                                QxXmlLib16Data::CAttributeInfo* const* attributes, CXmlWriter* writer) const;
    void ProcessElementSeqToXml(const CSerializationContext& context, CXmlWriter* writer) const;
    void ProcessElementAllToXml(const CSerializationContext& context, CXmlWriter* writer) const;
    void ProcessElementChoiceToXml(const CSerializationContext& context, CXmlWriter* writer, bool flag) const;
    void ProcessAttributesFromXml(const CSerializationContext& context, CXmlElement* element,
                                  bool reportUnknown);
    CXmlElement* ProcessElementSeqFromXml(const CSerializationContext& context, CXmlElement* element,
                                          CXmlElement* firstChild, int elementKind);
    CXmlElement* ProcessElementAllFromXml(const CSerializationContext& context, CXmlElement* element,
                                          CXmlElement* firstChild, int elementKind);
    CXmlElement* ProcessElementChoiceFromXml(const CSerializationContext& context, CXmlElement* element,
                                             CXmlElement* firstChild, int elementKind, bool flag);
};

} // namespace QxXmlLib16
