#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/binding/ClassfactoryBase.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/data/AttributeInfo.h>
#include <QxXmlLib16/data/ElementInfoFamily.h>
#include <QxXmlLib16/data/ParentElementInfo.h>

#include "foundation/support/MessageOf.h"
#include "data/ElementMember.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cwchar>
#include <optional>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

// Hand-written "generated" classes of a tiny schema:
//   item (nillable): sequence id:int, label:string? (default "none"), kind:{a,b}, note:{a,b}?
//   root: sequence head:item, extra:item?, inline group (g:int)
//   pick: choice of p:int | q:int
namespace {

const wchar_t* KindToText(int value) {
    return value == 0 ? L"a" : L"b";
}
int TextToKind(const wchar_t* text) {
    return std::wcscmp(text, L"a") == 0 ? 0 : 1;
}

template <class T>
void Exchange(std::optional<T>& field, bool read, QxVariant& value, void (QxVariant::*set)(T),
              T (QxVariant::*get)() const) {
    if (read) {
        if (field) (value.*set)(*field);
    } else {
        field = (value.*get)();
    }
}

CAttributeInfo* const kNoAttributes[] = {nullptr};

class CItem : public CXmlGeneratedClass, public INillable {
public:
    std::optional<long> id;
    std::optional<std::wstring> label;
    std::optional<long> kind, note;
    bool nil = false;

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    bool IsNil() const override { return nil; }
    void SetNil(bool value) override { nil = value; }

    int AccessProperty(int property, bool read, QxVariant& value) override {
        switch (property) {
        case 0:
            Exchange(id, read, value, &QxVariant::SetI4, &QxVariant::GetI4);
            break;
        case 1:
            if (read && label) value.SetString(*label);
            if (!read) label = value.GetString();
            break;
        case 2:
            Exchange(kind, read, value, &QxVariant::SetI4, &QxVariant::GetI4);
            break;
        case 3:
            Exchange(note, read, value, &QxVariant::SetI4, &QxVariant::GetI4);
            break;
        }
        return 0;
    }
    const CParentElementInfo* GetClassInfo() const override {
        static const CParentElementInfo info(egSequence, etElement, L"itemType", L"", true, true, -1, itNone,
                                             nullptr, false);
        return &info;
    }
    CElementInfo* const* GetClassElementInfo() const override {
        static CElementInfoSeqPrimMnd id(L"id", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse,
                                         {}, nullptr);
        static CElementInfoSeqPrimOpt label(L"label", L"", 1, false, itString, nullptr,
                                            CWhitespaceUtils::wsPreserve, {}, L"none");
        static CElementInfoSeqEnumMnd kind(L"kind", L"", 2, false, KindToText, TextToKind, nullptr);
        static CElementInfoSeqEnumOpt note(L"note", L"", 3, true, KindToText, TextToKind, nullptr);
        static CElementInfo* const list[] = {&id, &label, &kind, &note, nullptr};
        return list;
    }
    CAttributeInfo* const* GetClassAttributeInfo() const override { return kNoAttributes; }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        *this = CItem();
    }
};

// An inline group: its member stands among the parent's children.
class CGroup : public CXmlGeneratedClass {
public:
    std::optional<long> g;

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    int AccessProperty(int, bool read, QxVariant& value) override {
        Exchange(g, read, value, &QxVariant::SetI4, &QxVariant::GetI4);
        return 0;
    }
    const CParentElementInfo* GetClassInfo() const override {
        static const CParentElementInfo info(egSequence, etGroup, L"group", L"", false, false, -1, itNone,
                                             nullptr, false);
        return &info;
    }
    CElementInfo* const* GetClassElementInfo() const override {
        static CElementInfoSeqPrimMnd g(L"g", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                        nullptr);
        static CElementInfo* const list[] = {&g, nullptr};
        return list;
    }
    CAttributeInfo* const* GetClassAttributeInfo() const override { return kNoAttributes; }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {}
};

CSmartPtr<CXmlObjectBase> Make(int classNumber, const wchar_t* name) {
    CSmartPtr<CXmlObjectBase> object;
    if (classNumber == 0)
        object = new CItem;
    else
        object = new CGroup;
    object->SetElementName(name);
    return object;
}

