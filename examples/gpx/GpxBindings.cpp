#include "GpxBindings.h"

#include <cwchar>

using namespace QxXmlLib16Data;

namespace Gpx {

namespace {

typedef CWhitespaceUtils W;
typedef CXmlObjectHelper H;

CPrimitiveRestrictions Range(const wchar_t* minInclusive, const wchar_t* maxInclusive,
                             const wchar_t* maxExclusive = L"") {
    return CPrimitiveRestrictions(L"", -1, -1, minInclusive, maxInclusive, L"", maxExclusive, -1, -1, -1);
}

// The facets of the schema's simple types, shared by the setters and the descriptors.
const CPrimitiveRestrictions kNoFacets;
const CPrimitiveRestrictions kLatitude = Range(L"-90.0", L"90.0");
const CPrimitiveRestrictions kLongitude = Range(L"-180.0", L"", L"180.0");
const CPrimitiveRestrictions kDegrees = Range(L"0.0", L"", L"360.0");
const CPrimitiveRestrictions kDgpsStation = Range(L"0", L"1023");
const CPrimitiveRestrictions kNonNegative = Range(L"0", L"");
// version is fixed at 1.1.
const CPrimitiveRestrictions kVersion(L"1\\.1", -1, -1, L"", L"", L"", L"", -1, -1, -1);

const wchar_t* const kFixes[] = {L"none", L"2d", L"3d", L"dgps", L"pps"};

enum ClassNumber : int { cnExtensions, cnLink, cnEmail, cnPerson, cnCopyright, cnBounds, cnMetadata };

CSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName) {
    switch (classNumber) {
    case cnExtensions:
        return new CExtensions(elementName);
    case cnLink:
        return new CLink(elementName);
    case cnEmail:
        return new CEmail(elementName);
    case cnPerson:
        return new CPerson(elementName);
    case cnCopyright:
        return new CCopyright(elementName);
    case cnBounds:
        return new CBounds(elementName);
    case cnMetadata:
        return new CMetadata(elementName);
    }
    return nullptr;
}

CParentElementInfo* ClassInfo(const wchar_t* typeName) {
    return new CParentElementInfo(egSequence, etElement, typeName, kNamespace, true, false, -1, itNone, L"",
                                  false);
}

CElementInfo* Text(const wchar_t* name, int property) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, property, false, itString, L"", W::wsPreserve,
                                      kNoFacets, L"");
}

CElementInfo* Optional(const wchar_t* name, int property, ItemType type,
                       const CPrimitiveRestrictions& facets = kNoFacets) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, property, false, type, L"", W::wsCollapse, facets,
                                      L"");
}

CElementInfo* Child(const wchar_t* name, int property, ClassNumber classNumber) {
    return new CElementInfoSeqClsOpt(name, kNamespace, property, etElement, CreateClass, classNumber);
}

CElementInfo* Repeated(const wchar_t* name, int property) {
    return new CElementInfoSeqClsCol(name, kNamespace, property, etElement);
}

CAttributeInfo* Attribute(const wchar_t* name, int property, W::WhitespaceRule whitespace = W::wsPreserve,
                          const CPrimitiveRestrictions& facets = kNoFacets) {
    return new CAttributeInfoPrimitive(name, L"", property, false, itString, L"", whitespace, facets, L"");
}

CAttributeInfo* Coordinate(const wchar_t* name, int property, const CPrimitiveRestrictions& facets) {
    return new CAttributeInfoPrimitive(name, L"", property, false, itDecimal, L"", W::wsCollapse, facets,
                                       L"");
}

// The object a class member receives, checked against the member's class.
template <class T>
T* ObjectOf(const QxVariant& value, const wchar_t* property) {
    CXmlObjectBase* object = value.GetXmlObject().Get();
    T* typed = dynamic_cast<T*>(object);
    if (object && !typed)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] was given an object of another class", property));
    return typed;
}

