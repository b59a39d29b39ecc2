#pragma once

// What classes generated from a schema need beyond their descriptors: checks of values that one
// facet record cannot express (lists, unions, several patterns, enumerations and fixed values of
// non-string types), collections of repeated model groups and of checked texts, and the choice of a
// class by xsi:type or by a document's root element.

#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/collections/TypedCollection.h>
#include <QxXmlLib16/collections/TypedItemIterator.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace QxXmlLib16 {

class CBinaryData;
class CSerializationContext;
class QxVariant;

// ---- Checks of texts ----------------------------------------------------------------------------
//
// Each check returns when the text is a value of its type and otherwise throws
// CQxInvalidValueException "Invalid Value for <name> [<text>]." (name serves the message only).

// A check of one simple type, generated for the types these functions combine.
typedef void (*TextCheckFunction)(const wchar_t* name, const std::wstring& text);

// The whole text must match the XML Schema pattern, read in the given mode.
QX_API void CheckPattern(const wchar_t* name, const std::wstring& text, const wchar_t* pattern,
                         PatternMode mode = pmTranslated);
// The text, under the whitespace rule, must convert to the kind and satisfy the facets.
QX_API void CheckValue(ItemType kind, const wchar_t* name, const std::wstring& text,
                       CWhitespaceUtils::WhitespaceRule rule, const CPrimitiveRestrictions& facets);
// The value of the text must equal one of the values (as values of the kind: "1.0" equals "1" for a
// decimal; a string compares under the rule).
QX_API void CheckEnumeration(ItemType kind, const wchar_t* name, const std::wstring& text,
                             CWhitespaceUtils::WhitespaceRule rule,
                             std::initializer_list<const wchar_t*> values);
// A list: its items are the blank-separated words of the text, each checked by item, and their
// number must satisfy the length facets (negative: absent).
QX_API void CheckList(const wchar_t* name, const std::wstring& text, long long minLength, long long maxLength,
                      long long length, TextCheckFunction item);
// A union: some member must accept the text.
QX_API void CheckUnion(const wchar_t* name, const std::wstring& text,
                       std::initializer_list<TextCheckFunction> members);
// A fixed value: the value must equal the fixed one, compared as values of its kind.
QX_API void CheckFixed(const wchar_t* name, const QxVariant& value, const wchar_t* fixed);

// Repeated elements of a simple type whose check no facet record expresses: the texts, each checked
// when added.
template <TextCheckFunction Check>
class TCheckedTextCol : public CTypedCollection<TCheckedTextCol<Check>, std::wstring> {
    using Base = CTypedCollection<TCheckedTextCol<Check>, std::wstring>;

public:
    TCheckedTextCol(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs,
                    CWhitespaceUtils::WhitespaceRule rule)
        : Base(itString, elementName, namespaceURI, minOccurs, maxOccurs, L"", -1, -1, L"", L"", L"", L"", -1,
               -1, -1, rule, L"") {}

    void Add(std::wstring value) { AddAt(this->GetCount(), std::move(value)); }
    void AddAt(int index, std::wstring value) { this->InsertAt(index, std::move(value), &CheckItem); }
    void AddFromString(std::wstring text) override {
        Add(CWhitespaceUtils::ApplyRule(this->GetWhitespaceRule(), text));
    }
    std::wstring ItemToString(const std::wstring& value) const { return value; }

private:
    static void CheckItem(const wchar_t* name, const std::wstring& value, const CPrimitiveRestrictions&) {
        Check(name, value);
    }
};

// Whether the element of that name and namespace among first and its following siblings carries
// xsi:nil="true" (or "1"). Reading leaves the member of a nil element as it was, so generated code
// takes its nil flag from the document before the members are read.
QX_API bool IsNilElement(const CXmlElement* first, const wchar_t* name, const wchar_t* namespaceURI);

// ---- Repeated model groups ----------------------------------------------------------------------

// The occurrences of a model group that repeats: each item is an object of the group's class, whose
// elements stand inline among the parent's children. Reading takes occurrences until one reads
// nothing or maxOccurs are read.
class QX_API CXmlGroupCollection : public CXmlCollection {
public:
    CXmlGroupCollection(const wchar_t* groupName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs);

protected:
    // A new, empty occurrence.
    virtual CSmartPtr<CXmlObjectBase> NewItem() const = 0;

    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;
};

template <class T>
class TXmlGroupCollection : public CXmlGroupCollection {
public:
    using CXmlGroupCollection::CXmlGroupCollection;

    T* Item(int index) const { return static_cast<T*>(CXmlCollection::Item(index)); }
    // Appends a new, empty occurrence and returns it.
    T* Add() {
        T* item = new T(GetElementName().c_str());
        AppendItem(item);
        return item;
    }
    T* Add(T* item) {
        AppendItem(item);
        return item;
    }
    CTypedItemIterator<T> begin() const { return CTypedItemIterator<T>(CXmlCollection::begin()); }
    CTypedItemIterator<T> end() const { return CTypedItemIterator<T>(CXmlCollection::end()); }

protected:
    CSmartPtr<CXmlObjectBase> NewItem() const override { return new T(GetElementName().c_str()); }
};

// ---- Choosing a class ---------------------------------------------------------------------------

// A new object of T named after the element it will be read from, or written as.
template <class T>
CSmartPtr<CXmlObjectBase> NewObject(const wchar_t* elementName) {
    return new T(elementName);
}
template <class T>
CSmartPtr<CXmlObjectBase> NewObjectFor(CXmlElement* element) {
    return new T(element->GetLocalName().c_str());
}

// A type of a schema and how to make its class; create is null for an abstract type.
struct STypeEntry {
    const wchar_t* namespaceURI;
    const wchar_t* name;
    CSmartPtr<CXmlObjectBase> (*create)(const wchar_t* elementName);
};

// The class of the type the element's xsi:type names among types, or of the first (the declared
// type) when it has none. Null when xsi:type names no type of the list or an abstract one.
QX_API CSmartPtr<CXmlObjectBase> CreateByType(CXmlElement* element, const STypeEntry* types, size_t count);
template <size_t N>
CSmartPtr<CXmlObjectBase> CreateByType(CXmlElement* element, const STypeEntry (&types)[N]) {
    return CreateByType(element, types, N);
}

// A global element of a schema and how to make its class from the element read.
struct SRootEntry {
    const wchar_t* namespaceURI;
    const wchar_t* name;
    CSmartPtr<CXmlObjectBase> (*create)(CXmlElement* element);
};

// The global elements of a set of schemas: loads a document whichever of them its root is, into
// that element's class, validating it as the class's own From... operations do.
class QX_API CDocumentRoots {
public:
    explicit CDocumentRoots(std::initializer_list<SRootEntry> roots);

    // A file or bytes holding XML text, Fast Infoset or JSON, plain, gzip- or zlib-compressed; JSON
    // is read as the object's FromJson reads it. A root that is no global element throws
    // CQxValidationException "The document element [<name>] of namespace [<uri>] is not a global
    // element of this schema".
    CSmartPtr<CXmlObjectBase> Load(const wchar_t* fileName, const CSerializationContext& context) const;
    CSmartPtr<CXmlObjectBase> Load(const CBinaryData& document, const CSerializationContext& context) const;
    CSmartPtr<CXmlObjectBase> Load(unsigned char* data, unsigned long length,
                                   const CSerializationContext& context) const;
    // The root of a document already loaded; the document must outlive the call.
    CSmartPtr<CXmlObjectBase> Read(CXmlElement* root, const CSerializationContext& context) const;

private:
    std::vector<SRootEntry> m_roots;
};

} // namespace QxXmlLib16
