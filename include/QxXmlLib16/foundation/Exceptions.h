#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// Root of every failure the library reports. Thrown by value, caught by reference. The message
// already ends in "\nPath: <path>" when a path was given; GetFullMessage adds the inner chain.
class QX_API CQxException {
public:
    CQxException();
    explicit CQxException(std::wstring message);
    CQxException(std::wstring message, const CQxException& inner);
    CQxException(std::wstring message, std::wstring path);
    CQxException(std::wstring message, std::wstring path, const CQxException& inner);
    CQxException(const CQxException& other);
    virtual ~CQxException();
    // Deep copy of the exact dynamic class, owned by the caller.
    virtual CQxException* Clone() const;

    // Copies the message, its position and a clone of the other's inner exception. Kept as it always
    // was: the path stays as it was, and an inner exception held before is not destroyed, so assign
    // only to exceptions that have none.
    CQxException& operator=(const CQxException& other);

    const std::wstring& GetMessage() const { return m_message; }
    const std::wstring& GetPath() const { return m_path; }
    const CQxException* GetInnerException() const { return m_inner; }
    // This message and those of the inner chain, outermost first, one per line.
    std::wstring GetFullMessage() const;

    // Where in the XML text of a load the failure lies: the line and column of the offending node
    // (or of the parser when the text itself is malformed), both from 1; 0 when unknown. Errors of
    // loads from Fast Infoset or JSON, and of anything but a load, have none. The message is left
    // as it is, so that its text stays the same whether or not a position is known.
    unsigned long GetLine() const { return m_line; }
    unsigned long GetColumn() const { return m_column; }
    bool HasPosition() const { return m_line != 0; }
    void SetPosition(unsigned long line, unsigned long column);

private:
    std::wstring m_message;
    std::wstring m_path;
    CQxException* m_inner;
    unsigned long m_line = 0;
    unsigned long m_column = 0;
};

// A bad argument passed to an operation.
class QX_API CQxInvalidParamException : public CQxException {
public:
    CQxInvalidParamException() = default;
    CQxInvalidParamException(const CQxException& other)
        : CQxException(other) {}
    explicit CQxInvalidParamException(std::wstring message)
        : CQxException(std::move(message)) {}
    CQxInvalidParamException(std::wstring message, const CQxException& inner)
        : CQxException(std::move(message), inner) {}
    CQxInvalidParamException* Clone() const override;
};

// An operation called in a state that does not allow it.
class QX_API CQxInvalidStateException : public CQxException {
public:
    CQxInvalidStateException() = default;
    CQxInvalidStateException(const CQxException& other)
        : CQxException(other) {}
    explicit CQxInvalidStateException(std::wstring message)
        : CQxException(std::move(message)) {}
    CQxInvalidStateException(std::wstring message, const CQxException& inner)
        : CQxException(std::move(message), inner) {}
    CQxInvalidStateException* Clone() const override;
};

// A numeric value out of the range of its target type.
class QX_API CQxOverFlowException : public CQxException {
public:
    CQxOverFlowException() = default;
    CQxOverFlowException(const CQxException& other)
        : CQxException(other) {}
    explicit CQxOverFlowException(std::wstring message)
        : CQxException(std::move(message)) {}
    CQxOverFlowException(std::wstring message, const CQxException& inner)
        : CQxException(std::move(message), inner) {}
    CQxOverFlowException* Clone() const override;
};

// The document or object does not satisfy the schema. Carries one further string that the library
// never fills; Clone copies it, the constructors leave it empty.
class QX_API CQxValidationException : public CQxException {
public:
    CQxValidationException() = default;
    CQxValidationException(const CQxException& other)
        : CQxException(other) {}
    CQxValidationException(std::wstring message, std::wstring path)
        : CQxException(std::move(message), std::move(path)) {}
    CQxValidationException(std::wstring message, std::wstring path, const CQxException& inner)
        : CQxException(std::move(message), std::move(path), inner) {}
    CQxValidationException(const CQxValidationException& other)
        : CQxException(other) {}
    CQxValidationException* Clone() const override;

    const std::wstring& GetDetail() const { return m_detail; }
    void SetDetail(std::wstring detail) { m_detail = std::move(detail); }

private:
    std::wstring m_detail;
};

// A value that is not valid for its type or facets. Never carries a path.
class QX_API CQxInvalidValueException : public CQxValidationException {
public:
    CQxInvalidValueException() = default;
    CQxInvalidValueException(const CQxException& other)
        : CQxValidationException(other) {}
    explicit CQxInvalidValueException(std::wstring message)
        : CQxValidationException(std::move(message), std::wstring()) {}
    CQxInvalidValueException(std::wstring message, const CQxException& inner)
        : CQxValidationException(std::move(message), std::wstring(), inner) {}
    CQxInvalidValueException* Clone() const override;
};

// An element or attribute in a namespace the schema does not allow there.
class QX_API CQxInvalidNamespaceException : public CQxValidationException {
public:
    CQxInvalidNamespaceException() = default;
    CQxInvalidNamespaceException(const CQxException& other)
        : CQxValidationException(other) {}
    CQxInvalidNamespaceException(std::wstring message, std::wstring path)
        : CQxValidationException(std::move(message), std::move(path)) {}
    CQxInvalidNamespaceException(std::wstring message, std::wstring path, const CQxException& inner)
        : CQxValidationException(std::move(message), std::move(path), inner) {}
    CQxInvalidNamespaceException* Clone() const override;
};

// Implemented by readers that can describe their current position for error messages.
class QX_API IErrorPathProvider {
public:
    virtual ~IErrorPathProvider() = default;
    virtual std::wstring GetPath() const = 0;
};

} // namespace QxXmlLib16