// Reading an absent optional member leaves the variant invalid, so nothing is written.
void AccessText(bool read, QxVariant& value, TOptional<std::wstring>& member) {
    if (read) {
        if (member) value.SetString(*member);
    } else {
        member = value.GetString();
    }
}

void AccessDecimal(bool read, QxVariant& value, TOptional<CDecimal>& member) {
    if (read) {
        if (member) value.SetDecimal(*member);
    } else {
        member = value.GetDecimal();
    }
}

void AccessTime(bool read, QxVariant& value, TOptional<CDateTime>& member) {
    if (read) {
        if (member) value.SetDateTime(*member);
    } else {
        member = value.GetDateTime();
    }
}

template <class T>
void Adopt(CSmartPtr<T>& member, T* value, const wchar_t* elementName) {
    if (value) value->SetElementName(elementName);
    member = value;
}

// A repeated member always holds its collection; it may be replaced by another of the same class.
template <class C>
void AccessCollection(bool read, QxVariant& value, CSmartPtr<C>& member, const wchar_t* property) {
    if (read) {
        value.SetXmlCollection(member.Get());
        return;
    }
    C* collection = dynamic_cast<C*>(value.GetXmlCollection().Get());
    if (!collection)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] needs a collection of its own class", property));
    member = collection;
}

int UnknownProperty(int propertyNumber) {
    throw CQxInvalidParamException(FormatString(L"Unknown property number %d", propertyNumber));
}

} // namespace

const wchar_t* FixToText(int value) {
    return value >= 0 && value <= Fix_pps ? kFixes[value] : L"";
}

int FixFromText(const wchar_t* text) {
    for (int i = Fix_none; i <= Fix_pps; ++i)
        if (std::wcscmp(kFixes[i], text) == 0) return i;
    throw CQxInvalidValueException(FormatString(L"The value [%ls] is not a valid fixType", text));
}

// The three descriptor getters are the same in every class.
#define GPX_DESCRIPTOR_GETTERS(C)                                                                            \
    const CParentElementInfo* C::GetClassInfo() const {                                                      \
        return MetaData().GetClassInfo();                                                                    \
    }                                                                                                        \
    CElementInfo* const* C::GetClassElementInfo() const {                                                    \
        return MetaData().GetElements();                                                                     \
    }                                                                                                        \
    CAttributeInfo* const* C::GetClassAttributeInfo() const {                                                \
        return MetaData().GetAttributes();                                                                   \
    }                                                                                                        \
    void C::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {                \
        Reset();                                                                                             \
    }

// --- extensionsType -------------------------------------------------------------------------------

CExtensions::CExtensions(const wchar_t* elementName)
    : m_any(new CElementCol(L"", L"##other", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CExtensions::Reset() {
    m_any->Clear();
}

const CClassMetaData& CExtensions::MetaData() {
    static const CClassMetaData data(ClassInfo(L"extensionsType"),
                                     {new CElementInfoSeqUntpdCol(L"AnyElement", kNamespace, 1)}, {});
    return data;
}

int CExtensions::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != 1) return UnknownProperty(propertyNumber);
    AccessCollection(read, value, m_any, L"AnyElement");
    return 0;
}

GPX_DESCRIPTOR_GETTERS(CExtensions)

// --- linkType -------------------------------------------------------------------------------------

namespace {
enum LinkProperty : int { pnLinkHref = 1, pnLinkText, pnLinkType };
}

CLink::CLink(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CLink::Reset() {
    m_href.clear();
    m_text.reset();
    m_type.reset();
}

const CClassMetaData& CLink::MetaData() {
    static const CClassMetaData data(ClassInfo(L"linkType"),
                                     {Text(L"text", pnLinkText), Text(L"type", pnLinkType)},
                                     {Attribute(L"href", pnLinkHref, W::wsCollapse)});
    return data;
}

int CLink::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnLinkHref:
        read ? value.SetString(m_href) : SetHref(value.GetString());
        return 0;
    case pnLinkText:
        AccessText(read, value, m_text);
        return 0;
    case pnLinkType:
        AccessText(read, value, m_type);
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CLink)

