#include "TestSchema.h"

#include <iterator>
#include <utility>

using namespace QxXmlLib16Data;

namespace TestSchema {

namespace {

typedef CWhitespaceUtils W;
const CPrimitiveRestrictions kNoFacets;

CPrimitiveRestrictions Bounds(const wchar_t* minInclusive, const wchar_t* maxInclusive) {
    return CPrimitiveRestrictions(L"", -1, -1, minInclusive, maxInclusive, L"", L"", -1, -1, -1);
}

CPrimitiveRestrictions Pattern(const wchar_t* pattern) {
    return CPrimitiveRestrictions(pattern, -1, -1, L"", L"", L"", L"", -1, -1, -1);
}

CPrimitiveRestrictions Lengths(long long minLength, long long maxLength, long long length) {
    return CPrimitiveRestrictions(L"", minLength, maxLength, L"", L"", L"", L"", length, -1, -1);
}

CPrimitiveRestrictions Digits(long long totalDigits, long long fractionDigits) {
    return CPrimitiveRestrictions(L"", -1, -1, L"", L"", L"", L"", -1, totalDigits, fractionDigits);
}

// Facets of the schema's simple types, shared by a member's descriptor and its setter.
const CPrimitiveRestrictions kTitleFacets = Lengths(-1, 40, -1);
const CPrimitiveRestrictions kDaysFacets = Bounds(L"1", L"30");
const CPrimitiveRestrictions kTripIdFacets = Pattern(L"T[0-9]+");
const CPrimitiveRestrictions kLatitudeFacets = Bounds(L"-90", L"90");
const CPrimitiveRestrictions kLongitudeFacets = Bounds(L"-180", L"180");
const CPrimitiveRestrictions kEmailFacets = Pattern(L"[a-z.]+@[a-z.]+");

const wchar_t* const kTravelModes[] = {L"walk", L"cycle", L"drive"};
const wchar_t* const kPaces[] = {L"slow", L"steady", L"fast"};
const wchar_t* const kUnits[] = {L"m", L"km", L"mi"};

} // namespace

const wchar_t* TravelModeToText(int value) {
    return EnumToText(kTravelModes, value);
}
int TravelModeFromText(const wchar_t* text) {
    return EnumFromText(kTravelModes, text, L"TravelMode");
}
const wchar_t* PaceToText(int value) {
    return EnumToText(kPaces, value);
}
int PaceFromText(const wchar_t* text) {
    return EnumFromText(kPaces, text, L"Pace");
}
const wchar_t* UnitToText(int value) {
    return EnumToText(kUnits, value);
}
int UnitFromText(const wchar_t* text) {
    return EnumFromText(kUnits, text, L"Unit");
}

CSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName) {
    switch (classNumber) {
    case cnDistance:
        return new CDistance(elementName);
    case cnAudit:
        return new CAudit();
    case cnPlace:
        return new CPlace(elementName);
    case cnCampsite:
        return new CCampsite(elementName);
    case cnContact:
        return new CContact(elementName);
    case cnReadings:
        return new CReadings(elementName);
    case cnTrip:
        return new CTrip(elementName);
    }
    return nullptr;
}

CSmartPtr<CXmlObjectBase> CTestSchemaFactory::CreatePlace(CXmlElement* element) {
    const std::wstring type = GetElementType(element);
    const std::wstring name = element->GetLocalName();
    if (type.empty()) return new CPlace(name.c_str());
    if (GetElementTypeNamespaceUri(element) != kNamespace) return nullptr;
    if (type == L"Place") return new CPlace(name.c_str());
    if (type == L"Campsite") return new CCampsite(name.c_str());
    return nullptr;
}

// --- Distance ---------------------------------------------------------------------------------------

CDistance::CDistance(const wchar_t* elementName)
    : m_unit(Unit_km)
    , m_approx(false) {
    SetElementName(elementName);
}

const CClassMetaData& CDistance::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egSequence, etElement, L"Distance", kNamespace, true, false, 1, itDecimal, L"",
                               false),
        {},
        {new CAttributeInfoEnum(L"unit", L"", 2, true, UnitToText, UnitFromText, L"km"),
         new CAttributeInfoPrimitive(L"approx", L"", 3, true, itBoolean, L"", W::wsCollapse, kNoFacets,
                                     L"false")});
    return data;
}

