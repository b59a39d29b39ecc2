#pragma once

// Minimal hand-written "generated" classes for testing element descriptors one at a time.

#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/data/ElementInfo.h>

#include <optional>
#include <string>

namespace FamilyFixtures {

// A generated object reduced to its property slots, which the descriptor under test reads and
// writes through AccessProperty. It has no descriptors of its own.
class CSlots : public QxXmlLib16::CXmlGeneratedClass {
public:
    QxXmlLib16::QxVariant slot[2];

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    int AccessProperty(int property, bool read, QxXmlLib16::QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(QxXmlLib16::CXmlElement*, QxXmlLib16::CXmlElement*,
                         const QxXmlLib16::CSerializationContext&, bool) override {}
};

// A child class: optional attributes id (int) and kind (string), an optional element v (int).
class CLeaf : public QxXmlLib16::CXmlGeneratedClass {
public:
    std::optional<long> id, v;
    std::optional<std::wstring> kind;

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    int AccessProperty(int property, bool read, QxXmlLib16::QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(QxXmlLib16::CXmlElement*, QxXmlLib16::CXmlElement*,
                         const QxXmlLib16::CSerializationContext&, bool) override;
};

// A collection of leaves that writes each one, leaving its count to the caller; reading is not
// needed here.
class CLeafCol : public QxXmlLib16::CXmlCollection {
public:
    CLeafCol(int minOccurs, int maxOccurs);
    void ToXml_Int(QxXmlLib16::CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const QxXmlLib16::CSerializationContext& context, bool flag) const override;
    QxXmlLib16::CXmlElement* FromXml_Int(QxXmlLib16::CXmlElement*, QxXmlLib16::CXmlElement* current,
                                         const QxXmlLib16::CSerializationContext&, bool) override {
        return current;
    }
};

// A leaf named c with the given attribute.
QxXmlLib16::CSmartPtr<CLeaf> NewLeaf(std::optional<long> id);
// The factory of a known class: always a leaf, named after the element.
QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase> MakeLeaf(int classNumber, const wchar_t* name);
// The factory of a derived class: a leaf for kind="leaf", nothing for any other kind.
QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase> MakeByType(QxXmlLib16::CXmlElement* element);

const wchar_t* ColourToText(int value);
int TextToColour(const wchar_t* text);

struct Outcome {
    bool result;
    std::wstring at; // local name of the element the member stopped at, or "(end)"
};
// Offers the children of the document element of xml to the member.
Outcome ReadMember(const QxXmlLib16Data::CElementInfo& info, CSlots& object, const wchar_t* xml,
                   QxXmlLib16Data::XmlElementType probe,
                   const QxXmlLib16::CSerializationContext& context = QxXmlLib16::CSerializationContext());

struct Failure {
    std::wstring message;
    std::wstring path;
};
// The validation error of ReadMember, or "(no exception)".
Failure FailureOf(const QxXmlLib16Data::CElementInfo& info, CSlots& object, const wchar_t* xml,
                  QxXmlLib16Data::XmlElementType probe);

// The member written on its own, unformatted and without xsi:type.
std::wstring
WriteMember(const QxXmlLib16Data::CElementInfo& info, const CSlots& object,
            const QxXmlLib16::CSerializationContext& context = QxXmlLib16::CSerializationContext());
// An element p with the attributes the member puts on its parent.
std::wstring WriteAttributesOn(const QxXmlLib16Data::CElementInfo& info, const CSlots& object);

} // namespace FamilyFixtures
