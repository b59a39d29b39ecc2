#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/binding/NamespaceAliasMap.h>
#include <QxXmlLib16/foundation/SmartPtr.h>

#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

class CAttributeCol;
class CFastInfosetContext;
class CJsonContext;

// Kind of schema the generated classes came from.
enum SchemaType : int {
    stDefault = 0,
    stNoNamespaces = 2, // documents carry no namespaces: names match by local name only
};

// The options of one serialization or load. Built and configured once by the caller and then passed
// unchanged (by const reference) to any number of calls. Not locked: share it between threads only
// after its lazily created members exist.
class QX_API CSerializationContext {
public:
    CSerializationContext();
    // Copies every option; the lazily created sub-contexts are shared with the source.
    CSerializationContext(const CSerializationContext& other);
    CSerializationContext& operator=(const CSerializationContext& other);
    virtual ~CSerializationContext();

    // Serves the calls that pass no context.
    static CSerializationContext m_defaultContext;

    bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }
    bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
    // Refused (CQxInvalidStateException) while IgnoreMissingMandatoryElements is set.
    void SetIgnoreUnknownElements(bool value);
    bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
    // Refused (CQxInvalidStateException) while IgnoreUnknownElements is set.
    void SetIgnoreMissingMandatoryElements(bool value);
    bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
    void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
    bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }
    // True also when the schema type is stNoNamespaces.
    bool GetIgnoreNamespaces() const { return m_ignoreNamespaces || m_schemaType == stNoNamespaces; }
    void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }
    bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool value) { m_noOptionalAttributeDefaultOutput = value; }
    bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool value) { m_writeDefaultElementValues = value; }
    bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
    void SetWriteTypeAttribute(bool value) { m_writeTypeAttribute = value; }
    bool GetStripCDATA() const { return m_stripCDATA; }
    void SetStripCDATA(bool value) { m_stripCDATA = value; }
    SchemaType GetSchemaType() const { return m_schemaType; }
    void SetSchemaType(SchemaType value) { m_schemaType = value; }

    std::wstring GetDefaultNamespaceURI() const { return m_defaultNamespaceURI; }
    void SetDefaultNamespaceURI(const wchar_t* uri) { m_defaultNamespaceURI = uri ? uri : L""; }
    // Written verbatim into the root element's start tag, after its attributes (for example
    // schemaLocation declarations), so it must be text that may stand there.
    std::wstring GetInLineSchema() const { return m_inLineSchema; }
    void SetInLineSchema(const wchar_t* schema) { m_inLineSchema = schema ? schema : L""; }
    std::wstring GetIndentChars() const { return m_indentChars; }
    // Only tabs and blanks; anything else throws CQxInvalidParamException. Null sets "".
    void SetIndentChars(const wchar_t* indent);

    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
    const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }
    // Complete markup ("<?target data?>"), written in order ahead of the root element.
    std::vector<std::wstring>& GetProcessingInstructions() { return m_processingInstructions; }
    const std::vector<std::wstring>& GetProcessingInstructions() const { return m_processingInstructions; }

    // Attributes written on the root element before its own; any namespace is accepted. Created on
    // first use and shared with copies of the context.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;
    // Lets writers skip the additional root attributes without creating the collection.
    bool HasAdditionalRootAttributes() const { return static_cast<bool>(m_additionalRootAttributes); }
    // The JSON options, shared with copies of the context.
    CJsonContext* GetJsonContext() const;

    // The Fast Infoset settings, shared with copies of the context.
    CFastInfosetContext* GetFIContext() const;

private:
    // Made with the context rather than on first use, so that threads sharing a context (the
    // default one, say) never race to create them; shared between copies of a context.
    std::shared_ptr<CFastInfosetContext> m_fiContext;
    std::shared_ptr<CJsonContext> m_jsonContext;
    std::wstring m_defaultNamespaceURI;
    bool m_writeTypeAttribute;
    CNamespaceAliasMap m_namespaceAliases;
    mutable CSmartPtr<CAttributeCol> m_additionalRootAttributes;
    std::vector<std::wstring> m_processingInstructions;
    std::wstring m_inLineSchema;
    bool m_ignoreInvalidCollectionCounts;
    bool m_ignoreMissingChoice;
    bool m_ignoreMissingMandatoryElements;
    bool m_ignoreUnknownElements;
    bool m_ignoreUnknownAttributes;
    bool m_ignoreNamespaces;
    SchemaType m_schemaType;
    bool m_noOptionalAttributeDefaultOutput;
    bool m_writeDefaultElementValues;
    bool m_stripCDATA;
    std::wstring m_indentChars;
};

} // namespace QxXmlLib16