// --- emailType ------------------------------------------------------------------------------------

CEmail::CEmail(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CEmail::Reset() {
    m_id.clear();
    m_domain.clear();
}

const CClassMetaData& CEmail::MetaData() {
    static const CClassMetaData data(ClassInfo(L"emailType"), {},
                                     {Attribute(L"id", 1), Attribute(L"domain", 2)});
    return data;
}

int CEmail::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        read ? value.SetString(m_id) : SetId(value.GetString());
        return 0;
    case 2:
        read ? value.SetString(m_domain) : SetDomain(value.GetString());
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CEmail)

// --- personType -----------------------------------------------------------------------------------

namespace {
enum PersonProperty : int { pnPersonName = 1, pnPersonEmail, pnPersonLink };
}

CPerson::CPerson(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CPerson::Reset() {
    m_name.reset();
    m_email = nullptr;
    m_link = nullptr;
}

void CPerson::SetEmail(CEmail* value) {
    Adopt(m_email, value, L"email");
}
void CPerson::SetLink(CLink* value) {
    Adopt(m_link, value, L"link");
}

const CClassMetaData& CPerson::MetaData() {
    static const CClassMetaData data(ClassInfo(L"personType"),
                                     {Text(L"name", pnPersonName), Child(L"email", pnPersonEmail, cnEmail),
                                      Child(L"link", pnPersonLink, cnLink)},
                                     {});
    return data;
}

int CPerson::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPersonName:
        AccessText(read, value, m_name);
        return 0;
    case pnPersonEmail:
        read ? value.SetXmlObject(m_email.Get()) : SetEmail(ObjectOf<CEmail>(value, L"email"));
        return 0;
    case pnPersonLink:
        read ? value.SetXmlObject(m_link.Get()) : SetLink(ObjectOf<CLink>(value, L"link"));
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CPerson)

// --- copyrightType --------------------------------------------------------------------------------

namespace {
enum CopyrightProperty : int { pnCopyrightAuthor = 1, pnCopyrightYear, pnCopyrightLicense };
}

CCopyright::CCopyright(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CCopyright::Reset() {
    m_author.clear();
    m_year.reset();
    m_license.reset();
}

const CClassMetaData& CCopyright::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"copyrightType"),
        {Optional(L"year", pnCopyrightYear, itYear), Optional(L"license", pnCopyrightLicense, itString)},
        {Attribute(L"author", pnCopyrightAuthor)});
    return data;
}

int CCopyright::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnCopyrightAuthor:
        read ? value.SetString(m_author) : SetAuthor(value.GetString());
        return 0;
    case pnCopyrightYear:
        if (read) {
            if (m_year) value.SetYear(*m_year);
        } else {
            SetYear(value.GetYear());
        }
        return 0;
    case pnCopyrightLicense:
        AccessText(read, value, m_license);
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CCopyright)

// --- boundsType -----------------------------------------------------------------------------------

namespace {
enum BoundsProperty : int { pnMinlat = 1, pnMinlon, pnMaxlat, pnMaxlon };
}

CBounds::CBounds(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CBounds::Reset() {
    m_minlat = m_minlon = m_maxlat = m_maxlon = CDecimal();
}

void CBounds::SetMinlat(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"minlat", value, kLatitude);
    m_minlat = value;
}
void CBounds::SetMinlon(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"minlon", value, kLongitude);
    m_minlon = value;
}
void CBounds::SetMaxlat(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"maxlat", value, kLatitude);
    m_maxlat = value;
}
void CBounds::SetMaxlon(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"maxlon", value, kLongitude);
    m_maxlon = value;
}

