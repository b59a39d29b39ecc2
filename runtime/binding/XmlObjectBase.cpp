#include <QxXmlLib16/binding/XmlObjectBase.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/foundation/BinaryStream.h>
#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/json/JsonTextWriter.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/fastinfoset/FastInfosetWriter.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "foundation/EncodingTextStream.h"
#include "xml/StreamedLoad.h"

#include <optional>
#include <vector>

namespace QxXmlLib16 {

namespace {

// Read without a lock: it is a process-wide switch meant to be set once at start-up.
bool g_asyncToXmlFile = false;

const wchar_t* const kZlibToFile = L"ZLIB Compression only available for To Stream methods.";
const wchar_t* const kAlreadySet =
    L"The Property [%ls] is already set. Only one element within this class bay be set at a time";

void FireEvent(IEventSink* sink, CXmlCollectionBase* collection, IEventSink::MsgType type, void* data) {
    if (sink) sink->OnEvent(collection->GetBase(), type, data);
}

// Objects whose last reference went while this thread was already deleting one: a chain of objects
// holding each other, however long, is then deleted one after the other instead of one inside the
// other, in constant stack. The list lives in the outermost call.
thread_local std::vector<CXmlObjectBase*>* t_pendingDeletes = nullptr;

void Delete(CXmlObjectBase* object) {
    if (t_pendingDeletes) {
        t_pendingDeletes->push_back(object);
        return;
    }
    std::vector<CXmlObjectBase*> pending;
    t_pendingDeletes = &pending;
    delete object;
    while (!pending.empty()) {
        CXmlObjectBase* next = pending.back();
        pending.pop_back();
        delete next;
    }
    t_pendingDeletes = nullptr;
}

} // namespace

void AsyncToXmlFile(bool enable) {
    g_asyncToXmlFile = enable;
}

CXmlObjectBase::CXmlObjectBase()
    : m_refCount(0) {}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other)
    , m_refCount(0)
    , m_elementName(other.m_elementName) {}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other) {
    m_elementName = other.m_elementName; // the count belongs to this object, not to its value
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::OnEvent(CXmlObjectBase*, MsgType, void*) {}

long long CXmlObjectBase::AddRef() {
    return m_refCount.fetch_add(1, std::memory_order_relaxed) + 1;
}

long long CXmlObjectBase::Release() {
    // Release ordering, so that whatever the other owners wrote is visible to the deleting thread.
    const long long count = m_refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (count == 0) Delete(this);
    return count;
}

// ---- Output ------------------------------------------------------------------------------------

namespace {

// Runs the root serialization of object into stream as XML text.
void WriteXmlText(const CXmlObjectBase& object, CTextStream& stream, bool includeDocHeader, bool formatted,
                  EOLType eol, const CSerializationContext& context) {
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(formatted);
    writer.SetIndentChars(context.GetIndentChars().c_str());
    writer.SetEOLType(eol);
    writer.SetWriteDefaultElementValues(context.GetWriteDefaultElementValues());
    if (includeDocHeader) writer.WriteStartDocument();
    std::wstring targetNamespace = object.GetTargetNamespace();
    CXmlObjectBase::ToXml_Int(&object, &writer, true, targetNamespace.c_str(), context, false);
    writer.Close();
}

// Runs the root serialization of object into stream as JSON.
void WriteJsonText(const CXmlObjectBase& object, CTextStream& stream, bool formatted, EOLType eol,
                   const CSerializationContext& context) {
    const CJsonContext& options = *context.GetJsonContext();
    CJsonTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(formatted);
    writer.SetIndentChars(context.GetIndentChars().c_str());
    writer.SetEOLType(eol);
    writer.SetSupportRoundtrip(options.GetSupportRoundtrip());
    writer.SetRfc8259Escaping(options.GetRfc8259Escaping());
    writer.WriteStartDocument();
    std::wstring targetNamespace = object.GetTargetNamespace();
    CXmlObjectBase::ToXml_Int(&object, &writer, true, targetNamespace.c_str(), context, false);
    writer.WriteEndDocument();
    writer.Close();
}

// The three shapes of a text output, whatever writes it: wide text, encoded and compressed bytes,
// and a file.
template <class Write>
std::wstring WrittenText(Write write) {
    CTextStream stream;
    write(stream);
    return std::wstring(stream.GetText(), stream.GetLength());
}

template <class Write>
CBinaryData WrittenBytes(XmlEncoding encoding, CompressionType compression, Write write) {
    internal::CEncodingTextStream stream(encoding);
    write(stream);
    CBinaryData data = stream.TakeBytes();
    CQxZip::CompressData(data, compression);
    return data;
}

// A compressed file, or any file while AsyncToXmlFile is on, is made whole by makeBytes and
// written in one piece; otherwise the text goes to the file as it is written.
template <class MakeBytes, class Write>
void WriteTextFile(const wchar_t* fileName, XmlEncoding encoding, CompressionType compression,
                   MakeBytes makeBytes, Write write) {
    if (compression == ctZlib) throw CQxException(kZlibToFile);
    if (g_asyncToXmlFile || compression != ctNone) {
        CFileBinaryStream(fileName, encoding, makeBytes()).ToFile();
        return;
    }
    CFileTextStream stream(fileName, encoding); // opened by the writer
    write(stream);
}

} // namespace

std::wstring CXmlObjectBase::ToXml(bool includeDocHeader, bool formatted, EOLType eol,
                                   const CSerializationContext& context) const {
    return WrittenText(
        [&](CTextStream& stream) { WriteXmlText(*this, stream, includeDocHeader, formatted, eol, context); });
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool formatted, XmlEncoding encoding,
                                        EOLType eol, const CSerializationContext& context,
                                        CompressionType compression) const {
    return WrittenBytes(encoding, compression, [&](CTextStream& stream) {
        WriteXmlText(*this, stream, includeDocHeader, formatted, eol, context);
    });
}

void CXmlObjectBase::ToXmlFile(const wchar_t* fileName, bool includeDocHeader, bool formatted,
                               XmlEncoding encoding, EOLType eol, const CSerializationContext& context,
                               CompressionType compression) const {
    WriteTextFile(
        fileName, encoding, compression,
        [&] { return ToXmlStream(includeDocHeader, formatted, encoding, eol, context, compression); },
        [&](CTextStream& stream) { WriteXmlText(*this, stream, includeDocHeader, formatted, eol, context); });
}

void CXmlObjectBase::ToFastInfosetFile(const wchar_t* fileName, FInfoDecl declaration,
                                       const CSerializationContext& context, CompressionType compression) const {
    if (compression == ctZlib) throw CQxException(kZlibToFile);
    CFileBinaryStream(fileName, encUTF8, ToFastInfosetStream(declaration, context, compression)).ToFile();
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration, const CSerializationContext& context,
                                                CompressionType compression) const {
    CBinaryStream stream;
    {
        CFastInfosetWriter writer(*context.GetFIContext(), stream);
        writer.Open();
        writer.SetWriteDefaultElementValues(context.GetWriteDefaultElementValues());
        writer.WriteStartDocument(declaration);
        std::wstring targetNamespace = GetTargetNamespace();
        ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
        writer.WriteEndDocument();
        writer.Close();
    }
    CBinaryData data = stream.GetBinaryStream();
    CQxZip::CompressData(data, compression);
    return data;
}

std::wstring CXmlObjectBase::ToJson(bool formatted, EOLType eol, const CSerializationContext& context) const {
    return WrittenText([&](CTextStream& stream) { WriteJsonText(*this, stream, formatted, eol, context); });
}

CBinaryData CXmlObjectBase::ToJsonStream(bool formatted, XmlEncoding encoding, EOLType eol,
                                         const CSerializationContext& context,
                                         CompressionType compression) const {
    return WrittenBytes(encoding, compression,
                        [&](CTextStream& stream) { WriteJsonText(*this, stream, formatted, eol, context); });
}

void CXmlObjectBase::ToJsonFile(const wchar_t* fileName, bool formatted, XmlEncoding encoding, EOLType eol,
                                const CSerializationContext& context, CompressionType compression) const {
    WriteTextFile(
        fileName, encoding, compression,
        [&] { return ToJsonStream(formatted, encoding, eol, context, compression); },
        [&](CTextStream& stream) { WriteJsonText(*this, stream, formatted, eol, context); });
}

// ---- Input -------------------------------------------------------------------------------------

namespace {

// Loads a document with load and reads object from its document element (a load that succeeds
// always has one). XML text is parsed as the object reads it, so the tree never exists whole; a
// malformed document fails with its parse error wherever the reading stands.
template <class Load>
void ReadDocument(CXmlObjectBase* object, const CSerializationContext& context, Load load) {
    CXmlDocument document(context);
    internal::CStreamedLoad stream(document);
    load(document);
    stream.Bind([&] {
        CXmlElement* root = document.GetDocumentElement();
        CXmlObjectBase::FromXml_Int(object, root, root->GetFirstElement(), context);
    });
}

} // namespace

void CXmlObjectBase::FromXml(const wchar_t* text, const CSerializationContext& context) {
    ReadDocument(this, context, [&](CXmlDocument& document) { document.LoadXml(text); });
}

void CXmlObjectBase::FromXml(const char* text, const CSerializationContext& context) {
    ReadDocument(this, context, [&](CXmlDocument& document) { document.LoadXml(text); });
}

void CXmlObjectBase::FromXmlFile(const wchar_t* fileName, const CSerializationContext& context) {
    ReadDocument(this, context, [&](CXmlDocument& document) { document.Load(fileName); });
}

void CXmlObjectBase::FromXmlStream(unsigned char* data, unsigned long length,
                                   const CSerializationContext& context) {
    ReadDocument(this, context, [&](CXmlDocument& document) { document.LoadXmlStream(data, length); });
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CSerializationContext& context) {
    // The loader only reads the bytes (it inflates into a copy of its own).
    FromXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), context);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element, const CSerializationContext& context) {
    if (!element) throw CQxInvalidParamException(L"The element to read from may not be NULL");
    // Reading never modifies the tree; the internal interface just takes it unqualified.
    CXmlElement* root = const_cast<CXmlElement*>(element);
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

namespace {

// Rebuilds the untyped element as a document tree, the one form the readers take.
void AddToDocument(CXmlDocument& document, const CElement& element, bool isRoot) {
    const std::wstring namespaceURI = element.GetNamespace();
    CXmlElement* node = isRoot ? document.AddDocElement(namespaceURI.c_str(), element.GetName().c_str())
                               : document.AddChildElement(namespaceURI.c_str(), element.GetName().c_str());
    for (const CAttribute* attribute : *element.GetAttributes())
        document.AddElementAttribute(node, attribute->GetName().c_str(), attribute->GetValue().c_str(),
                                     attribute->GetNamespace().c_str());
    for (const CElement* child : *element.GetElements())
        AddToDocument(document, *child, false);
    node->AppendText(element.GetText().data(), static_cast<int>(element.GetText().size()));
    document.EndElement();
}

} // namespace

void CXmlObjectBase::FromXmlElement(const CElement* element, const CSerializationContext& context) {
    if (!element) throw CQxInvalidParamException(L"The element to read from may not be NULL");
    CXmlDocument document(context);
    AddToDocument(document, *element, true);
    FromXmlElement(document.GetDocumentElement(), context);
}

void CXmlObjectBase::FromJson(const char* text, const CSerializationContext& context) {
    CXmlDocument document(context);
    FromJson_Int(document.LoadJson(text), context);
}

void CXmlObjectBase::FromJson(const wchar_t* text, const CSerializationContext& context) {
    CXmlDocument document(context);
    FromJson_Int(document.LoadJson(text), context);
}

void CXmlObjectBase::FromJsonFile(const wchar_t* fileName, const CSerializationContext& context) {
    CXmlDocument document(context);
    FromJson_Int(document.LoadJsonFile(fileName), context);
}

void CXmlObjectBase::FromJsonStream(unsigned char* data, unsigned long length,
                                    const CSerializationContext& context) {
    CXmlDocument document(context);
    FromJson_Int(document.LoadJsonStream(data, length), context);
}

void CXmlObjectBase::FromJsonStream(const CBinaryData& data, const CSerializationContext& context) {
    // The loader only reads the bytes (it inflates into a copy of its own).
    FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), context);
}

