#include <QxXmlLib16/foundation/Exceptions.h>

namespace QxXmlLib16 {

namespace {
CQxException* CloneOf(const CQxException* e) {
    return e ? e->Clone() : nullptr;
}

std::wstring WithPath(std::wstring message, const std::wstring& path) {
    if (!path.empty()) {
        message += L"\nPath: ";
        message += path;
    }
    return message;
}
} // namespace

CQxException::CQxException()
    : m_inner(nullptr) {}

CQxException::CQxException(std::wstring message)
    : m_message(std::move(message))
    , m_inner(nullptr) {}

CQxException::CQxException(std::wstring message, const CQxException& inner)
    : m_message(std::move(message))
    , m_inner(inner.Clone()) {}

CQxException::CQxException(std::wstring message, std::wstring path)
    : m_message(WithPath(std::move(message), path))
    , m_path(std::move(path))
    , m_inner(nullptr) {}

CQxException::CQxException(std::wstring message, std::wstring path, const CQxException& inner)
    : m_message(WithPath(std::move(message), path))
    , m_path(std::move(path))
    , m_inner(inner.Clone()) {}

CQxException::CQxException(const CQxException& other)
    : m_message(other.m_message)
    , m_path(other.m_path)
    , m_inner(CloneOf(other.m_inner))
    , m_line(other.m_line)
    , m_column(other.m_column) {}

CQxException::~CQxException() {
    delete m_inner;
}

CQxException& CQxException::operator=(const CQxException& other) {
    if (this != &other) {
        m_message = other.m_message;
        m_inner = CloneOf(other.m_inner);
        m_line = other.m_line;
        m_column = other.m_column;
    }
    return *this;
}

void CQxException::SetPosition(unsigned long line, unsigned long column) {
    m_line = line;
    m_column = line ? column : 0;
}

CQxException* CQxException::Clone() const {
    return new CQxException(*this);
}

std::wstring CQxException::GetFullMessage() const {
    std::wstring full = m_message;
    for (const CQxException* e = m_inner; e; e = e->m_inner) {
        full += L'\n';
        full += e->m_message;
    }
    return full;
}

CQxInvalidParamException* CQxInvalidParamException::Clone() const {
    return new CQxInvalidParamException(*this);
}
CQxInvalidStateException* CQxInvalidStateException::Clone() const {
    return new CQxInvalidStateException(*this);
}
CQxOverFlowException* CQxOverFlowException::Clone() const {
    return new CQxOverFlowException(*this);
}

namespace {
template <class T>
T* CloneWithDetail(const T& source) {
    T* copy = new T(source);
    copy->SetDetail(source.GetDetail());
    return copy;
}
} // namespace

CQxValidationException* CQxValidationException::Clone() const {
    return CloneWithDetail(*this);
}
CQxInvalidValueException* CQxInvalidValueException::Clone() const {
    return CloneWithDetail(*this);
}
CQxInvalidNamespaceException* CQxInvalidNamespaceException::Clone() const {
    return CloneWithDetail(*this);
}

} // namespace QxXmlLib16