const CClassMetaData& CBounds::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"boundsType"), {},
        {Coordinate(L"minlat", pnMinlat, kLatitude), Coordinate(L"minlon", pnMinlon, kLongitude),
         Coordinate(L"maxlat", pnMaxlat, kLatitude), Coordinate(L"maxlon", pnMaxlon, kLongitude)});
    return data;
}

int CBounds::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnMinlat:
        read ? value.SetDecimal(m_minlat) : SetMinlat(value.GetDecimal());
        return 0;
    case pnMinlon:
        read ? value.SetDecimal(m_minlon) : SetMinlon(value.GetDecimal());
        return 0;
    case pnMaxlat:
        read ? value.SetDecimal(m_maxlat) : SetMaxlat(value.GetDecimal());
        return 0;
    case pnMaxlon:
        read ? value.SetDecimal(m_maxlon) : SetMaxlon(value.GetDecimal());
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CBounds)

// --- metadataType ---------------------------------------------------------------------------------

namespace {
enum MetadataProperty : int {
    pnMetadataName = 1,
    pnMetadataDesc,
    pnMetadataAuthor,
    pnMetadataCopyright,
    pnMetadataLink,
    pnMetadataTime,
    pnMetadataKeywords,
    pnMetadataBounds,
    pnMetadataExtensions,
};
}

CMetadata::CMetadata(const wchar_t* elementName)
    : m_link(new CLinkCol(L"link", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CMetadata::Reset() {
    m_name.reset();
    m_desc.reset();
    m_author = nullptr;
    m_copyright = nullptr;
    m_link->Clear();
    m_time.reset();
    m_keywords.reset();
    m_bounds = nullptr;
    m_extensions = nullptr;
}

void CMetadata::SetAuthor(CPerson* value) {
    Adopt(m_author, value, L"author");
}
void CMetadata::SetCopyright(CCopyright* value) {
    Adopt(m_copyright, value, L"copyright");
}
void CMetadata::SetBounds(CBounds* value) {
    Adopt(m_bounds, value, L"bounds");
}
void CMetadata::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CMetadata::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"metadataType"),
        {Text(L"name", pnMetadataName), Text(L"desc", pnMetadataDesc),
         Child(L"author", pnMetadataAuthor, cnPerson), Child(L"copyright", pnMetadataCopyright, cnCopyright),
         Repeated(L"link", pnMetadataLink), Optional(L"time", pnMetadataTime, itDateTime),
         Text(L"keywords", pnMetadataKeywords), Child(L"bounds", pnMetadataBounds, cnBounds),
         Child(L"extensions", pnMetadataExtensions, cnExtensions)},
        {});
    return data;
}

int CMetadata::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnMetadataName:
        AccessText(read, value, m_name);
        return 0;
    case pnMetadataDesc:
        AccessText(read, value, m_desc);
        return 0;
    case pnMetadataAuthor:
        read ? value.SetXmlObject(m_author.Get()) : SetAuthor(ObjectOf<CPerson>(value, L"author"));
        return 0;
    case pnMetadataCopyright:
        read ? value.SetXmlObject(m_copyright.Get())
             : SetCopyright(ObjectOf<CCopyright>(value, L"copyright"));
        return 0;
    case pnMetadataLink:
        AccessCollection(read, value, m_link, L"link");
        return 0;
    case pnMetadataTime:
        AccessTime(read, value, m_time);
        return 0;
    case pnMetadataKeywords:
        AccessText(read, value, m_keywords);
        return 0;
    case pnMetadataBounds:
        read ? value.SetXmlObject(m_bounds.Get()) : SetBounds(ObjectOf<CBounds>(value, L"bounds"));
        return 0;
    case pnMetadataExtensions:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CMetadata)

// --- wptType --------------------------------------------------------------------------------------