int CDistance::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        return AccessValue<itDecimal>(read, value, m_value);
    case 2:
        return AccessValue<itI4>(read, value, m_unit);
    case 3:
        return AccessValue<itBoolean>(read, value, m_approx);
    }
    return UnknownProperty(propertyNumber);
}

const CParentElementInfo* CDistance::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CDistance::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CDistance::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CDistance::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_value = CDecimal();
    m_unit = Unit_km;
    m_approx = false;
}

// --- Audit ------------------------------------------------------------------------------------------

CAudit::CAudit() = default;

const CClassMetaData& CAudit::MetaData() {
    static const CClassMetaData data(new CParentElementInfo(egSequence, etGroup, L"Audit", kNamespace, false,
                                                            false, -1, itNone, L"", false),
                                     {new CElementInfoSeqPrimMnd(L"created", kNamespace, 1, false, itDateTime,
                                                                 L"", W::wsCollapse, kNoFacets, L""),
                                      new CElementInfoSeqPrimOpt(L"author", kNamespace, 2, false, itString,
                                                                 L"", W::wsPreserve, kNoFacets, L"")},
                                     {});
    return data;
}

int CAudit::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        return AccessValue<itDateTime>(read, value, m_created);
    case 2:
        return AccessValue<itString>(read, value, m_author);
    }
    return UnknownProperty(propertyNumber);
}

const CParentElementInfo* CAudit::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CAudit::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CAudit::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CAudit::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_created = CDateTime();
    m_author.reset();
}

// --- Place ------------------------------------------------------------------------------------------

CPlace::CPlace(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CPlace::SetLat(const CDecimal& value) {
    CXmlObjectHelper::CheckRestrictionFordecimal(L"lat", value, kLatitudeFacets);
    m_lat = value;
}
void CPlace::SetLon(const CDecimal& value) {
    CXmlObjectHelper::CheckRestrictionFordecimal(L"lon", value, kLongitudeFacets);
    m_lon = value;
}

const CClassMetaData& CPlace::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egSequence, etElement, L"Place", kNamespace, true, false, -1, itNone, L"",
                               false),
        {new CElementInfoSeqPrimMnd(L"label", kNamespace, pnLabel, false, itString, L"", W::wsPreserve,
                                    kNoFacets, L"")},
        {new CAttributeInfoPrimitive(L"lat", L"", pnLat, false, itDecimal, L"", W::wsCollapse,
                                     kLatitudeFacets, L""),
         new CAttributeInfoPrimitive(L"lon", L"", pnLon, false, itDecimal, L"", W::wsCollapse,
                                     kLongitudeFacets, L"")});
    return data;
}

int CPlace::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnLat:
        return AccessValue<itDecimal>(read, value, m_lat, this, &CPlace::SetLat);
    case pnLon:
        return AccessValue<itDecimal>(read, value, m_lon, this, &CPlace::SetLon);
    case pnLabel:
        return AccessValue<itString>(read, value, m_label);
    }
    return UnknownProperty(propertyNumber);
}

const CParentElementInfo* CPlace::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CPlace::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CPlace::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CPlace::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_lat = m_lon = CDecimal();
    m_label.clear();
}

// --- Campsite ---------------------------------------------------------------------------------------

CCampsite::CCampsite(const wchar_t* elementName)
    : CPlace(elementName)
    , m_pitches(0)
    , m_open(true) {}

// A derived class describes the inherited members again, with descriptors of its own: each class
// releases exactly the descriptors it created.
const CClassMetaData& CCampsite::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egSequence, etElement, L"Campsite", kNamespace, true, true, -1, itNone, L"",
                               false),
        {new CElementInfoSeqPrimMnd(L"label", kNamespace, pnLabel, false, itString, L"", W::wsPreserve,
                                    kNoFacets, L""),
         new CElementInfoSeqPrimMnd(L"pitches", kNamespace, pnPitches, false, itUi2, L"", W::wsCollapse,
                                    kNoFacets, L"")},
        {new CAttributeInfoPrimitive(L"lat", L"", pnLat, false, itDecimal, L"", W::wsCollapse,
                                     kLatitudeFacets, L""),
         new CAttributeInfoPrimitive(L"lon", L"", pnLon, false, itDecimal, L"", W::wsCollapse,
                                     kLongitudeFacets, L""),
         new CAttributeInfoPrimitive(L"open", L"", pnOpen, true, itBoolean, L"", W::wsCollapse, kNoFacets,
                                     L"true")});
    return data;
}

