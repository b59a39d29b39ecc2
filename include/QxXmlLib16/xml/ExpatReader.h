#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

struct XML_ParserStruct;

namespace QxXmlLib16 {

class CXmlDocument;
class CXmlElement;

// Builds a document's tree from XML text with the 16-bit build of expat, which detects and decodes
// the input's encoding by itself. Used once: CreateParser, one Parse, destroyed.
class QX_API CExpatReader : public CInstanceMonitor {
public:
    explicit CExpatReader(CXmlDocument& document);
    ~CExpatReader() override;
    CExpatReader(const CExpatReader&) = delete;
    CExpatReader& operator=(const CExpatReader&) = delete;

    // Namespace-aware (names arrive as "uri|local") unless the document's schema type has no
    // namespaces. Throws when the installed expat does not use 16-bit characters. utf16Input says
    // the bytes are UTF-16 the library made from wide text: they are read as such whatever encoding
    // their XML declaration names (a document written to a UTF-8 stream still loads from a string).
    void CreateParser(bool utf16Input = false);
    // Parses the document's input buffer. Malformed input throws "<expat's reason> at line <n>".
    void Parse(bool isFinal);
    // Parses the given bytes, the document's input or not.
    void Parse(const unsigned char* data, unsigned long length, bool isFinal);
    void Cleanup();

    // The parser's callbacks; userData is the reader. None lets an exception escape into the
    // parser: the first one is kept, the parse stopped, and the exception rethrown by Parse.
    static void FnStartElement(void* userData, const unsigned short* name, const unsigned short** attributes);
    static void FnEndElement(void* userData, const unsigned short* name);
    static void FnStartNamespace(void* userData, const unsigned short* prefix, const unsigned short* uri);
    static void FnEndNamespace(void* userData, const unsigned short* prefix);
    static void FnText(void* userData, const unsigned short* text, int length);
    static void FnStartCDATA(void* userData);
    static void FnEndCDATA(void* userData);

private:
    // Wide copy of length units (or up to the terminator when length is negative) in the scratch
    // buffer, or in the long-text buffer when too long; text mode leaves out carriage returns and
    // stops at a NUL unit. Sets written to the characters written.
    const wchar_t* Widen(const unsigned short* units, size_t length, bool textMode, size_t& written);
    void StartElement(const unsigned short* name, const unsigned short** attributes);
    void EndElement();
    // Text of the element being read, in the buffer of its depth.
    std::wstring& PendingText();
    // Hands the text read so far to every open element.
    void FlushPendingText();
    void FreeParser();
    template <typename Action>
    static void Guarded(void* userData, Action action);

    CXmlDocument& m_document;
    std::unique_ptr<wchar_t[]> m_scratch;
    unsigned long m_scratchBytes;
    XML_ParserStruct* m_parser;
    // The long-text buffer of the current conversion; reused by the next long one.
    std::unique_ptr<wchar_t[]> m_longText;
    size_t m_longTextCapacity;
    std::exception_ptr m_callbackError;
    // An element's text is stored whole at its end tag, so that the document can share repeated
    // texts (such as the indentation between children) instead of building each piece by piece.
    // One buffer per depth, reused from element to element.
    std::vector<std::wstring> m_pendingText;
};

} // namespace QxXmlLib16