namespace {
enum WptProperty : int {
    pnWptLat = 1,
    pnWptLon,
    pnWptEle,
    pnWptTime,
    pnWptMagvar,
    pnWptGeoidheight,
    pnWptName,
    pnWptCmt,
    pnWptDesc,
    pnWptSrc,
    pnWptLink,
    pnWptSym,
    pnWptType,
    pnWptFix,
    pnWptSat,
    pnWptHdop,
    pnWptVdop,
    pnWptPdop,
    pnWptAgeofdgpsdata,
    pnWptDgpsid,
    pnWptExtensions,
};

} // namespace

CWpt::CWpt(const wchar_t* elementName)
    : m_link(new CLinkCol(L"link", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CWpt::Reset() {
    m_lat = m_lon = CDecimal();
    m_ele.reset();
    m_time.reset();
    m_magvar.reset();
    m_geoidheight.reset();
    m_name.reset();
    m_cmt.reset();
    m_desc.reset();
    m_src.reset();
    m_link->Clear();
    m_sym.reset();
    m_type.reset();
    m_fix.reset();
    m_sat.reset();
    m_hdop.reset();
    m_vdop.reset();
    m_pdop.reset();
    m_ageofdgpsdata.reset();
    m_dgpsid.reset();
    m_extensions = nullptr;
}

void CWpt::SetLat(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"lat", value, kLatitude);
    m_lat = value;
}
void CWpt::SetLon(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"lon", value, kLongitude);
    m_lon = value;
}
void CWpt::SetMagvar(TOptional<CDecimal> value) {
    if (value) H::CheckRestrictionFordecimal(L"magvar", *value, kDegrees);
    m_magvar = std::move(value);
}
void CWpt::SetSat(TOptional<CBigInteger> value) {
    if (value) H::CheckRestrictionForinteger(L"sat", *value, kNonNegative);
    m_sat = std::move(value);
}
void CWpt::SetDgpsid(TOptional<CBigInteger> value) {
    if (value) H::CheckRestrictionForinteger(L"dgpsid", *value, kDgpsStation);
    m_dgpsid = std::move(value);
}
void CWpt::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CWpt::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"wptType"),
        {Optional(L"ele", pnWptEle, itDecimal), Optional(L"time", pnWptTime, itDateTime),
         Optional(L"magvar", pnWptMagvar, itDecimal, kDegrees),
         Optional(L"geoidheight", pnWptGeoidheight, itDecimal), Text(L"name", pnWptName),
         Text(L"cmt", pnWptCmt), Text(L"desc", pnWptDesc), Text(L"src", pnWptSrc),
         Repeated(L"link", pnWptLink), Text(L"sym", pnWptSym), Text(L"type", pnWptType),
         new CElementInfoSeqEnumOpt(L"fix", kNamespace, pnWptFix, false, FixToText, FixFromText, L""),
         Optional(L"sat", pnWptSat, itInteger, kNonNegative), Optional(L"hdop", pnWptHdop, itDecimal),
         Optional(L"vdop", pnWptVdop, itDecimal), Optional(L"pdop", pnWptPdop, itDecimal),
         Optional(L"ageofdgpsdata", pnWptAgeofdgpsdata, itDecimal),
         Optional(L"dgpsid", pnWptDgpsid, itInteger, kDgpsStation),
         Child(L"extensions", pnWptExtensions, cnExtensions)},
        {Coordinate(L"lat", pnWptLat, kLatitude), Coordinate(L"lon", pnWptLon, kLongitude)});
    return data;
}