int CCampsite::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPitches:
        return AccessValue<itUi2>(read, value, m_pitches);
    case pnOpen:
        return AccessValue<itBoolean>(read, value, m_open);
    }
    return CPlace::AccessProperty(propertyNumber, read, value);
}

const CParentElementInfo* CCampsite::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CCampsite::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CCampsite::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CCampsite::OnBeforeFromXml(CXmlElement* element, CXmlElement* firstChild,
                                const CSerializationContext& context, bool flag) {
    CPlace::OnBeforeFromXml(element, firstChild, context, flag);
    m_pitches = 0;
    m_open = true;
}

// --- Contact ----------------------------------------------------------------------------------------

CContact::CContact(const wchar_t* elementName)
    : m_nil(false) {
    SetElementName(elementName);
}

void CContact::SetEmail(std::wstring value) {
    CXmlObjectHelper::CheckRestrictionForstring(L"email", value, kEmailFacets);
    m_email = std::move(value);
}

const CClassMetaData& CContact::MetaData() {
    static const CClassMetaData data(new CParentElementInfo(egSequence, etElement, L"Contact", kNamespace,
                                                            true, false, -1, itNone, L"", false),
                                     {new CElementInfoSeqPrimMnd(L"email", kNamespace, 1, false, itString,
                                                                 L"", W::wsCollapse, kEmailFacets, L""),
                                      new CElementInfoSeqPrimOpt(L"phone", kNamespace, 2, false, itString,
                                                                 L"", W::wsPreserve, kNoFacets, L"")},
                                     {});
    return data;
}

int CContact::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        return AccessValue<itString>(read, value, m_email, this, &CContact::SetEmail);
    case 2:
        return AccessValue<itString>(read, value, m_phone);
    }
    return UnknownProperty(propertyNumber);
}

const CParentElementInfo* CContact::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CContact::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CContact::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CContact::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_email.clear();
    m_phone.reset();
    m_nil = false;
}

// --- Readings ---------------------------------------------------------------------------------------

