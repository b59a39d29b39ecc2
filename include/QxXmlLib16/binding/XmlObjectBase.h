#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Types.h>

#include <atomic>
#include <string>

namespace QxXmlLib16Data {
class CElementInfo;
} // namespace QxXmlLib16Data

namespace QxXmlLib16 {

class CElement;
class CXmlCollectionBase;
class CXmlElement;
class CXmlObjectBase;
class CXmlWriter;

// Receives the events of collections (a generated class listens to its own collections to keep its
// choice bookkeeping up to date).
class QX_API IEventSink {
public:
    enum MsgType : int {
        mtCollectionChange = 0,
        mtCollectionAdd = 1,         // data: the item about to be added
        mtCollectionAddComplete = 2, // data: the item added
        mtCollectionRemove = 3,      // data: pointer to the index
        mtCollectionRemoveComplete = 4,
    };
    virtual void OnEvent(CXmlObjectBase* source, MsgType type, void* data) = 0;

protected:
    ~IEventSink() = default;
};

// Makes ToXmlFile build the whole document in memory and write the file in one piece.
QX_API void AsyncToXmlFile(bool enable);

// Base of every bound object: generated classes, collections and wildcard content. Bound objects are
// reference counted: create them with new, hold them through CSmartPtr (or AddRef/Release), and the
// last Release deletes. The entry points below turn an object into a document and back; each builds
// a writer or document and hands over to ToXml_Int / FromXml_Int of the derived class.
class QX_API CXmlObjectBase : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override;
    // The CXmlObjectBase part of the most derived object.
    virtual CXmlObjectBase* GetBase() = 0;

    // Output. Compression 2 (zlib) is refused for files: "ZLIB Compression only available for To
    // Stream methods."
    virtual void ToXmlFile(const wchar_t* fileName, bool includeDocHeader = true, bool formatted = true,
                           XmlEncoding encoding = encUTF8, EOLType eol = eolLF,
                           const CSerializationContext& context = CSerializationContext::m_defaultContext,
                           CompressionType compression = ctNone) const;
    virtual void
    ToFastInfosetFile(const wchar_t* fileName, FInfoDecl declaration = fidNone,
                      const CSerializationContext& context = CSerializationContext::m_defaultContext,
                      CompressionType compression = ctNone) const;
    virtual void ToJsonFile(const wchar_t* fileName, bool formatted = true, XmlEncoding encoding = encUTF8,
                            EOLType eol = eolLF,
                            const CSerializationContext& context = CSerializationContext::m_defaultContext,
                            CompressionType compression = ctNone) const;
    virtual std::wstring
    ToXml(bool includeDocHeader = true, bool formatted = true, EOLType eol = eolLF,
          const CSerializationContext& context = CSerializationContext::m_defaultContext) const;
    virtual std::wstring
    ToJson(bool formatted = true, EOLType eol = eolLF,
           const CSerializationContext& context = CSerializationContext::m_defaultContext) const;
    virtual CBinaryData
    ToXmlStream(bool includeDocHeader = true, bool formatted = true, XmlEncoding encoding = encUTF8,
                EOLType eol = eolLF,
                const CSerializationContext& context = CSerializationContext::m_defaultContext,
                CompressionType compression = ctNone) const;
    virtual CBinaryData
    ToFastInfosetStream(FInfoDecl declaration = fidNone,
                        const CSerializationContext& context = CSerializationContext::m_defaultContext,
                        CompressionType compression = ctNone) const;
    virtual CBinaryData
    ToJsonStream(bool formatted = true, XmlEncoding encoding = encUTF8, EOLType eol = eolLF,
                 const CSerializationContext& context = CSerializationContext::m_defaultContext,
                 CompressionType compression = ctNone) const;

    // Input. The object reads the document element whatever its name and takes that name. The XML
    // forms read Fast Infoset as well (detected by its header), the byte and file forms either one
    // gzip- or zlib-compressed.
    virtual void FromXmlFile(const wchar_t* fileName,
                             const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void FromJsonFile(const wchar_t* fileName,
                              const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void FromXml(const char* text,
                         const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void FromXml(const wchar_t* text,
                         const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void FromJson(const char* text,
                          const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void FromJson(const wchar_t* text,
                          const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromXmlStream(unsigned char* data, unsigned long length,
                  const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromXmlStream(const CBinaryData& data,
                  const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromJsonStream(unsigned char* data, unsigned long length,
                   const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromJsonStream(const CBinaryData& data,
                   const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromXmlElement(const CXmlElement* element,
                   const CSerializationContext& context = CSerializationContext::m_defaultContext);
    virtual void
    FromXmlElement(const CElement* element,
                   const CSerializationContext& context = CSerializationContext::m_defaultContext);

    virtual ~CXmlObjectBase();

    // The namespace in which the object's element is written at the top level.
    virtual std::wstring GetTargetNamespace() const = 0;
    virtual std::wstring GetNamespace() const = 0;

    // Both return the new count; Release deletes the object when the count reaches 0.
    long long AddRef();
    long long Release();

    const CXmlObjectBase* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }
    const std::wstring& GetElementName() const { return m_elementName; }
    void SetElementName(const wchar_t* name) { m_elementName = CSharedText(name); }

    // Checks used by generated setters.
    static void Throw_IfPropertyIsNull(CXmlObjectBase* value, const wchar_t* propertyName);
    static void Throw_IfElementNameDiffers(CXmlObjectBase* value, const wchar_t* name);
    bool DoesElementNameMatch(const CSerializationContext& context, const CXmlElement* element,
                              const wchar_t* name, const wchar_t* namespaceURI) const;
    static void TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                              const std::wstring& targetNamespace);
    static bool IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                 const std::wstring& targetNamespace);

    // Choice bookkeeping: selected holds the name of the member of a choice group that is set.
    static void Choice_SetElementValid(bool isSet, const wchar_t* name, std::wstring& selected);
    static void Choice_SelectElement(const wchar_t* name, CXmlObjectBase* value, std::wstring& selected);
    static void Choice_CollectionChanged(const wchar_t* name, long count, std::wstring& selected);
    static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                       CXmlElement*& current, long& count,
                                       const CSerializationContext& context);

    // Collection events, sent to sink (if any) with the collection as source.
    static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
    static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item);
    static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 void* item);
    static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection, int index);
    static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                    int index);

    // Let descriptors and collections call the protected serialization operations of other objects.
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                          const wchar_t* namespaceURI, const CSerializationContext& context, bool flag);
    // Reads with the flag clear; a descriptor that must set it is a friend.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    const CSerializationContext& context);
    static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                    const CSerializationContext& context);

protected:
    CXmlObjectBase();
    // A copy starts with no references of its own.
    CXmlObjectBase(const CXmlObjectBase& other);
    CXmlObjectBase& operator=(const CXmlObjectBase& other);

    // The base writes no attributes.
    virtual void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const;
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                           const CSerializationContext& context, bool flag) const = 0;
    // Returns the element at which reading stopped.
    virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                     const CSerializationContext& context, bool flag) = 0;
    // Reads the XML text (UTF-8) a JSON document was translated into. Below round-trip level 2 the
    // context's IgnoreNamespaces is set for the length of the call: the context is changed while
    // the call runs, so it must not be in use elsewhere at the time.
    void FromJson_Int(const CBinaryData& xml, const CSerializationContext& context);

private:
    friend class QxXmlLib16Data::CElementInfo;

    // An atomic count guards itself: a million objects need no million mutexes.
    std::atomic<long long> m_refCount;
    // Every item of a collection carries the same name, so the text is shared, not copied.
    CSharedText m_elementName;
};

} // namespace QxXmlLib16