int CWpt::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnWptLat:
        read ? value.SetDecimal(m_lat) : SetLat(value.GetDecimal());
        return 0;
    case pnWptLon:
        read ? value.SetDecimal(m_lon) : SetLon(value.GetDecimal());
        return 0;
    case pnWptEle:
        AccessDecimal(read, value, m_ele);
        return 0;
    case pnWptTime:
        AccessTime(read, value, m_time);
        return 0;
    case pnWptMagvar:
        read ? (m_magvar ? value.SetDecimal(*m_magvar) : void()) : SetMagvar(value.GetDecimal());
        return 0;
    case pnWptGeoidheight:
        AccessDecimal(read, value, m_geoidheight);
        return 0;
    case pnWptName:
        AccessText(read, value, m_name);
        return 0;
    case pnWptCmt:
        AccessText(read, value, m_cmt);
        return 0;
    case pnWptDesc:
        AccessText(read, value, m_desc);
        return 0;
    case pnWptSrc:
        AccessText(read, value, m_src);
        return 0;
    case pnWptLink:
        AccessCollection(read, value, m_link, L"link");
        return 0;
    case pnWptSym:
        AccessText(read, value, m_sym);
        return 0;
    case pnWptType:
        AccessText(read, value, m_type);
        return 0;
    case pnWptFix:
        read ? (m_fix ? value.SetI4(*m_fix) : void()) : SetFix(Fix(value.GetI4()));
        return 0;
    case pnWptSat:
        read ? (m_sat ? value.SetInteger(*m_sat) : void()) : SetSat(value.GetInteger());
        return 0;
    case pnWptHdop:
        AccessDecimal(read, value, m_hdop);
        return 0;
    case pnWptVdop:
        AccessDecimal(read, value, m_vdop);
        return 0;
    case pnWptPdop:
        AccessDecimal(read, value, m_pdop);
        return 0;
    case pnWptAgeofdgpsdata:
        AccessDecimal(read, value, m_ageofdgpsdata);
        return 0;
    case pnWptDgpsid:
        read ? (m_dgpsid ? value.SetInteger(*m_dgpsid) : void()) : SetDgpsid(value.GetInteger());
        return 0;
    case pnWptExtensions:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CWpt)

// --- rteType and trkType: the same members, then their points or segments --------------------------

namespace {
enum RouteProperty : int {
    pnRouteName = 1,
    pnRouteCmt,
    pnRouteDesc,
    pnRouteSrc,
    pnRouteLink,
    pnRouteNumber,
    pnRouteType,
    pnRouteExtensions,
    pnRoutePoints,
};
} // namespace

CRte::CRte(const wchar_t* elementName)
    : m_link(new CLinkCol(L"link", kNamespace, 0, -1))
    , m_rtept(new CWptCol(L"rtept", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CRte::Reset() {
    m_name.reset();
    m_cmt.reset();
    m_desc.reset();
    m_src.reset();
    m_link->Clear();
    m_number.reset();
    m_type.reset();
    m_extensions = nullptr;
    m_rtept->Clear();
}

void CRte::SetNumber(TOptional<CBigInteger> value) {
    if (value) H::CheckRestrictionForinteger(L"number", *value, kNonNegative);
    m_number = std::move(value);
}
void CRte::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CRte::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"rteType"),
        {Text(L"name", pnRouteName), Text(L"cmt", pnRouteCmt), Text(L"desc", pnRouteDesc),
         Text(L"src", pnRouteSrc), Repeated(L"link", pnRouteLink),
         Optional(L"number", pnRouteNumber, itInteger, kNonNegative), Text(L"type", pnRouteType),
         Child(L"extensions", pnRouteExtensions, cnExtensions), Repeated(L"rtept", pnRoutePoints)},
        {});
    return data;
}

int CRte::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnRouteName:
        AccessText(read, value, m_name);
        return 0;
    case pnRouteCmt:
        AccessText(read, value, m_cmt);
        return 0;
    case pnRouteDesc:
        AccessText(read, value, m_desc);
        return 0;
    case pnRouteSrc:
        AccessText(read, value, m_src);
        return 0;
    case pnRouteLink:
        AccessCollection(read, value, m_link, L"link");
        return 0;
    case pnRouteNumber:
        read ? (m_number ? value.SetInteger(*m_number) : void()) : SetNumber(value.GetInteger());
        return 0;
    case pnRouteType:
        AccessText(read, value, m_type);
        return 0;
    case pnRouteExtensions:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    case pnRoutePoints:
        AccessCollection(read, value, m_rtept, L"rtept");
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CRte)

