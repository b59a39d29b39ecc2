#include "GpxBindings.h"

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

} // namespace

const wchar_t* FixToText(int value) {
    return EnumToText(kFixes, value);
}

int FixFromText(const wchar_t* text) {
    return EnumFromText(kFixes, text, L"fixType");
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
    return AccessCollection(read, value, m_any, L"AnyElement");
}

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
        return AccessValue<itString>(read, value, m_href, this, &CLink::SetHref);
    case pnLinkText:
        return AccessValue<itString>(read, value, m_text);
    case pnLinkType:
        return AccessValue<itString>(read, value, m_type);
    }
    return UnknownProperty(propertyNumber);
}

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
        return AccessValue<itString>(read, value, m_id, this, &CEmail::SetId);
    case 2:
        return AccessValue<itString>(read, value, m_domain, this, &CEmail::SetDomain);
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_email, value, L"email");
}
void CPerson::SetLink(CLink* value) {
    AdoptChild(m_link, value, L"link");
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
        return AccessValue<itString>(read, value, m_name);
    case pnPersonEmail:
        return AccessObject(read, value, m_email, L"email");
    case pnPersonLink:
        return AccessObject(read, value, m_link, L"link");
    }
    return UnknownProperty(propertyNumber);
}

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
        return AccessValue<itString>(read, value, m_author, this, &CCopyright::SetAuthor);
    case pnCopyrightYear:
        return AccessValue<itYear>(read, value, m_year);
    case pnCopyrightLicense:
        return AccessValue<itString>(read, value, m_license);
    }
    return UnknownProperty(propertyNumber);
}

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
        return AccessValue<itDecimal>(read, value, m_minlat, this, &CBounds::SetMinlat);
    case pnMinlon:
        return AccessValue<itDecimal>(read, value, m_minlon, this, &CBounds::SetMinlon);
    case pnMaxlat:
        return AccessValue<itDecimal>(read, value, m_maxlat, this, &CBounds::SetMaxlat);
    case pnMaxlon:
        return AccessValue<itDecimal>(read, value, m_maxlon, this, &CBounds::SetMaxlon);
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_author, value, L"author");
}
void CMetadata::SetCopyright(CCopyright* value) {
    AdoptChild(m_copyright, value, L"copyright");
}
void CMetadata::SetBounds(CBounds* value) {
    AdoptChild(m_bounds, value, L"bounds");
}
void CMetadata::SetExtensions(CExtensions* value) {
    AdoptChild(m_extensions, value, L"extensions");
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
        return AccessValue<itString>(read, value, m_name);
    case pnMetadataDesc:
        return AccessValue<itString>(read, value, m_desc);
    case pnMetadataAuthor:
        return AccessObject(read, value, m_author, L"author");
    case pnMetadataCopyright:
        return AccessObject(read, value, m_copyright, L"copyright");
    case pnMetadataLink:
        return AccessCollection(read, value, m_link, L"link");
    case pnMetadataTime:
        return AccessValue<itDateTime>(read, value, m_time);
    case pnMetadataKeywords:
        return AccessValue<itString>(read, value, m_keywords);
    case pnMetadataBounds:
        return AccessObject(read, value, m_bounds, L"bounds");
    case pnMetadataExtensions:
        return AccessObject(read, value, m_extensions, L"extensions");
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_extensions, value, L"extensions");
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
        return AccessValue<itDecimal>(read, value, m_lat, this, &CWpt::SetLat);
    case pnWptLon:
        return AccessValue<itDecimal>(read, value, m_lon, this, &CWpt::SetLon);
    case pnWptEle:
        return AccessValue<itDecimal>(read, value, m_ele);
    case pnWptTime:
        return AccessValue<itDateTime>(read, value, m_time);
    case pnWptMagvar:
        return AccessValue<itDecimal>(read, value, m_magvar, this, &CWpt::SetMagvar);
    case pnWptGeoidheight:
        return AccessValue<itDecimal>(read, value, m_geoidheight);
    case pnWptName:
        return AccessValue<itString>(read, value, m_name);
    case pnWptCmt:
        return AccessValue<itString>(read, value, m_cmt);
    case pnWptDesc:
        return AccessValue<itString>(read, value, m_desc);
    case pnWptSrc:
        return AccessValue<itString>(read, value, m_src);
    case pnWptLink:
        return AccessCollection(read, value, m_link, L"link");
    case pnWptSym:
        return AccessValue<itString>(read, value, m_sym);
    case pnWptType:
        return AccessValue<itString>(read, value, m_type);
    case pnWptFix:
        return AccessValue<itI4>(read, value, m_fix);
    case pnWptSat:
        return AccessValue<itInteger>(read, value, m_sat, this, &CWpt::SetSat);
    case pnWptHdop:
        return AccessValue<itDecimal>(read, value, m_hdop);
    case pnWptVdop:
        return AccessValue<itDecimal>(read, value, m_vdop);
    case pnWptPdop:
        return AccessValue<itDecimal>(read, value, m_pdop);
    case pnWptAgeofdgpsdata:
        return AccessValue<itDecimal>(read, value, m_ageofdgpsdata);
    case pnWptDgpsid:
        return AccessValue<itInteger>(read, value, m_dgpsid, this, &CWpt::SetDgpsid);
    case pnWptExtensions:
        return AccessObject(read, value, m_extensions, L"extensions");
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_extensions, value, L"extensions");
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
        return AccessValue<itString>(read, value, m_name);
    case pnRouteCmt:
        return AccessValue<itString>(read, value, m_cmt);
    case pnRouteDesc:
        return AccessValue<itString>(read, value, m_desc);
    case pnRouteSrc:
        return AccessValue<itString>(read, value, m_src);
    case pnRouteLink:
        return AccessCollection(read, value, m_link, L"link");
    case pnRouteNumber:
        return AccessValue<itInteger>(read, value, m_number, this, &CRte::SetNumber);
    case pnRouteType:
        return AccessValue<itString>(read, value, m_type);
    case pnRouteExtensions:
        return AccessObject(read, value, m_extensions, L"extensions");
    case pnRoutePoints:
        return AccessCollection(read, value, m_rtept, L"rtept");
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_extensions, value, L"extensions");
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
        return AccessValue<itString>(read, value, m_name);
    case pnRouteCmt:
        return AccessValue<itString>(read, value, m_cmt);
    case pnRouteDesc:
        return AccessValue<itString>(read, value, m_desc);
    case pnRouteSrc:
        return AccessValue<itString>(read, value, m_src);
    case pnRouteLink:
        return AccessCollection(read, value, m_link, L"link");
    case pnRouteNumber:
        return AccessValue<itInteger>(read, value, m_number, this, &CTrk::SetNumber);
    case pnRouteType:
        return AccessValue<itString>(read, value, m_type);
    case pnRouteExtensions:
        return AccessObject(read, value, m_extensions, L"extensions");
    case pnRoutePoints:
        return AccessCollection(read, value, m_trkseg, L"trkseg");
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_extensions, value, L"extensions");
}

