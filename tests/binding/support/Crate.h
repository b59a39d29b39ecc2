#pragma once

// An all group of collections, which no schema of XML Schema 1.0 can declare (an all group's members
// occur at most once), so no generator emits it: written by hand on the generated groups bindings,
// to prove the all group's collection members of the runtime.

#include "support/GroupsSchema.h"

namespace GroupsSchema {

class CCrate : public TGeneratedClass<CCrate> {
public:
    explicit CCrate(const wchar_t* elementName = L"crate");
    CItemCol* GetItem() const { return m_items.Get(); }
    CShapeCol* GetShape() const { return m_shapes.Get(); }
    Ci4Col* GetCounts() const { return m_counts.Get(); }
    CPickCol* GetPick() const { return m_picks.Get(); }
    CElementCol* GetExtras() const { return m_extras.Get(); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }
    static const CClassMetaData& MetaData();

private:
    enum Property : int { pnItems = 1, pnShapes, pnCounts, pnPicks, pnExtras };
    void Reset();
    CSmartPtr<CItemCol> m_items;
    CSmartPtr<CShapeCol> m_shapes;
    CSmartPtr<Ci4Col> m_counts;
    CSmartPtr<CPickCol> m_picks;
    CSmartPtr<CElementCol> m_extras;
};

} // namespace GroupsSchema