CTrk::CTrk(const wchar_t* elementName)
    : m_link(new CLinkCol(L"link", kNamespace, 0, -1))
    , m_trkseg(new CTrksegCol(L"trkseg", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CTrk::Reset() {
    m_name.reset();
    m_cmt.reset();
    m_desc.reset();
    m_src.reset();
    m_link->Clear();
    m_number.reset();
    m_type.reset();
    m_extensions = nullptr;
    m_trkseg->Clear();
}

void CTrk::SetNumber(TOptional<CBigInteger> value) {
    if (value) H::CheckRestrictionForinteger(L"number", *value, kNonNegative);
    m_number = std::move(value);
}
void CTrk::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CTrk::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"trkType"),
        {Text(L"name", pnRouteName), Text(L"cmt", pnRouteCmt), Text(L"desc", pnRouteDesc),
         Text(L"src", pnRouteSrc), Repeated(L"link", pnRouteLink),
         Optional(L"number", pnRouteNumber, itInteger, kNonNegative), Text(L"type", pnRouteType),
         Child(L"extensions", pnRouteExtensions, cnExtensions), Repeated(L"trkseg", pnRoutePoints)},
        {});
    return data;
}

int CTrk::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnRouteName:
        AccessText(read, value, m_name);
        return 0;
    case pnRouteCmt:
        AccessText(read, value, m_cmt);
        return 0;
    case pnRouteDesc:
        AccessText(read, value, m_desc);
        return 0;
    case pnRouteSrc:
        AccessText(read, value, m_src);
        return 0;
    case pnRouteLink:
        AccessCollection(read, value, m_link, L"link");
        return 0;
    case pnRouteNumber:
        read ? (m_number ? value.SetInteger(*m_number) : void()) : SetNumber(value.GetInteger());
        return 0;
    case pnRouteType:
        AccessText(read, value, m_type);
        return 0;
    case pnRouteExtensions:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    case pnRoutePoints:
        AccessCollection(read, value, m_trkseg, L"trkseg");
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CTrk)

// --- trksegType -----------------------------------------------------------------------------------

CTrkseg::CTrkseg(const wchar_t* elementName)
    : m_trkpt(new CWptCol(L"trkpt", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CTrkseg::Reset() {
    m_trkpt->Clear();
    m_extensions = nullptr;
}

void CTrkseg::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CTrkseg::MetaData() {
    static const CClassMetaData data(ClassInfo(L"trksegType"),
                                     {Repeated(L"trkpt", 1), Child(L"extensions", 2, cnExtensions)}, {});
    return data;
}

int CTrkseg::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        AccessCollection(read, value, m_trkpt, L"trkpt");
        return 0;
    case 2:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CTrkseg)

// --- gpxType --------------------------------------------------------------------------------------

namespace {
enum GpxProperty : int {
    pnGpxVersion = 1,
    pnGpxCreator,
    pnGpxMetadata,
    pnGpxWpt,
    pnGpxRte,
    pnGpxTrk,
    pnGpxExtensions,
};
} // namespace

CGpx::CGpx(const wchar_t* elementName)
    : m_wpt(new CWptCol(L"wpt", kNamespace, 0, -1))
    , m_rte(new CRteCol(L"rte", kNamespace, 0, -1))
    , m_trk(new CTrkCol(L"trk", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CGpx::Reset() {
    m_version = L"1.1";
    m_creator.clear();
    m_metadata = nullptr;
    m_wpt->Clear();
    m_rte->Clear();
    m_trk->Clear();
    m_extensions = nullptr;
}

void CGpx::SetVersion(std::wstring value) {
    H::CheckRestrictionForstring(L"version", value, kVersion);
    m_version = std::move(value);
}
void CGpx::SetMetadata(CMetadata* value) {
    Adopt(m_metadata, value, L"metadata");
}
void CGpx::SetExtensions(CExtensions* value) {
    Adopt(m_extensions, value, L"extensions");
}

const CClassMetaData& CGpx::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"gpxType"),
        {Child(L"metadata", pnGpxMetadata, cnMetadata), Repeated(L"wpt", pnGpxWpt),
         Repeated(L"rte", pnGpxRte), Repeated(L"trk", pnGpxTrk),
         Child(L"extensions", pnGpxExtensions, cnExtensions)},
        {Attribute(L"version", pnGpxVersion, W::wsPreserve, kVersion), Attribute(L"creator", pnGpxCreator)});
    return data;
}

