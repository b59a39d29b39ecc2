#include <QxXmlLib16/collections/XmlCollectionBase.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <algorithm>

namespace QxXmlLib16 {

CXmlCollectionBase::CXmlCollectionBase()
    : m_minOccurs(0)
    , m_maxOccurs(0) {}

CXmlCollectionBase::CXmlCollectionBase(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs,
                                       int maxOccurs)
    : m_namespace(namespaceURI ? namespaceURI : L"")
    , m_minOccurs(minOccurs)
    , m_maxOccurs(maxOccurs) {
    SetElementName(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

std::wstring CXmlCollectionBase::GetTargetNamespace() const {
    throw CQxException(L"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
                       L"(program logic error)");
}

void CXmlCollectionBase::ValidateCount(const CSerializationContext& context) const {
    if (context.GetIgnoreInvalidCollectionCounts()) return;
    const int count = GetCount();
    if (m_maxOccurs != -1 && count > m_maxOccurs)
        throw CQxValidationException(
            FormatString(L"The Maximum number of [%ls] elements allowed in this collection is %d",
                         GetElementName().c_str(), m_maxOccurs),
            std::wstring());
    if (count < m_minOccurs)
        throw CQxValidationException(
            FormatString(L"The Minimum number of [%ls] elements allowed in this collection is %d",
                         GetElementName().c_str(), m_minOccurs),
            std::wstring());
}

bool CXmlCollectionBase::IsValidCount(const CSerializationContext& context) const {
    if (context.GetIgnoreInvalidCollectionCounts()) return true;
    const int count = GetCount();
    return (m_maxOccurs == -1 || count <= m_maxOccurs) && count >= m_minOccurs;
}

void CXmlCollectionBase::AddEventListener(IEventSink* listener) {
    if (!m_listeners) m_listeners.reset(new std::vector<IEventSink*>);
    m_listeners->push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener) {
    if (m_listeners)
        m_listeners->erase(std::remove(m_listeners->begin(), m_listeners->end(), listener),
                           m_listeners->end());
}

namespace {

// Tells the listeners registered when the event began, even if one of them changes the list while
// being told. The snapshot stays on the stack for the usual handful of listeners.
template <class Notify>
void NotifyAll(const std::unique_ptr<std::vector<IEventSink*>>& registered, Notify notify) {
    if (!registered) return;
    const std::vector<IEventSink*>& listeners = *registered;
    constexpr size_t kOnStack = 8;
    if (listeners.size() > kOnStack) {
        const std::vector<IEventSink*> snapshot(listeners);
        for (IEventSink* listener : snapshot)
            notify(listener);
        return;
    }
    IEventSink* snapshot[kOnStack];
    const size_t count = listeners.size();
    std::copy(listeners.begin(), listeners.end(), snapshot);
    for (size_t i = 0; i < count; ++i)
        notify(snapshot[i]);
}

} // namespace

void CXmlCollectionBase::FireOnCollectionAdd(void* item) {
    NotifyAll(m_listeners, [&](IEventSink* listener) { FireOnCollectionAddEvent(listener, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item) {
    NotifyAll(m_listeners,
              [&](IEventSink* listener) { FireOnCollectionAddCompleteEvent(listener, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index) {
    NotifyAll(m_listeners, [&](IEventSink* listener) { FireOnCollectionRemoveEvent(listener, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index) {
    NotifyAll(m_listeners,
              [&](IEventSink* listener) { FireOnCollectionRemoveCompleteEvent(listener, this, index); });
}

void CXmlCollectionBase::FireOnCollectionChange() {
    NotifyAll(m_listeners, [&](IEventSink* listener) { FireOnCollectionChangeEvent(listener, this); });
}

} // namespace QxXmlLib16