void CXmlObjectBase::FromJson_Int(const CBinaryData& xml, const CSerializationContext& context) {
    // The switch reads back as it was read, the computed value, also after a failure: with
    // SchemaType 2 it stays set afterwards, as intended. Only then is the caller's context written.
    struct Restore {
        const CSerializationContext& context;
        ~Restore() {
            if (context.GetSchemaType() == stNoNamespaces)
                const_cast<CSerializationContext&>(context).SetIgnoreNamespaces(true);
        }
    } restore{context};
    // JSON below level 2 carries no namespaces, so names match by their local part. The switch is set
    // on a copy: the caller's context may be serving other threads at the same time.
    std::optional<CSerializationContext> local;
    if (context.GetJsonContext()->GetSupportRoundtrip() != jrtFull) {
        local.emplace(context);
        local->SetIgnoreNamespaces(true);
    }
    try {
        // Read as the UTF-8 bytes they are: no wide copy of the document, and characters above
        // U+FFFF arrive whole.
        FromXmlStream(xml, local ? *local : context);
    } catch (CQxException& error) {
        // A place in the XML text the JSON became would mean nothing to the caller.
        error.SetPosition(0, 0);
        throw;
    }
}

// ---- Checks ------------------------------------------------------------------------------------

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, const wchar_t* propertyName) {
    if (!value)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] is mandatory, it may node be NULL", propertyName));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, const wchar_t* name) {
    if (!value) return;
    const std::wstring& actual = value->GetBase()->GetElementName();
    if (actual != name)
        throw CQxInvalidParamException(FormatString(L"This property requires an element with the name %ls "
                                                    L"the element being set has the element name %ls",
                                                    name, actual.c_str()));
}

