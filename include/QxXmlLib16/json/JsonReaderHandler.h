#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>

#include <string>
#include <vector>

namespace QxXmlLib16 {

// Receives what the JSON reader reads, in document order. Names, strings and numbers arrive in a
// buffer the reader reuses: a handler copies what it keeps. A handler stops the reading by
// throwing.
class QX_API IJsonReaderHandler {
public:
    virtual ~IJsonReaderHandler() = default;
    virtual void ReadStartDocument() = 0;
    virtual void ReadEndDocument() = 0;
    // The name of an object member; its value follows.
    virtual void ReadName(const std::wstring& name) = 0;
    virtual void ReadString(const std::wstring& value) = 0;
    // The number's text as read.
    virtual void ReadNumber(const std::wstring& value) = 0;
    virtual void ReadStartObject() = 0;
    virtual void ReadEndObject() = 0;
    virtual void ReadStartArray() = 0;
    virtual void ReadEndArray() = 0;
    virtual void ReadBool(bool value) = 0;
    virtual void ReadNull() = 0;
};

// First in the reader's chain: keeps track of where the reader is, for error paths, and forwards
// every event to an inner handler (not owned), if one is set.
//
// The path names each open member from the outside in, "." before each: ".a.b" inside {"a": {"b":
// ...}}. An array is named by its member and each of its items by the member and the item's index
// from 0: the second object of {"a": [{}, {"c": 1}]} is ".a.a[1]", and its member c ".a.a[1].c".
class QX_API CJsonReaderDefaultHandler : public IJsonReaderHandler, public IErrorPathProvider {
public:
    CJsonReaderDefaultHandler();
    ~CJsonReaderDefaultHandler() override;

    void SetInnerHandler(IJsonReaderHandler* handler) { m_inner = handler; }
    IJsonReaderHandler* GetInnerHandler() const { return m_inner; }

    void ReadStartDocument() override;
    void ReadEndDocument() override;
    void ReadName(const std::wstring& name) override;
    // A simple value reaches the inner handler while its member is still on the path, so that a
    // handler that refuses it reports the member.
    void ReadString(const std::wstring& value) override;
    void ReadNumber(const std::wstring& value) override;
    void ReadStartObject() override;
    void ReadEndObject() override;
    void ReadStartArray() override;
    void ReadEndArray() override;
    void ReadBool(bool value) override;
    void ReadNull() override;

    std::wstring GetPath() const override;

private:
    enum Kind : int { kArray = 0, kMember = 1, kObject = 2 };
    struct StackItem {
        std::wstring name; // a member's name; empty for an array's item, named after its array
        int index;         // of an array: the items so far, the first being 0
        Kind kind;
        bool isItem;
    };

    StackItem& Push(Kind kind, bool isItem);
    void Pop() { --m_depth; }
    StackItem* Top() { return m_depth ? &m_stack[m_depth - 1] : nullptr; }
    // The item a container or value opens: the member on top, or a new item of the array on top.
    void BeginContainer(Kind kind);
    template <class Forward>
    void SimpleValue(Forward forward);

    // Items stay allocated once used, so that their names keep their capacity.
    std::vector<StackItem> m_stack;
    size_t m_depth;
    IJsonReaderHandler* m_inner;
};

} // namespace QxXmlLib16
