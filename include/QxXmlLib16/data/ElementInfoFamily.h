#pragma once

// The element descriptors: CElementInfo + model group (Seq, Choice, All) + kind of content (Cls,
// AbsCls, Prim, Enum, Untpd, or none for a plain collection) + cardinality (Mnd, Opt, Col). The
// 43 named descriptors are thin classes over three templates, whose operations the library
// instantiates for exactly these combinations:
//   TElementInfoMember<group, kind, cardinality>   a single member (Mnd, Opt)
//   TElementInfoCollection<group>                  a repeated member of any kind (SeqCol, ...)
//   TElementInfoKindCollection<group, kind>        a repeated member of one kind (SeqClsCol, ...),
//                                                  derived from its group's plain collection

#include <QxXmlLib16/data/ElementInfo.h>
#include <QxXmlLib16/foundation/Export.h>

#include <string>
#include <type_traits>

namespace QxXmlLib16Data {

// The descriptor templates are instantiated in the library over these enumerations; they are
// exported so that clang, which gives an instantiation the visibility of its arguments, exports the
// instantiations too.
enum QX_API ContentKind : int {
    ckClass,         // a child object of a known generated class
    ckAbstractClass, // a child object whose class a factory chooses from its element
    ckPrimitive,     // a primitive value
    ckEnumeration,   // an enumeration value
    ckUntyped,       // wildcard content, held as a CElement
};

constexpr bool IsClassContent(ContentKind kind) {
    return kind == ckClass || kind == ckAbstractClass;
}

enum QX_API Cardinality : int {
    cdMandatory,
    cdOptional,
};

// The constructor fields a kind of content adds to CElementInfo.
template <ContentKind Kind>
struct TMemberFields {};
template <>
struct TMemberFields<ckClass> {
    XmlElementType elementKind;
    bool requiredContent; // inline content must consume something (mandatory members only)
    ClassFactoryFunction factory;
    int classNumber;
};
template <>
struct TMemberFields<ckAbstractClass> {
    XmlElementType elementKind;
    ElementFactoryFunction factory;
    int number; // given to mandatory members of all-groups and only kept
};
template <>
struct TMemberFields<ckUntyped> {
    std::wstring namespaceRule;
    std::wstring targetNamespace;
};

// A mandatory or optional member. Its constructor is that of its kind of content.
template <XmlElementGroupType Group, ContentKind Kind, Cardinality Card>
class QX_API TElementInfoMember : public CElementInfo {
    template <bool Enabled>
    using If = std::enable_if_t<Enabled, int>;

public:
    // A primitive member.
    template <ContentKind K = Kind, If<K == ckPrimitive> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool nillable,
                       QxXmlLib16::ItemType itemType, const wchar_t* format,
                       QxXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                       const QxXmlLib16::CPrimitiveRestrictions& restrictions, const wchar_t* defaultValue)
        : CElementInfo(name, namespaceURI, propertyNumber, nillable, itemType, format, whitespaceRule,
                       restrictions, defaultValue) {}
    // An enumeration member.
    template <ContentKind K = Kind, If<K == ckEnumeration> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool nillable,
                       EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                       const wchar_t* defaultValue)
        : CElementInfo(name, namespaceURI, propertyNumber, nillable, enumToText, textToEnum, defaultValue) {}
    // A mandatory class member; requiredContent: inline content must consume something.
    template <ContentKind K = Kind, If<K == ckClass && Card == cdMandatory> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                       XmlElementType elementKind, ClassFactoryFunction factory, int classNumber,
                       bool requiredContent)
        : CElementInfo(name, namespaceURI, propertyNumber)
        , m_fields{elementKind, requiredContent, factory, classNumber} {}
    // An optional class member.
    template <ContentKind K = Kind, If<K == ckClass && Card == cdOptional> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                       XmlElementType elementKind, ClassFactoryFunction factory, int classNumber)
        : CElementInfo(name, namespaceURI, propertyNumber)
        , m_fields{elementKind, false, factory, classNumber} {}
    // An abstract class member; a mandatory one of an all-group also takes a number.
    template <ContentKind K = Kind, If<K == ckAbstractClass && !(Group == egAll && Card == cdMandatory)> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                       XmlElementType elementKind, ElementFactoryFunction factory)
        : CElementInfo(name, namespaceURI, propertyNumber)
        , m_fields{elementKind, factory, 0} {}
    template <ContentKind K = Kind, If<K == ckAbstractClass && Group == egAll && Card == cdMandatory> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                       XmlElementType elementKind, ElementFactoryFunction factory, int number)
        : CElementInfo(name, namespaceURI, propertyNumber)
        , m_fields{elementKind, factory, number} {}
    // A wildcard member: the namespace rule ("##any", "##other", "##local", "##targetNamespace" or a
    // list) and the target namespace it is read against.
    template <ContentKind K = Kind, If<K == ckUntyped> = 0>
    TElementInfoMember(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                       const wchar_t* namespaceRule, const wchar_t* targetNamespace)
        : CElementInfo(name, namespaceURI, propertyNumber)
        , m_fields{namespaceRule ? namespaceRule : L"", targetNamespace ? targetNamespace : L""} {}

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    // Members of all-groups report a missing mandatory member; the others keep the base's.
    bool Validate(const QxXmlLib16::CSerializationContext& context,
                  const QxXmlLib16::CXmlGeneratedClass* object, bool found, bool check) const override;
    // Class members write the attributes of an inline child; the others keep the base's.
    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

    const TMemberFields<Kind>& GetFields() const { return m_fields; }

private:
    TMemberFields<Kind> m_fields;
};