CReadings::CReadings(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CReadings::Reset() {
    for (QxVariant& value : m_values)
        value.Clear();
    m_values[itI2].SetI2(7);
    m_values[itDate].SetDate(CDateTime::ParseXSDDate(L"2024-01-01"));
    m_values[itBoolean].SetBoolean(false);
}

namespace {
struct Reading {
    const wchar_t* name;
    ItemType type;
    CPrimitiveRestrictions facets;
    const wchar_t* defaultValue;
};

// One entry per attribute, in schema order; i4 is the required one.
const Reading kReadings[] = {
    {L"hex", itHexBinary, Lengths(-1, 4, -1), L""},
    {L"b64", itBase64Binary, Lengths(1, -1, -1), L""},
    {L"i1", itI1, Bounds(L"-10", L"10"), L""},
    {L"i2", itI2, kNoFacets, L"7"},
    {L"i4", itI4, CPrimitiveRestrictions(L"", -1, -1, L"", L"", L"-1000", L"1000", -1, -1, -1), L""},
    {L"i8", itI8, kNoFacets, L""},
    {L"u1", itUi1, Digits(2, -1), L""},
    {L"u2", itUi2, kNoFacets, L""},
    {L"u4", itUi4, Bounds(L"", L"100000"), L""},
    {L"u8", itUi8, kNoFacets, L""},
    {L"r4", itR4, Bounds(L"0", L""), L""},
    {L"r8", itR8, kNoFacets, L""},
    {L"dur", itDuration, kNoFacets, L""},
    {L"ym", itYearMonth, kNoFacets, L""},
    {L"md", itMonthDay, kNoFacets, L""},
    {L"yr", itYear, Bounds(L"1900", L""), L""},
    {L"mo", itMonth, kNoFacets, L""},
    {L"dy", itDay, kNoFacets, L""},
    {L"date", itDate, kNoFacets, L"2024-01-01"},
    {L"dt", itDateTime, kNoFacets, L""},
    {L"tm", itTime, kNoFacets, L""},
    {L"ch", itChar, kNoFacets, L""},
    {L"str", itString, Pattern(L"[A-Z][a-z]+"), L""},
    {L"flag", itBoolean, kNoFacets, L"false"},
    {L"dec", itDecimal, Digits(5, 2), L""},
    {L"int", itInteger, Bounds(L"0", L""), L""},
};
} // namespace

void CReadings::SetAttribute(ItemType type, const QxVariant& value) {
    for (const Reading& reading : kReadings)
        // char has no facets and no check of its own.
        if (reading.type == type && type != itChar)
            CXmlObjectHelper::CheckRestriction(reading.name, value, type, reading.facets);
    m_values[type] = value;
}

template <std::size_t... I>
static CClassMetaData ReadingsMetaData(std::index_sequence<I...>) {
    auto attribute = [](const Reading& r) -> CAttributeInfo* {
        return new CAttributeInfoPrimitive(r.name, L"", r.type, r.type != itI4, r.type, L"", W::wsCollapse,
                                           r.facets, r.defaultValue);
    };
    return CClassMetaData(new CParentElementInfo(egSequence, etElement, L"Readings", kNamespace, true, false,
                                                 -1, itNone, L"", false),
                          {}, {attribute(kReadings[I])...});
}

const CClassMetaData& CReadings::MetaData() {
    static const CClassMetaData data = ReadingsMetaData(std::make_index_sequence<std::size(kReadings)>());
    return data;
}

int CReadings::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber <= itNone || propertyNumber > itInteger) return UnknownProperty(propertyNumber);
    if (read)
        value = m_values[propertyNumber];
    else
        SetAttribute(ItemType(propertyNumber), value);
    return 0;
}

const CParentElementInfo* CReadings::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CReadings::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CReadings::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CReadings::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

// --- Trip -------------------------------------------------------------------------------------------

namespace {
enum TripProperty : int {
    pnId = 1,
    pnPaceAttribute,
    pnVersion,
    pnTitle,
    pnNote,
    pnDays,
    pnMode,
    pnPace,
    pnDistance,
    pnAudit,
    pnStart,
    pnStop,
    pnContact,
    pnReadings,
};
} // namespace

