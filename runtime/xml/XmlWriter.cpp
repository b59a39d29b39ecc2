#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <cwchar>

namespace QxXmlLib16 {

namespace {
const std::wstring& EmptyString() {
    static const std::wstring empty;
    return empty;
}
} // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext(const std::wstring& localName,
                                                 const std::wstring& namespaceURI,
                                                 const std::wstring& defaultNamespace,
                                                 const NamespaceMap& namespaceMap)
    : CInstanceMonitor(L"CXmlWriterContext")
    , m_namespaceMap(nullptr)
    , m_ownsMap(false) {
    StartRoot(localName, namespaceURI, defaultNamespace, namespaceMap);
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(const std::wstring& localName,
                                                 const std::wstring& namespaceURI, CXmlWriterContext* parent)
    : CInstanceMonitor(L"CXmlWriterContext")
    , m_namespaceMap(nullptr)
    , m_ownsMap(false) {
    StartChild(localName, namespaceURI, parent);
}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext() {
    DropOwnMap();
}

void CXmlWriter::CXmlWriterContext::Start(const std::wstring& localName, const std::wstring& namespaceURI,
                                          CXmlWriterContext* parent) {
    DropOwnMap();
    m_childCount = 0;
    m_startTagOpen = true;
    m_depth = parent ? parent->m_depth + 1 : 0;
    m_namespaceURI = namespaceURI;
    m_localName = localName;
    m_parent = parent;
    m_contextState = csNone;
}

void CXmlWriter::CXmlWriterContext::StartRoot(const std::wstring& localName, const std::wstring& namespaceURI,
                                              const std::wstring& defaultNamespace,
                                              const NamespaceMap& namespaceMap) {
    Start(localName, namespaceURI, nullptr);
    m_defaultNamespace = defaultNamespace;
    m_effectiveDefault = &m_defaultNamespace;
    m_namespaceMap = new NamespaceMap(namespaceMap);
    m_sharesParentMap = false;
    m_ownsMap = true;
}

void CXmlWriter::CXmlWriterContext::StartChild(const std::wstring& localName,
                                               const std::wstring& namespaceURI, CXmlWriterContext* parent) {
    Start(localName, namespaceURI, parent);
    m_effectiveDefault = parent->m_effectiveDefault;
    m_namespaceMap = parent->m_namespaceMap;
    m_sharesParentMap = true;
}

void CXmlWriter::CXmlWriterContext::DropOwnMap() {
    if (m_ownsMap) delete m_namespaceMap;
    m_namespaceMap = nullptr;
    m_ownsMap = false;
}

void CXmlWriter::CXmlWriterContext::OwnDeclarations() {
    if (m_ownsMap) return;
    m_defaultNamespace = *m_effectiveDefault;
    m_effectiveDefault = &m_defaultNamespace;
    m_namespaceMap = new NamespaceMap(*m_namespaceMap);
    m_sharesParentMap = false;
    m_ownsMap = true;
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const std::wstring& namespaceURI) {
    OwnDeclarations();
    m_defaultNamespace = namespaceURI;
}

const std::wstring&
CXmlWriter::CXmlWriterContext::GetNamespaceMapValue(const std::wstring& namespaceURI) const {
    auto found = m_namespaceMap->find(namespaceURI);
    return found == m_namespaceMap->end() ? EmptyString() : found->second;
}

void CXmlWriter::CXmlWriterContext::SetNamespaceMapValue(const std::wstring& namespaceURI,
                                                         const std::wstring& prefix) {
    OwnDeclarations();
    (*m_namespaceMap)[namespaceURI] = prefix;
}

CXmlWriter::CXmlWriter(const wchar_t* className)
    : CInstanceMonitor(className)
    , m_currentContext(nullptr) {
    m_namespaceMap[XML_NAMESPACE] = L"xml";
}

CXmlWriter::~CXmlWriter() {
    while (m_currentContext) {
        CXmlWriterContext* parent = m_currentContext->GetParent();
        delete m_currentContext;
        m_currentContext = parent;
    }
}

void CXmlWriter::Close() {
    if (m_currentContext) throw CQxException(L"An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(const std::wstring& namespaceURI) {
    if (m_currentContext)
        m_currentContext->SetDefaultNamespace(namespaceURI);
    else
        m_defaultNamespace = namespaceURI;
}

void CXmlWriter::AddNamespace(const std::wstring& prefix, const std::wstring& namespaceURI) {
    if (m_currentContext)
        m_currentContext->SetNamespaceMapValue(namespaceURI, prefix);
    else
        m_namespaceMap[namespaceURI] = prefix;
}

void CXmlWriter::SetContextState(ContextState state) {
    if (m_currentContext) m_currentContext->SetContextState(state);
}

std::wstring CXmlWriter::NsIntToString(int value) {
    const wchar_t text[] = {static_cast<wchar_t>(L'A' + value / 26), static_cast<wchar_t>(L'A' + value % 26)};
    return std::wstring(text, 2);
}

std::wstring CXmlWriter::GetUniquePrefix(const NamespaceMap& namespaceMap) {
    for (int i = 0;; ++i) {
        std::wstring prefix = NsIntToString(i);
        bool taken = false;
        for (const auto& entry : namespaceMap) {
            if (entry.second == prefix) {
                taken = true;
                break;
            }
        }
        if (!taken) return prefix;
    }
}

CXmlWriter::CXmlWriterContext& CXmlWriter::AttributeTarget() {
    if (!m_currentContext || !m_currentContext->IsStartTagOpen())
        throw CQxException(L"Attributes must be added before elements");
    return *m_currentContext;
}

const std::wstring& CXmlWriter::PrefixFor(CXmlWriterContext& context, const std::wstring& namespaceURI,
                                          bool& isNew) {
    const std::wstring& prefix = context.GetNamespaceMapValue(namespaceURI);
    isNew = prefix.empty();
    if (!isNew) return prefix;
    context.SetNamespaceMapValue(namespaceURI, GetUniquePrefix(context.GetNamespaceMap()));
    return context.GetNamespaceMapValue(namespaceURI);
}

const std::wstring* CXmlWriter::ElementPrefix(CXmlWriterContext& context, bool& isNew) {
    isNew = false;
    const std::wstring& namespaceURI = context.GetNamespaceURI();
    if (namespaceURI.empty() || namespaceURI == context.GetDefaultNamespace()) return nullptr;
    return &PrefixFor(context, namespaceURI, isNew);
}

std::wstring CXmlWriter::TypeAttributeValue(CXmlWriterContext& context, const std::wstring& typeNamespace,
                                            const std::wstring& typeName, const std::wstring*& newPrefix) {
    newPrefix = nullptr;
    if (typeNamespace.empty() || typeNamespace == context.GetDefaultNamespace()) return typeName;
    bool isNew;
    const std::wstring& prefix = PrefixFor(context, typeNamespace, isNew);
    if (isNew) newPrefix = &prefix;
    return prefix + L':' + typeName;
}

bool CXmlWriter::IsXmlNamespace(const std::wstring& namespaceURI) {
    return namespaceURI.compare(0, std::wcslen(XML_NAMESPACE), XML_NAMESPACE) == 0;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::PushContext(const std::wstring& localName,
                                                       const std::wstring& namespaceURI) {
    std::unique_ptr<CXmlWriterContext> context;
    if (!m_spareContexts.empty()) {
        context = std::move(m_spareContexts.back());
        m_spareContexts.pop_back();
        if (m_currentContext)
            context->StartChild(localName, namespaceURI, m_currentContext);
        else
            context->StartRoot(localName, namespaceURI, m_defaultNamespace, m_namespaceMap);
    } else if (m_currentContext) {
        context.reset(new CXmlWriterContext(localName, namespaceURI, m_currentContext));
    } else {
        context.reset(new CXmlWriterContext(localName, namespaceURI, m_defaultNamespace, m_namespaceMap));
    }
    m_currentContext = context.release();
    return *m_currentContext;
}

void CXmlWriter::PopContext() {
    std::unique_ptr<CXmlWriterContext> closed(m_currentContext);
    m_currentContext = closed->GetParent();
    closed->DropOwnMap();
    m_spareContexts.push_back(std::move(closed));
}

} // namespace QxXmlLib16
