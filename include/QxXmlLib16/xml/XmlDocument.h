#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/values/BinaryData.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

class CXmlElement;
class CExpatReader;
class CFastInfosetReader;
namespace internal {
struct CDocumentStore;
class CErrorLocator;
class CSourceIndex;
class CStreamedLoad;
} // namespace internal

// Called with each element as soon as its end tag is read. Returning true detaches and destroys the
// element, so that a caller can consume a huge document piece by piece; never return true for the
// document element.
typedef bool (*ElementCompleteCallback)(CXmlElement* element);

// The tree a reader builds from a document, and the namespace aliases declared in it. Every Load
// operation starts from an empty document, so one object can load many documents in turn.
class QX_API CXmlDocument : public CInstanceMonitor {
public:
    CXmlDocument();
    explicit CXmlDocument(const CSerializationContext& context);
    explicit CXmlDocument(ElementCompleteCallback callback);
    CXmlDocument(ElementCompleteCallback callback, const CSerializationContext& context);
    ~CXmlDocument() override;
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;

    void Init();
    // Drops the tree, the input and the aliases.
    virtual void Cleanup();

    // Reads a whole file; with an element-complete callback, a file of XML text is parsed as it is
    // read, in pieces of 1 MiB, so that memory stays bounded by what the callback keeps. Throws
    // "Failed to open the file [%ls].", "Failed to get the size of the file [%ls] Error [%d]" or
    // "Failed to read the contents of the file [%ls] Error [%d]" (also for an empty file).
    void Load(const wchar_t* fileName);
    // Loads bytes: XML text or Fast Infoset, compressed or not. Throws "XML Stream is empty!" for
    // length 0.
    void LoadXmlStream(unsigned char* data, unsigned long length);
    // XML text as narrow bytes (UTF-8 unless declared otherwise), never compressed.
    // Throws "XML String is empty!" for null or empty text.
    void LoadXml(const char* text);
    // Wide text, handed to the parser as UTF-16 units (characters above U+FFFF are cut to their
    // low 16 bits). Throws "XML String is empty!" for null or empty text.
    void LoadXml(const wchar_t* text);

    // JSON, translated into XML text, which is returned as UTF-8 for the caller to load; the
    // document itself is left empty. Bytes (from a file or stream, compressed or not, and narrow
    // text) are UTF-8, a byte order mark in front allowed; anything else fails with "Invalid UTF-8
    // in the JSON text at byte %lu.". Empty input fails with "JSON Stream is empty!" or "JSON String
    // is empty!", a file as Load fails, and the JSON itself as CJsonTextReader reports.
    CBinaryData LoadJsonFile(const wchar_t* fileName);
    CBinaryData LoadJsonStream(unsigned char* data, unsigned long length);
    CBinaryData LoadJson(const char* text);
    CBinaryData LoadJson(const wchar_t* text);

    CXmlElement* GetDocumentElement() const { return m_documentElement; }
    const CSerializationContext& GetSerializationContext() const { return *m_context; }
    SchemaType GetSchemaType() const { return m_schemaType; }
    // Aliases (prefixes) to namespace URIs, as declared anywhere in the document; the last
    // declaration of an alias wins.
    const std::map<std::wstring, std::wstring>& GetAliasMap() const;
    void SetAlias(const std::wstring& alias, const std::wstring& namespaceURI);
    // The URI bound to the alias, or an empty string.
    std::wstring LookupNamespaceFromAlias(const wchar_t* alias) const;
    // The first alias, in alias order, bound to exactly this URI, or an empty string.
    std::wstring LookupAliasFromNamespace(const wchar_t* namespaceURI) const;