template <class T>
void ExchangeObject(CSmartPtr<T>& field, bool read, QxVariant& value) {
    if (read)
        value.SetXmlObject(field.Get());
    else
        field = value.GetXmlObject().template DynamicCast<T>();
}

class CRoot : public CXmlGeneratedClass {
public:
    CSmartPtr<CItem> head = Make(0, L"head").DynamicCast<CItem>();
    CSmartPtr<CItem> extra;
    CSmartPtr<CGroup> group = Make(1, L"").DynamicCast<CGroup>();

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    int AccessProperty(int property, bool read, QxVariant& value) override {
        if (property == 0) ExchangeObject(head, read, value);
        if (property == 1) ExchangeObject(extra, read, value);
        if (property == 2) ExchangeObject(group, read, value);
        return 0;
    }
    const CParentElementInfo* GetClassInfo() const override {
        static const CParentElementInfo info(egSequence, etElement, L"root", L"", true, false, -1, itNone,
                                             nullptr, false);
        return &info;
    }
    CElementInfo* const* GetClassElementInfo() const override {
        static CElementInfoSeqClsMnd head(L"head", L"", 0, etElement, Make, 0, true);
        static CElementInfoSeqClsOpt extra(L"extra", L"", 1, etElement, Make, 0);
        static CElementInfoSeqClsMnd group(L"group", L"", 2, etGroup, Make, 1, true);
        static CElementInfo* const list[] = {&head, &extra, &group, nullptr};
        return list;
    }
    CAttributeInfo* const* GetClassAttributeInfo() const override { return kNoAttributes; }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        extra.Reset();
    }
};

// A choice member composed from the shared policies, as the choice family is.
class CChoicePrim : public CElementInfo {
public:
    using CElementInfo::CElementInfo;
    bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override {
        return QxXmlLib16Data::internal::WriteMember<QxXmlLib16Data::internal::Optional>(
            *this, QxXmlLib16Data::internal::PrimContent{}, context, object, writer);
    }
    bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                        CXmlElement** current, const wchar_t*, XmlElementType probe) const override {
        return QxXmlLib16Data::internal::ReadValueMember<QxXmlLib16Data::internal::ChoiceGroup,
                                                         QxXmlLib16Data::internal::Optional>(
            *this, QxXmlLib16Data::internal::PrimContent{}, context, object, parent, current, probe);
    }
};

class CPick : public CXmlGeneratedClass {
public:
    std::optional<long> p, q;

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    int AccessProperty(int property, bool read, QxVariant& value) override {
        Exchange(property == 0 ? p : q, read, value, &QxVariant::SetI4, &QxVariant::GetI4);
        return 0;
    }
    const CParentElementInfo* GetClassInfo() const override {
        static const CParentElementInfo info(egChoice, etElement, L"pick", L"", true, false, -1, itNone,
                                             nullptr, false);
        return &info;
    }
    CElementInfo* const* GetClassElementInfo() const override {
        static CChoicePrim p(L"p", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {}, nullptr);
        static CChoicePrim q(L"q", L"", 1, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {}, nullptr);
        static CElementInfo* const list[] = {&p, &q, nullptr};
        return list;
    }
    CAttributeInfo* const* GetClassAttributeInfo() const override { return kNoAttributes; }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        p = q = {};
    }
};

template <class T>
CSmartPtr<T> Read(const wchar_t* xml, const CSerializationContext& context = CSerializationContext()) {
    CSmartPtr<T> object(new T);
    object->FromXml(xml, context);
    return object;
}

// The innermost message of a failed read: the wrapping levels only add "Failed to process".
template <class T>
std::wstring ReadFailure(const wchar_t* xml, const CSerializationContext& context = CSerializationContext()) {
    try {
        Read<T>(xml, context);
    } catch (const CQxException& e) {
        const CQxException* inner = &e;
        while (inner->GetInnerException())
            inner = inner->GetInnerException();
        return inner->GetMessage();
    }
    return L"(no exception)";
}

