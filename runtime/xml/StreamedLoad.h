#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>

#include "xml/ErrorLocator.h"

#include <exception>
#include <string>

namespace QxXmlLib16 {

class CXmlDocument;
class CXmlElement;

namespace internal {

// A parse error met while a bound load reads a document that is still being parsed. It is not a
// CQxException, so it passes the handlers of the binding (which would wrap it with the path of the
// element being read) and reaches the entry point, which reports the parse error as it is: the
// message a malformed document gives does not depend on how far the binding got.
class CStreamFailure {
public:
    explicit CStreamFailure(std::exception_ptr error)
        : m_error(error) {}
    [[noreturn]] void Rethrow() const { std::rethrow_exception(m_error); }

private:
    std::exception_ptr m_error;
};

// A bound load reads its document while the parser is under way, so that at no time does the whole
// tree exist: loading XML text stops once the document element has started, the tree's accessors
// parse on as far as the binding asks, and each element is emptied as soon as the object that read
// it is done with it. What the binding sees, and every result, message and path, stays as if the
// whole tree had been built first. Exported for the library's own tests; no public header has it.
class QX_API CStreamedLoad {
public:
    // Makes the loads of document that follow stream.
    explicit CStreamedLoad(CXmlDocument& document);
    CStreamedLoad(const CStreamedLoad&) = delete;
    CStreamedLoad& operator=(const CStreamedLoad&) = delete;

    // Parses what the binding left unread, building nothing more. Malformed input throws the parse
    // error, which then takes the place of any error the binding raised.
    void Finish();

    // Runs read, the binding of the document, then Finish. An error of the binding gets the position
    // of its node; a parse error met on the way, or by Finish, is the one reported.
    template <class Read>
    void Bind(Read read) {
        try {
            read();
        } catch (const CStreamFailure& failure) {
            failure.Rethrow();
        } catch (CQxException& error) {
            Finish();
            CErrorLocator::Locate(m_document, error);
            throw;
        } catch (...) {
            Finish();
            throw;
        }
        Finish();
    }

    // Drops the content of element, which a bound object has read in full; the element itself stays,
    // so that the positions of its siblings still count it. Only for a streamed document.
    static void Release(CXmlElement* element);
    // Moves the text of an element that the parser has finished out into text, for a binding that
    // reads it once and then releases the element: a text may be as large as the document. False,
    // leaving both alone, when the element is not of a streamed document or not finished.
    static bool TakeText(CXmlElement* element, std::wstring& text);

private:
    CXmlDocument& m_document;
};

} // namespace internal
} // namespace QxXmlLib16
