#include "Crate.h"

using namespace QxXmlLib16Data;

namespace GroupsSchema {

CCrate::CCrate(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CCrate::Reset() {
    m_items = new CItemCol(L"item", kNamespace, 1, 3);
    m_shapes = new CShapeCol(L"shape", kNamespace, 0, -1, CreateShape);
    m_counts = new Ci4Col(L"count", kNamespace, 0, -1, L"", -1, -1, L"0", L"99", L"", L"", -1, -1, -1,
                          CWhitespaceUtils::wsCollapse, L"");
    m_picks = new CPickCol(L"pick", kNamespace, 0, -1);
    m_extras = new CElementCol(L"", L"##other", kNamespace, 0, -1);
}

const CClassMetaData& CCrate::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egAll, etElement, L"Crate", kNamespace, true, false, -1, itNone, L"", false),
        {new CElementInfoAllClsCol(L"item", kNamespace, pnItems, etElement),
         new CElementInfoAllAbsClsCol(L"shape", kNamespace, pnShapes, etElement),
         new CElementInfoAllPrimCol(L"count", kNamespace, pnCounts),
         new CElementInfoAllCol(L"pick", kNamespace, pnPicks),
         new CElementInfoAllUntpdCol(L"AnyElement", kNamespace, pnExtras)},
        {});
    return data;
}

int CCrate::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnItems:
        return AccessCollection(read, value, m_items, L"item");
    case pnShapes:
        return AccessCollection(read, value, m_shapes, L"shape");
    case pnCounts:
        return AccessCollection(read, value, m_counts, L"count");
    case pnPicks:
        return AccessCollection(read, value, m_picks, L"pick");
    case pnExtras:
        return AccessCollection(read, value, m_extras, L"AnyElement");
    }
    return UnknownProperty(propertyNumber);
}

void CCrate::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

} // namespace GroupsSchema
