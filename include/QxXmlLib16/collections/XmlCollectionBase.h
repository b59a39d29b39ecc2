#pragma once

#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SharedText.h>

#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// Base of every collection a generated object holds for a repeated member: the repeated element's
// name (kept as the object's element name) and namespace, its minOccurs/maxOccurs, and the listeners
// told about changes. A collection is a bound object itself, so it travels in a QxVariant and is
// reference counted.
class QX_API CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlCollectionBase();
    // maxOccurs -1 means unbounded.
    CXmlCollectionBase(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs);
    ~CXmlCollectionBase() override;

    CXmlObjectBase* GetBase() override { return this; }
    // Always throws: a collection has no top-level element of its own.
    std::wstring GetTargetNamespace() const override;
    std::wstring GetNamespace() const override { return m_namespace; }

    virtual int GetCount() const = 0;
    virtual void Clear() = 0;
    virtual void Remove(int index) = 0;
    // Throws when the count is above maxOccurs (checked first) or below minOccurs, unless the context
    // ignores collection counts.
    virtual void ValidateCount(const CSerializationContext& context) const;
    virtual bool IsValidCount(const CSerializationContext& context) const;

    int GetMinOccurs() const { return m_minOccurs; }
    int GetMaxOccurs() const { return m_maxOccurs; }

    // The same listener may be added twice; removing drops every occurrence. Listeners are not owned.
    void AddEventListener(IEventSink* listener);
    void RemoveEventListener(IEventSink* listener);

protected:
    void FireOnCollectionAdd(void* item);
    void FireOnCollectionAddComplete(void* item);
    void FireOnCollectionRemove(int index);
    void FireOnCollectionRemoveComplete(int index);
    void FireOnCollectionChange();

private:
    CSharedText m_namespace;
    // Made by the first listener: a large document holds an empty collection in nearly every
    // object, and few of them are ever listened to.
    std::unique_ptr<std::vector<IEventSink*>> m_listeners;
    int m_minOccurs;
    int m_maxOccurs;
};

} // namespace QxXmlLib16