bool CXmlObjectBase::DoesElementNameMatch(const CSerializationContext& context, const CXmlElement* element,
                                          const wchar_t* name, const wchar_t* namespaceURI) const {
    return CXmlObjectHelper::DoesElementNameMatch(context, element, name, namespaceURI);
}

void CXmlObjectBase::TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                                   const std::wstring& targetNamespace) {
    CXmlObjectHelper::TestNamespace(namespaceURI, rule, targetNamespace);
}

bool CXmlObjectBase::IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                      const std::wstring& targetNamespace) {
    return CXmlObjectHelper::IsNamespaceValid(namespaceURI, rule, targetNamespace);
}

// ---- Choice bookkeeping ------------------------------------------------------------------------

void CXmlObjectBase::Choice_SetElementValid(bool isSet, const wchar_t* name, std::wstring& selected) {
    if (!isSet) {
        selected.clear();
        return;
    }
    if (selected != name)
        throw CQxInvalidStateException(FormatString(
            L"The Property %ls is already set. Only one element within this class bay be set at a time",
            selected.c_str()));
}

void CXmlObjectBase::Choice_SelectElement(const wchar_t* name, CXmlObjectBase* value,
                                          std::wstring& selected) {
    if (selected == name) {
        if (!value) selected.clear();
    } else if (selected.empty()) {
        selected = name;
    } else if (value) {
        throw CQxInvalidStateException(FormatString(kAlreadySet, selected.c_str()));
    }
}