    // Where the element's start tag begins in the input: line and column, both from 1. The input
    // is read once more on the first call (later calls look up what it found), so a load pays
    // nothing for positions it is never asked for. False when they are unknown: for text and
    // uncompressed streams parsed where they lay (the document keeps no copy of them), for a
    // document loaded with an element-complete callback, for input that is not XML text, for an
    // element that is not of this tree or was added after the load, and once the tree has been
    // changed.
    bool GetElementPosition(const CXmlElement* element, int& line, int& column) const;
    // The namespace URI that prefix (empty for the default namespace) is bound to where the
    // element stands, as declared on it or its ancestors; "xml" is always bound. False when the
    // prefix is not bound there. Without positions (see GetElementPosition) the document-wide
    // aliases answer instead.
    bool LookupNamespaceInScope(const CXmlElement* element, const std::wstring& prefix,
                                std::wstring& namespaceURI) const;

    // Tree building for readers, in document order. Null names count as empty.
    CXmlElement* AddDocElement(const wchar_t* namespaceURI, const wchar_t* localName);
    // A new last child of the element being read, which it then replaces.
    CXmlElement* AddChildElement(const wchar_t* namespaceURI, const wchar_t* localName);
    void AddElementAttribute(CXmlElement* element, const wchar_t* localName, const wchar_t* value,
                             const wchar_t* namespaceURI);
    // Appends text without its carriage returns, up to the first NUL character.
    void AppendTextExcludingCR(CXmlElement* element, const wchar_t* text, unsigned long length);
    void AppendTextExcludingCR(CXmlElement* element, const wchar_t* text);
    // Closes the element being read and offers it to the element-complete callback.
    void EndElement();

protected:
    // Parses the input buffer, Fast Infoset or XML text; compressed input is inflated first.
    void Parse();
    // Parses the input buffer as XML text.
    void ParseText();
    // Translates the input buffer from JSON into XML text (UTF-8): inflated first by ParseJson,
    // taken as it is by ParseJsonText.
    CBinaryData ParseJson();
    CBinaryData ParseJsonText();

private:
    friend class CXmlElement;
    friend class CXmlAttribute;
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class internal::CStreamedLoad;
    friend class internal::CErrorLocator;

    void ParseText(const unsigned char* data, unsigned long length, bool utf16Input = false);
    // False when the bytes are no Fast Infoset document.
    bool ParseFastInfoset(const unsigned char* data, unsigned long length);
    void TakeInput(const unsigned char* data, unsigned long length);
    // Reads the whole file into the input buffer.
    void ReadInputFile(const wchar_t* fileName);
    // Parses a file of XML text piece by piece, keeping no input; false, having read nothing into
    // the document, when the file is empty, compressed or Fast Infoset.
    bool StreamTextFile(const wchar_t* fileName);
    // The positions of the tree, built on first use; null when they cannot be known.
    const internal::CSourceIndex* SourceIndex() const;
    // Names are interned in the document's table, or in one process-wide table for nodes that
    // belong to no document; node memory comes from the document's pool, or from the heap.
    static const std::wstring& InternName(const CXmlDocument* document, const wchar_t* text, size_t length);
    static void* AllocateNode(const CXmlDocument* document, size_t size);
    // Opens an element with names interned in this document.
    CXmlElement* OpenElement(const std::wstring& namespaceURI, const std::wstring& localName);
    // While a bound load reads the document under way: parse on until element (null: the document)
    // gets a child (when childSuffices) or ends; or parse all the rest, for what needs the whole
    // document (positions among later siblings, aliases declared later). A parse error passes
    // through the binding as an internal::CStreamFailure.
    void ReadOn(const CXmlElement* element, bool childSuffices) const;
    void ReadAll() const;

    CXmlElement* m_documentElement;
    std::vector<CXmlElement*> m_openElements;
    std::map<std::wstring, std::wstring> m_aliases;
    unsigned char* m_input; // malloc'ed, as inflating replaces it
    unsigned long m_inputLength;
    bool m_inputIsUtf16; // wide text kept as UTF-16, whatever its declaration says
    SchemaType m_schemaType;
    ElementCompleteCallback m_elementComplete;
    const CSerializationContext* m_context;
    std::unique_ptr<internal::CDocumentStore> m_store;
};

} // namespace QxXmlLib16