CTrip::CTrip(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CTrip::Reset() {
    m_id.clear();
    m_paceAttribute = Pace_steady;
    m_version = CDecimal(L"1");
    m_title.clear();
    m_note.reset();
    m_noteNil = false;
    m_days.reset();
    m_mode = TravelMode_walk;
    m_pace.reset();
    m_distance = new CDistance(L"distance");
    m_audit = new CAudit();
    m_start = new CPlace(L"start");
    m_stop = nullptr;
    m_contact = new CContact(L"contact");
    m_readings = nullptr;
}

void CTrip::SetId(std::wstring value) {
    CXmlObjectHelper::CheckRestrictionForstring(L"id", value, kTripIdFacets);
    m_id = std::move(value);
}
void CTrip::SetTitle(std::wstring value) {
    CXmlObjectHelper::CheckRestrictionForstring(L"title", value, kTitleFacets);
    m_title = std::move(value);
}
void CTrip::SetDays(std::optional<unsigned char> value) {
    if (value) CXmlObjectHelper::CheckRestrictionForui1(L"days", *value, kDaysFacets);
    m_days = value;
}

void CTrip::SetDistance(CDistance* value) {
    AdoptMandatoryChild(m_distance, value, L"distance");
}
void CTrip::SetAudit(CAudit* value) {
    Throw_IfPropertyIsNull(value, L"Audit");
    m_audit = value;
}
void CTrip::SetStart(CPlace* value) {
    AdoptMandatoryChild(m_start, value, L"start");
}
void CTrip::SetStop(CPlace* value) {
    AdoptChild(m_stop, value, L"stop");
}
void CTrip::SetContact(CContact* value) {
    AdoptMandatoryChild(m_contact, value, L"contact");
}
void CTrip::SetReadings(CReadings* value) {
    AdoptChild(m_readings, value, L"readings");
}

const CClassMetaData& CTrip::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egSequence, etElement, L"Trip", kNamespace, true, false, -1, itNone, L"",
                               false),
        {new CElementInfoSeqPrimMnd(L"title", kNamespace, pnTitle, false, itString, L"", W::wsPreserve,
                                    kTitleFacets, L""),
         new CElementInfoSeqPrimOpt(L"note", kNamespace, pnNote, true, itString, L"", W::wsPreserve,
                                    kNoFacets, L""),
         new CElementInfoSeqPrimOpt(L"days", kNamespace, pnDays, false, itUi1, L"", W::wsCollapse,
                                    kDaysFacets, L"1"),
         new CElementInfoSeqEnumMnd(L"mode", kNamespace, pnMode, false, TravelModeToText, TravelModeFromText,
                                    L""),
         new CElementInfoSeqEnumOpt(L"pace", kNamespace, pnPace, false, PaceToText, PaceFromText, L""),
         new CElementInfoSeqClsMnd(L"distance", kNamespace, pnDistance, etElement, CreateClass, cnDistance,
                                   false),
         new CElementInfoSeqClsMnd(L"Audit", kNamespace, pnAudit, etGroup, CreateClass, cnAudit, true),
         new CElementInfoSeqClsMnd(L"start", kNamespace, pnStart, etElement, CreateClass, cnPlace, false),
         new CElementInfoSeqAbsClsOpt(L"stop", kNamespace, pnStop, etElement,
                                      CTestSchemaFactory::CreatePlace),
         new CElementInfoSeqClsMnd(L"contact", kNamespace, pnContact, etElement, CreateClass, cnContact,
                                   false),
         new CElementInfoSeqClsOpt(L"readings", kNamespace, pnReadings, etElement, CreateClass, cnReadings)},
        {new CAttributeInfoPrimitive(L"id", L"", pnId, false, itString, L"", W::wsCollapse, kTripIdFacets,
                                     L""),
         new CAttributeInfoEnum(L"pace", L"", pnPaceAttribute, true, PaceToText, PaceFromText, L"steady"),
         new CAttributeInfoPrimitive(L"version", L"", pnVersion, true, itDecimal, L"", W::wsCollapse,
                                     kNoFacets, L"1")});
    return data;
}

int CTrip::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnId:
        return AccessValue<itString>(read, value, m_id, this, &CTrip::SetId);
    case pnPaceAttribute:
        return AccessValue<itI4>(read, value, m_paceAttribute);
    case pnVersion:
        return AccessValue<itDecimal>(read, value, m_version);
    case pnTitle:
        return AccessValue<itString>(read, value, m_title, this, &CTrip::SetTitle);
    case pnNote:
        return read && m_noteNil ? PutNil<itString>(value)
                                 : AccessValue<itString>(read, value, m_note, this, &CTrip::SetNote);
    case pnDays:
        return AccessValue<itUi1>(read, value, m_days, this, &CTrip::SetDays);
    case pnMode:
        return AccessValue<itI4>(read, value, m_mode);
    case pnPace:
        return AccessValue<itI4>(read, value, m_pace);
    case pnDistance:
        return AccessObject(read, value, m_distance, L"distance", this, &CTrip::SetDistance);
    case pnAudit:
        return AccessObject(read, value, m_audit, L"Audit", this, &CTrip::SetAudit);
    case pnStart:
        return AccessObject(read, value, m_start, L"start", this, &CTrip::SetStart);
    case pnStop:
        return AccessObject(read, value, m_stop, L"stop");
    case pnContact:
        return AccessObject(read, value, m_contact, L"contact", this, &CTrip::SetContact);
    case pnReadings:
        return AccessObject(read, value, m_readings, L"readings");
    }
    return UnknownProperty(propertyNumber);
}

const CParentElementInfo* CTrip::GetClassInfo() const {
    return MetaData().GetClassInfo();
}
CElementInfo* const* CTrip::GetClassElementInfo() const {
    return MetaData().GetElements();
}
CAttributeInfo* const* CTrip::GetClassAttributeInfo() const {
    return MetaData().GetAttributes();
}

void CTrip::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

} // namespace TestSchema
