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
// the input's encoding by itself. Used once: CreateParser, one Parse, destroyed. A bound load runs
// it piece by piece instead (Start, ReadUntil as the binding asks, ReadRest), so that only the part
// of the tree under the binding's cursor exists at any time.
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

    // Takes the input of a parse run piece by piece; the bytes must outlive the reader. Nothing is
    // read yet, and the elements read from now on stay pending until their end tag is read.
    void Start(const unsigned char* data, unsigned long length);
    // Reads on until element gets a child (when childSuffices) or ends, or the input is used up. A
    // null element is the document, whose child is the document element. Malformed input throws as
    // Parse does, and so does every later call.
    void ReadUntil(const CXmlElement* element, bool childSuffices);
    // Reads the rest of the input; the elements that start from now on are built only if keep.
    void ReadRest(bool keep);

    // The parser's callbacks; userData is the reader. None lets an exception escape into the
    // parser: the first one is kept, the parse stopped, and the exception rethrown by Parse.
    static void FnStartElement(void* userData, const unsigned short* name, const unsigned short** attributes);
    static void FnEndElement(void* userData, const unsigned short* name);
    static void FnStartNamespace(void* userData, const unsigned short* prefix, const unsigned short* uri);
    static void FnEndNamespace(void* userData, const unsigned short* prefix);
    static void FnText(void* userData, const unsigned short* text, int length);
    static void FnStartCDATA(void* userData);
    static void FnEndCDATA(void* userData);
    // Nothing outside the document is ever read: a reference to an external entity, or to an entity
    // that only the unread external DTD subset could declare, is refused instead of dropped.
    static int FnExternalEntity(XML_ParserStruct* parser, const unsigned short* context,
                                const unsigned short* base, const unsigned short* systemId,
                                const unsigned short* publicId);
    static void FnSkippedEntity(void* userData, const unsigned short* name, int isParameterEntity);

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
    // Throws what went wrong in the parse call that returned status, if anything.
    void ThrowOnFailure(int status);
    // True when the element that starts now is not built.
    bool Skips();
    // Runs the parser over the input until it is suspended or the input is used up.
    void Advance();
    // Suspends the parser when the element the caller waits for has what it needs.
    void StopIfAwaited(const CXmlElement* element, bool started);
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
    // With an element-complete callback, the depths whose pending text is not empty: every end
    // flushes them, and a deep document must not cost a visit of every open element each time.
    std::vector<size_t> m_unflushed;

    // The input not yet handed to the parser, and the state of a parse run piece by piece.
    const unsigned char* m_data = nullptr;
    unsigned long m_remaining = 0;
    bool m_streaming = false;
    bool m_suspended = false;
    bool m_lastGiven = false; // the last piece of input has been handed over
    std::exception_ptr m_failure;
    // What ReadUntil waits for.
    bool m_waiting = false;
    const CXmlElement* m_awaited = nullptr;
    bool m_childSuffices = false;
    bool m_reached = false; // the awaited element has what was asked for
    int m_readAhead = 0;    // start and end tags still to read before stopping
    // Elements skipped unbuilt: the depth inside the outermost of them, and whether every element
    // that starts is skipped.
    size_t m_skipDepth = 0;
    bool m_skipAll = false;
};

} // namespace QxXmlLib16