// A repeated member of any kind: the collection the member holds reads and writes its items. In a
// sequence its count is checked when it is read and before it is written; a choice alternative
// that finds too few items gives the position back (the items stay read); an all-group member
// checks its count before writing and never counts as the member the group found.
template <XmlElementGroupType Group>
class QX_API TElementInfoCollection : public CElementInfo {
public:
    TElementInfoCollection(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
        : CElementInfo(name, namespaceURI, propertyNumber) {}

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
};

// The named descriptors are thin classes, so that they stay distinct types that can be declared
// ahead; the library holds their operations.
#define QX_ELEMENT_INFO(name, ...)                                                                           \
    extern template class __VA_ARGS__;                                                                       \
    class QX_API CElementInfo##name : public __VA_ARGS__ {                                                   \
        using Base = __VA_ARGS__;                                                                            \
                                                                                                             \
    public:                                                                                                  \
        using Base::Base;                                                                                    \
    };

#define QX_ELEMENT_INFO_COLLECTIONS(X)                                                                       \
    X(SeqCol, TElementInfoCollection<egSequence>)                                                            \
    X(ChoiceCol, TElementInfoCollection<egChoice>)                                                           \
    X(AllCol, TElementInfoCollection<egAll>)
QX_ELEMENT_INFO_COLLECTIONS(QX_ELEMENT_INFO)

template <XmlElementGroupType Group>
using TPlainCollection =
    std::conditional_t<Group == egSequence, CElementInfoSeqCol,
                       std::conditional_t<Group == egChoice, CElementInfoChoiceCol, CElementInfoAllCol>>;

// A repeated member of one kind, read and written as its group's plain collection member. Class
// members also write the attributes of inline items; wildcard collections of sequences and
// choices take any elements when named "AnyElement", else only those named like the member.
template <XmlElementGroupType Group, ContentKind Kind>
class QX_API TElementInfoKindCollection : public TPlainCollection<Group> {
    using Base = TPlainCollection<Group>;
    template <bool Enabled>
    using If = std::enable_if_t<Enabled, int>;

public:
    template <ContentKind K = Kind, If<!IsClassContent(K)> = 0>
    TElementInfoKindCollection(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
        : Base(name, namespaceURI, propertyNumber)
        , m_elementKind(etElement) {}
    // elementKind: how each item's content stands in the parent.
    template <ContentKind K = Kind, If<IsClassContent(K)> = 0>
    TElementInfoKindCollection(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                               XmlElementType elementKind)
        : Base(name, namespaceURI, propertyNumber)
        , m_elementKind(elementKind) {}

    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

private:
    XmlElementType m_elementKind;
};

// The members of every other combination the library provides: in each group optional members and
// collections of every kind, mandatory members outside choices, and enumeration collections outside
// all-groups.
#define QX_ELEMENT_INFO_OPTIONAL_AND_REPEATED(X, G, group)                                                   \
    X(G##ClsOpt, TElementInfoMember<group, ckClass, cdOptional>)                                             \
    X(G##ClsCol, TElementInfoKindCollection<group, ckClass>)                                                 \
    X(G##AbsClsOpt, TElementInfoMember<group, ckAbstractClass, cdOptional>)                                  \
    X(G##AbsClsCol, TElementInfoKindCollection<group, ckAbstractClass>)                                      \
    X(G##PrimOpt, TElementInfoMember<group, ckPrimitive, cdOptional>)                                        \
    X(G##PrimCol, TElementInfoKindCollection<group, ckPrimitive>)                                            \
    X(G##EnumOpt, TElementInfoMember<group, ckEnumeration, cdOptional>)                                      \
    X(G##UntpdOpt, TElementInfoMember<group, ckUntyped, cdOptional>)                                         \
    X(G##UntpdCol, TElementInfoKindCollection<group, ckUntyped>)
#define QX_ELEMENT_INFO_MANDATORY(X, G, group)                                                               \
    X(G##ClsMnd, TElementInfoMember<group, ckClass, cdMandatory>)                                            \
    X(G##AbsClsMnd, TElementInfoMember<group, ckAbstractClass, cdMandatory>)                                 \
    X(G##PrimMnd, TElementInfoMember<group, ckPrimitive, cdMandatory>)                                       \
    X(G##EnumMnd, TElementInfoMember<group, ckEnumeration, cdMandatory>)                                     \
    X(G##UntpdMnd, TElementInfoMember<group, ckUntyped, cdMandatory>)
#define QX_ELEMENT_INFO_MEMBERS(X)                                                                           \
    QX_ELEMENT_INFO_OPTIONAL_AND_REPEATED(X, Seq, egSequence)                                                \
    QX_ELEMENT_INFO_MANDATORY(X, Seq, egSequence)                                                            \
    X(SeqEnumCol, TElementInfoKindCollection<egSequence, ckEnumeration>)                                     \
    QX_ELEMENT_INFO_OPTIONAL_AND_REPEATED(X, Choice, egChoice)                                               \
    X(ChoiceEnumCol, TElementInfoKindCollection<egChoice, ckEnumeration>)                                    \
    QX_ELEMENT_INFO_OPTIONAL_AND_REPEATED(X, All, egAll)                                                     \
    QX_ELEMENT_INFO_MANDATORY(X, All, egAll)
QX_ELEMENT_INFO_MEMBERS(QX_ELEMENT_INFO)
#undef QX_ELEMENT_INFO

// Repeated enumeration values in an all-group. No descriptor can read or write them there, so this
// member is deliberately left abstract.
class QX_API CElementInfoAllEnumCol : public CElementInfo {
public:
    CElementInfoAllEnumCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
        : CElementInfo(name, namespaceURI, propertyNumber) {}
};

} // namespace QxXmlLib16Data