void CXmlObjectBase::Choice_CollectionChanged(const wchar_t* name, long count, std::wstring& selected) {
    if (selected == name) {
        if (count == 0) selected.clear();
    } else if (selected.empty()) {
        if (count > 0) selected = name;
    } else if (count != 0) {
        throw CQxInvalidStateException(FormatString(kAlreadySet, selected.c_str()));
    }
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                            CXmlElement*& current, long& count,
                                            const CSerializationContext& context) {
    if (count > 0) return;
    CXmlElement* stopped = FromXml_Int(collection, parent, current, context);
    if (stopped == current) return;
    current = stopped;
    collection->ValidateCount(context);
    ++count;
}

// ---- Events ------------------------------------------------------------------------------------

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection) {
    FireEvent(sink, collection, mtCollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item) {
    FireEvent(sink, collection, mtCollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                      void* item) {
    FireEvent(sink, collection, mtCollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 int index) {
    FireEvent(sink, collection, mtCollectionRemove, &index);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                         int index) {
    FireEvent(sink, collection, mtCollectionRemoveComplete, &index);
}

// ---- Forwarders --------------------------------------------------------------------------------

void CXmlObjectBase::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const wchar_t* namespaceURI, const CSerializationContext& context, bool flag) {
    object->ToXml_Int(writer, isRoot, namespaceURI, context, flag);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element,
                                         CXmlElement* firstChild, const CSerializationContext& context) {
    return object->FromXml_Int(element, firstChild, context, false);
}

void CXmlObjectBase::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                         const CSerializationContext& context) {
    object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CSerializationContext&) const {}

} // namespace QxXmlLib16
