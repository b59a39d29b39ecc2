#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/binding/XmlObjectBase.h>

#include <string>

namespace QxXmlLib16 {

// One attribute of wildcard content: any name, value and namespace. It is written and read only
// through its CAttributeCol.
class QX_API CAttribute : public CXmlObjectBase, public CInstanceMonitor {
public:
    // Null arguments count as empty.
    CAttribute(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI);
    ~CAttribute() override;

    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return m_namespace; }
    std::wstring GetNamespace() const override { return m_namespace; }

    const std::wstring& GetName() const { return m_name; }
    const std::wstring& GetValue() const { return m_value; }
    void SetValue(const wchar_t* value) { m_value = value ? value : L""; }

protected:
    // Writes the attribute on the open element.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    // Always throws: the collection reads attributes, since it alone knows the namespace rule.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             const CSerializationContext& context, bool flag) override;

private:
    std::wstring m_name;
    std::wstring m_value;
    CSharedText m_namespace;
};

} // namespace QxXmlLib16