int CGpx::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnGpxVersion:
        read ? value.SetString(m_version) : SetVersion(value.GetString());
        return 0;
    case pnGpxCreator:
        read ? value.SetString(m_creator) : SetCreator(value.GetString());
        return 0;
    case pnGpxMetadata:
        read ? value.SetXmlObject(m_metadata.Get()) : SetMetadata(ObjectOf<CMetadata>(value, L"metadata"));
        return 0;
    case pnGpxWpt:
        AccessCollection(read, value, m_wpt, L"wpt");
        return 0;
    case pnGpxRte:
        AccessCollection(read, value, m_rte, L"rte");
        return 0;
    case pnGpxTrk:
        AccessCollection(read, value, m_trk, L"trk");
        return 0;
    case pnGpxExtensions:
        read ? value.SetXmlObject(m_extensions.Get())
             : SetExtensions(ObjectOf<CExtensions>(value, L"extensions"));
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CGpx)

// --- ptType and ptsegType -------------------------------------------------------------------------

namespace {
enum PtProperty : int { pnPtLat = 1, pnPtLon, pnPtEle, pnPtTime };
}

CPt::CPt(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CPt::Reset() {
    m_lat = m_lon = CDecimal();
    m_ele.reset();
    m_time.reset();
}

void CPt::SetLat(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"lat", value, kLatitude);
    m_lat = value;
}
void CPt::SetLon(const CDecimal& value) {
    H::CheckRestrictionFordecimal(L"lon", value, kLongitude);
    m_lon = value;
}

const CClassMetaData& CPt::MetaData() {
    static const CClassMetaData data(
        ClassInfo(L"ptType"), {Optional(L"ele", pnPtEle, itDecimal), Optional(L"time", pnPtTime, itDateTime)},
        {Coordinate(L"lat", pnPtLat, kLatitude), Coordinate(L"lon", pnPtLon, kLongitude)});
    return data;
}

int CPt::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPtLat:
        read ? value.SetDecimal(m_lat) : SetLat(value.GetDecimal());
        return 0;
    case pnPtLon:
        read ? value.SetDecimal(m_lon) : SetLon(value.GetDecimal());
        return 0;
    case pnPtEle:
        AccessDecimal(read, value, m_ele);
        return 0;
    case pnPtTime:
        AccessTime(read, value, m_time);
        return 0;
    }
    return UnknownProperty(propertyNumber);
}

GPX_DESCRIPTOR_GETTERS(CPt)

CPtseg::CPtseg(const wchar_t* elementName)
    : m_pt(new CPtCol(L"pt", kNamespace, 0, -1)) {
    SetElementName(elementName);
    Reset();
}

void CPtseg::Reset() {
    m_pt->Clear();
}

const CClassMetaData& CPtseg::MetaData() {
    static const CClassMetaData data(ClassInfo(L"ptsegType"), {Repeated(L"pt", 1)}, {});
    return data;
}

int CPtseg::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != 1) return UnknownProperty(propertyNumber);
    AccessCollection(read, value, m_pt, L"pt");
    return 0;
}

GPX_DESCRIPTOR_GETTERS(CPtseg)

} // namespace Gpx
