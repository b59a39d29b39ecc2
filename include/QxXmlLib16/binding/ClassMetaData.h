#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <initializer_list>

namespace QxXmlLib16Data {
class CAttributeInfo;
class CElementInfo;
class CParentElementInfo;
} // namespace QxXmlLib16Data

namespace QxXmlLib16 {

// The static descriptors of one generated class. A generated class keeps one in a function-local
// static, so the descriptors are built on first use (safely, however many threads get there at
// once), shared by every instance, and released through CleanMetaData when the program ends. Takes
// ownership of the descriptors it is given.
class QX_API CClassMetaData {
public:
    CClassMetaData(QxXmlLib16Data::CParentElementInfo* classInfo,
                   std::initializer_list<QxXmlLib16Data::CElementInfo*> elements,
                   std::initializer_list<QxXmlLib16Data::CAttributeInfo*> attributes);
    ~CClassMetaData();
    CClassMetaData(const CClassMetaData&) = delete;
    CClassMetaData& operator=(const CClassMetaData&) = delete;

    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const { return m_classInfo; }
    // Null-terminated, in the order given.
    QxXmlLib16Data::CElementInfo* const* GetElements() const { return m_elements; }
    QxXmlLib16Data::CAttributeInfo* const* GetAttributes() const { return m_attributes; }

private:
    QxXmlLib16Data::CParentElementInfo* m_classInfo;
    QxXmlLib16Data::CElementInfo** m_elements;
    QxXmlLib16Data::CAttributeInfo** m_attributes;
};

} // namespace QxXmlLib16
