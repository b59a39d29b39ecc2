#include <QxXmlLib16/data/ElementInfoSeqAbsClsOpt.h>

#include <QxXmlLib16/Exceptions.h>
#include <QxXmlLib16/Functions.h>
#include <QxXmlLib16/QxVariant.h>
#include <QxXmlLib16/XmlElement.h>
#include <QxXmlLib16/XmlObjectBase.h>

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

CElementInfoSeqAbsClsOpt::CElementInfoSeqAbsClsOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType,
                                                   ElementFactoryFunction factory)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory) {}

bool CElementInfoSeqAbsClsOpt::ElementToXml(const CSerializationContext& context,
                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return ElementToXmlCls(context, object, writer, false);
}

// The factory needs the element to choose a class, so inline content (which has none) is not
// supported: the member is always read from an element of its own.
bool CElementInfoSeqAbsClsOpt::ElementFromXml(const CSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** current, const wchar_t*, XmlElementType) const {
    CXmlElement* element = *current;
    if (!IsThisElement(context, element)) return true;
    CSmartPtr<CXmlObjectBase> child = m_factory(element);
    if (!child)
        throw CQxValidationException(
            FormatString(L"Failed to find a suitable substitution element for [%ls].", GetName().c_str()),
            parent->GetXPath());
    FromXml_Int(child.Get(), element, element->GetFirstElement(), context, false);
    QxVariant value;
    value.SetXmlObject(child.Get());
    InvokePropertySet(object, value, *element);
    *current = element->GetNextSiblingElement();
    return true;
}

} // namespace QxXmlLib16Data