const wchar_t* const kXsi = L" xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'";

// Writing without xsi:type, which is otherwise added wherever an element name differs from its type's.
CSerializationContext Untyped() {
    CSerializationContext context;
    context.SetWriteTypeAttribute(false);
    return context;
}

} // namespace

TEST(SequenceReading, ValuesDefaultsAndEnumerations) {
    auto item = Read<CItem>(L"<item><id> 7 </id><label/><kind>b</kind><note>a</note></item>");
    EXPECT_EQ(L"item", item->GetElementName());
    EXPECT_EQ(7, *item->id);
    EXPECT_EQ(L"none", *item->label); // an empty element takes the default
    EXPECT_EQ(1, *item->kind);
    EXPECT_EQ(0, *item->note);

    item = Read<CItem>(L"<other><id>1</id><kind>a</kind></other>");
    EXPECT_EQ(L"other", item->GetElementName()); // any root name is accepted and taken
    EXPECT_FALSE(item->label);
    EXPECT_FALSE(item->note);
}

TEST(SequenceReading, MissingAndUnexpectedElements) {
    struct Case {
        const wchar_t* xml;
        const wchar_t* message;
    } const cases[] = {
        {L"<item><kind>a</kind></item>", L"Failed to find the required child element [id].\nPath: /item"},
        {L"<item><id>1</id></item>", L"Failed to find the required child element [kind].\nPath: /item"},
        {L"<item><id>1</id><kind>a</kind><zzz/></item>",
         L"Failed read all the elements held within the element [item]. The unexpected element [zzz] "
         L"remains "
         L"un "
         L"processed\nPath: /item"},
        {L"<item><id a='1'>1</id><kind>a</kind></item>", L"Unexpected Attribute found.\nPath: /item/id/@a"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.message, ReadFailure<CItem>(c.xml)) << c.xml;

    CSerializationContext lenient;
    lenient.SetIgnoreUnknownElements(true);
    auto item = Read<CItem>(L"<item><x/><id>3</id><y/><kind>a</kind><z/></item>", lenient);
    EXPECT_EQ(3, *item->id);
    EXPECT_EQ(0, *item->kind);
    // Skipping does not help a member that is missing at the end of the parent.
    EXPECT_EQ(L"Failed to find the required child element [kind].\nPath: /item",
              ReadFailure<CItem>(L"<item><id>3</id><y/></item>", lenient));

    CSerializationContext forgiving;
    forgiving.SetIgnoreMissingMandatoryElements(true);
    item = Read<CItem>(L"<item><kind>a</kind></item>", forgiving);
    EXPECT_FALSE(item->id);
}

TEST(SequenceReading, FailuresCarryThePathThroughEveryLevel) {
    try {
        Read<CRoot>(L"<root><head><id>x</id><kind>a</kind></head><g>1</g></root>");
        FAIL();
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(L"/root/head/id", e.GetPath());
        EXPECT_EQ(L"Failed to process the element.\nPath: /root/head/id", e.GetMessage());
        ASSERT_NE(nullptr, e.GetInnerException());
        EXPECT_EQ(L"/root/head/id", e.GetInnerException()->GetPath());
    }
}

TEST(NilHandling, ObjectsAndValueMembers) {
    std::wstring xml = std::wstring(L"<item") + kXsi + L" xsi:nil='TRUE'><ignored/></item>";
    EXPECT_TRUE(Read<CItem>(xml.c_str())->nil); // content of a nil element is not read

    struct Case {
        std::wstring xml;
        const wchar_t* message;
    } const cases[] = {
        {std::wstring(L"<item") + kXsi + L" xsi:nil='yes'/>",
         L"Unexpected Value [yes] for 'nil' Attribute found.\nPath: /item/@xsi:nil"},
        {std::wstring(L"<item") + kXsi + L"><id xsi:nil='1'/><kind>a</kind></item>",
         L"Invalid use of 'nil' attribute in non-nillable element.\nPath: /item/id"},
        {std::wstring(L"<item") + kXsi + L"><id>1</id><kind>a</kind><note xsi:nil='maybe'/></item>",
         L"Unexpected Value [maybe] for 'nil' Attribute found.\nPath: /item/note/@xsi:nil"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.message, ReadFailure<CItem>(c.xml.c_str())) << c.xml;

    // An explicit false is fine on a non-nillable member; a nil member keeps its value.
    xml = std::wstring(L"<item") + kXsi +
          L"><id xsi:nil='false'>4</id><kind>a</kind><note xsi:nil='true'/></item>";
    auto item = Read<CItem>(xml.c_str());
    EXPECT_EQ(4, *item->id);
    EXPECT_FALSE(item->note);
}

TEST(SequenceWriting, ValuesDefaultsNilAndMandatoryMembers) {
    CSmartPtr<CItem> item(new CItem);
    item->SetElementName(L"item");
    item->id = 5;
    item->kind = 1;
    const CSerializationContext untyped = Untyped();
    EXPECT_EQ(L"<item><id>5</id><kind>b</kind></item>", item->ToXml(false, false, eolLF, untyped));

    item->nil = true;
    EXPECT_EQ(L"<item xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>",
              item->ToXml(false, false, eolLF, untyped));

    item->nil = false;
    item->kind.reset();
    try {
        item->ToXml(false, false);
        FAIL();
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(L"Failed to convert the element [item] to XML\nThe Property [kind] is mandatory, it may "
                  L"not be NULL",
                  e.GetFullMessage());
    }
}

TEST(SequenceWriting, ChildObjectsAndInlineGroupsRoundTrip) {
    const wchar_t* xml = L"<root><head><id>1</id><kind>a</kind></head><extra><id>2</id><kind>b</kind></extra>"
                         L"<g>3</g></root>";
    auto root = Read<CRoot>(xml);
    EXPECT_EQ(1, *root->head->id);
    ASSERT_TRUE(root->extra);
    EXPECT_EQ(L"extra", root->extra->GetElementName());
    EXPECT_EQ(3, *root->group->g);
    EXPECT_EQ(xml, root->ToXml(false, false, eolLF, Untyped()));

    root = Read<CRoot>(L"<root><head><id>1</id><kind>a</kind></head><g>3</g></root>");
    EXPECT_FALSE(root->extra);
    EXPECT_EQ(L"Failed to find the required child element [group].\nPath: /root",
              ReadFailure<CRoot>(L"<root><head><id>1</id><kind>a</kind></head></root>"));
}

TEST(ChoiceGroups, ExactlyOneAlternative) {
    auto pick = Read<CPick>(L"<pick><q>2</q></pick>");
    EXPECT_FALSE(pick->p);
    EXPECT_EQ(2, *pick->q);
    EXPECT_EQ(L"<pick><q>2</q></pick>", pick->ToXml(false, false));

    EXPECT_EQ(
        L"No child elements within the element [pick] were populated. The element represents a choice, so "
        L"one "
        L"and only one element should be populated. The element contained no sutable child elements\nPath: "
        L"/pick",
        ReadFailure<CPick>(L"<pick/>"));
    CSerializationContext lenient;
    lenient.SetIgnoreMissingChoice(true);
    EXPECT_FALSE(Read<CPick>(L"<pick/>", lenient)->p);

    CSmartPtr<CPick> empty(new CPick);
    empty->SetElementName(L"pick");
    EXPECT_EQ(
        L"This element is a choice, and as such must have at one (and only one) valid item, currently there "
        L"are none set",
        MessageOf<CQxValidationException>([&] {
            try {
                empty->ToXml(false, false);
            } catch (const CQxException& e) {
                throw CQxValidationException(*e.GetInnerException());
            }
        }));
    EXPECT_EQ(L"<pick/>", empty->ToXml(false, false, eolLF, lenient));
}

TEST(TypeAttribute, WrittenOnlyUnderAnotherElementName) {
    CSerializationContext context;
    context.SetWriteTypeAttribute(true);
    CSmartPtr<CItem> item(new CItem);
    item->id = 1;
    item->kind = 0;
    item->SetElementName(L"itemType");
    EXPECT_EQ(L"<itemType><id>1</id><kind>a</kind></itemType>", item->ToXml(false, false, eolLF, context));
    item->SetElementName(L"thing");
    EXPECT_EQ(L"<thing xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"itemType\"><id>1</id>"
              L"<kind>a</kind></thing>",
              item->ToXml(false, false, eolLF, context));
}

TEST(ClassFactory, TypeNameAndNamespaceFromXsiType) {
    struct Case {
        const wchar_t* type; // xsi:type value, or null for none
        const wchar_t* name;
        const wchar_t* uri;
    } const cases[] = {
        {nullptr, L"", L"urn:e"},     {L"T", L"T", L"urn:e"},    {L"p:T", L"T", L"urn:p"},
        {L"a:b:c", L"b:c", L"urn:e"}, {L"zz:T", L"T", L"urn:e"}, // undeclared prefix: element's namespace
    };
    for (const Case& c : cases) {
        std::wstring xml = std::wstring(L"<e xmlns='urn:e' xmlns:p='urn:p'") + kXsi;
        if (c.type) xml += std::wstring(L" xsi:type='") + c.type + L"'";
        xml += L"/>";
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        EXPECT_EQ(c.name, CClassfactoryBase::GetElementType(document.GetDocumentElement())) << xml;
        EXPECT_EQ(c.uri, CClassfactoryBase::GetElementTypeNamespaceUri(document.GetDocumentElement())) << xml;
    }
}

TEST(Metadata, CleanMetaDataDestroysEverythingAndNullsTheReferences) {
    auto* info =
        new CParentElementInfo(egSequence, etElement, L"t", L"", false, false, -1, itNone, nullptr, false);
    auto** elements =
        new CElementInfo* [2] { new CElementInfoSeqClsOpt(L"a", L"", 0, etElement, Make, 0), nullptr };
    auto** attributes = new CAttributeInfo* [1] { nullptr };
    CXmlGeneratedClass::CleanMetaData(info, elements, attributes);
    EXPECT_EQ(nullptr, info);
    EXPECT_EQ(nullptr, elements);
    EXPECT_EQ(nullptr, attributes);
}

TEST(EntryPoints, TextStreamsAndFiles) {
    CSmartPtr<CItem> item(new CItem);
    item->SetElementName(L"item");
    item->id = 9;
    item->kind = 0;
    const CSerializationContext untyped = Untyped();
    const std::wstring body = L"<item><id>9</id><kind>a</kind></item>";
    EXPECT_EQ(body, item->ToXml(false, false, eolLF, untyped));
    EXPECT_EQ(0u, item->ToXml(true, false, eolLF, untyped).find(L"<?xml"));

    // Uncompressed stream bytes are the plain UTF-8 text; a compressed stream reads back the same.
    CBinaryData bytes = item->ToXmlStream(false, false, encUTF8, eolLF, untyped, ctNone);
    EXPECT_EQ(std::string(body.begin(), body.end()),
              std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()));
    CSmartPtr<CItem> copy(new CItem);
    copy->FromXmlStream(item->ToXmlStream(true, true, encUTF8, eolLF, untyped, ctZlib));
    EXPECT_EQ(body, copy->ToXml(false, false, eolLF, untyped));

    const std::string path = ::testing::TempDir() + "engine_entry_points.xml";
    const std::wstring file(path.begin(), path.end());
    std::remove(path.c_str());
    EXPECT_EQ(L"ZLIB Compression only available for To Stream methods.", MessageOf<CQxException>([&] {
                  item->ToXmlFile(file.c_str(), true, true, encUTF8, eolLF, untyped, ctZlib);
              }));
    EXPECT_EQ(nullptr, std::fopen(path.c_str(), "r"));
    item->label = std::wstring(200, L'x'); // compression refuses data that does not shrink
    for (CompressionType compression : {ctNone, ctGzip}) {
        item->ToXmlFile(file.c_str(), true, true, encUTF8, eolLF, untyped, compression);
        copy->FromXmlFile(file.c_str());
        EXPECT_EQ(item->ToXml(false, false, eolLF, untyped), copy->ToXml(false, false, eolLF, untyped));
    }
    std::remove(path.c_str());
}
