#include <QxXmlLib16/binding/ClassMetaData.h>

#include <QxXmlLib16/binding/XmlGeneratedClass.h>

#include <algorithm>

namespace QxXmlLib16 {

namespace {

// CleanMetaData frees the arrays with delete[].
template <class T>
T** NullTerminated(std::initializer_list<T*> items) {
    T** array = new T*[items.size() + 1];
    *std::copy(items.begin(), items.end(), array) = nullptr;
    return array;
}

} // namespace

CClassMetaData::CClassMetaData(QxXmlLib16Data::CParentElementInfo* classInfo,
                               std::initializer_list<QxXmlLib16Data::CElementInfo*> elements,
                               std::initializer_list<QxXmlLib16Data::CAttributeInfo*> attributes)
    : m_classInfo(classInfo)
    , m_elements(NullTerminated(elements))
    , m_attributes(NullTerminated(attributes)) {}

CClassMetaData::~CClassMetaData() {
    CXmlGeneratedClass::CleanMetaData(m_classInfo, m_elements, m_attributes);
}

} // namespace QxXmlLib16