const CClassMetaData& CTrkseg::MetaData() {
    static const CClassMetaData data(ClassInfo(L"trksegType"),
                                     {Repeated(L"trkpt", 1), Child(L"extensions", 2, cnExtensions)}, {});
    return data;
}

int CTrkseg::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        return AccessCollection(read, value, m_trkpt, L"trkpt");
    case 2:
        return AccessObject(read, value, m_extensions, L"extensions");
    }
    return UnknownProperty(propertyNumber);
}

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
    AdoptChild(m_metadata, value, L"metadata");
}
void CGpx::SetExtensions(CExtensions* value) {
    AdoptChild(m_extensions, value, L"extensions");
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
        return AccessValue<itString>(read, value, m_version, this, &CGpx::SetVersion);
    case pnGpxCreator:
        return AccessValue<itString>(read, value, m_creator, this, &CGpx::SetCreator);
    case pnGpxMetadata:
        return AccessObject(read, value, m_metadata, L"metadata");
    case pnGpxWpt:
        return AccessCollection(read, value, m_wpt, L"wpt");
    case pnGpxRte:
        return AccessCollection(read, value, m_rte, L"rte");
    case pnGpxTrk:
        return AccessCollection(read, value, m_trk, L"trk");
    case pnGpxExtensions:
        return AccessObject(read, value, m_extensions, L"extensions");
    }
    return UnknownProperty(propertyNumber);
}

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
        return AccessValue<itDecimal>(read, value, m_lat, this, &CPt::SetLat);
    case pnPtLon:
        return AccessValue<itDecimal>(read, value, m_lon, this, &CPt::SetLon);
    case pnPtEle:
        return AccessValue<itDecimal>(read, value, m_ele);
    case pnPtTime:
        return AccessValue<itDateTime>(read, value, m_time);
    }
    return UnknownProperty(propertyNumber);
}

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
    return AccessCollection(read, value, m_pt, L"pt");
}

} // namespace Gpx
