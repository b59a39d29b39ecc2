#include "TestSchema.h"

#include <cwchar>
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

const wchar_t* EnumText(const wchar_t* const* names, int count, int value) {
    return value >= 0 && value < count ? names[value] : L"";
}

int EnumValue(const wchar_t* const* names, int count, const wchar_t* text, const wchar_t* typeName) {
    for (int i = 0; i < count; ++i)
        if (std::wcscmp(names[i], text) == 0) return i;
    throw CQxInvalidValueException(FormatString(L"The value [%ls] is not a valid %ls", text, typeName));
}

const wchar_t* const kTravelModes[] = {L"walk", L"cycle", L"drive"};
const wchar_t* const kPaces[] = {L"slow", L"steady", L"fast"};
const wchar_t* const kUnits[] = {L"m", L"km", L"mi"};

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

void AccessString(bool read, QxVariant& value, std::optional<std::wstring>& member) {
    if (read) {
        if (member) value.SetString(*member);
    } else {
        member = value.GetString();
    }
}

int UnknownProperty(int propertyNumber) {
    throw CQxInvalidParamException(FormatString(L"Unknown property number %d", propertyNumber));
}

} // namespace

const wchar_t* TravelModeToText(int value) {
    return EnumText(kTravelModes, 3, value);
}
int TravelModeFromText(const wchar_t* text) {
    return EnumValue(kTravelModes, 3, text, L"TravelMode");
}
const wchar_t* PaceToText(int value) {
    return EnumText(kPaces, 3, value);
}
int PaceFromText(const wchar_t* text) {
    return EnumValue(kPaces, 3, text, L"Pace");
}
const wchar_t* UnitToText(int value) {
    return EnumText(kUnits, 3, value);
}
int UnitFromText(const wchar_t* text) {
    return EnumValue(kUnits, 3, text, L"Unit");
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
        read ? value.SetDecimal(m_value) : void(m_value = value.GetDecimal());
        return 0;
    case 2:
        read ? value.SetI4(m_unit) : void(m_unit = Unit(value.GetI4()));
        return 0;
    case 3:
        read ? value.SetBoolean(m_approx) : void(m_approx = value.GetBoolean());
        return 0;
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
        read ? value.SetDateTime(m_created) : void(m_created = value.GetDateTime());
        return 0;
    case 2:
        AccessString(read, value, m_author);
        return 0;
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
        read ? value.SetDecimal(m_lat) : SetLat(value.GetDecimal());
        return 0;
    case pnLon:
        read ? value.SetDecimal(m_lon) : SetLon(value.GetDecimal());
        return 0;
    case pnLabel:
        read ? value.SetString(m_label) : void(m_label = value.GetString());
        return 0;
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
        read ? value.SetUI2(m_pitches) : void(m_pitches = value.GetUI2());
        return 0;
    case pnOpen:
        read ? value.SetBoolean(m_open) : void(m_open = value.GetBoolean());
        return 0;
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
        read ? value.SetString(m_email) : SetEmail(value.GetString());
        return 0;
    case 2:
        AccessString(read, value, m_phone);
        return 0;
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

template <class T>
static void Adopt(CSmartPtr<T>& member, T* value, const wchar_t* elementName) {
    if (value) value->SetElementName(elementName);
    member = value;
}

void CTrip::SetDistance(CDistance* value) {
    Throw_IfPropertyIsNull(value, L"distance");
    Adopt(m_distance, value, L"distance");
}
void CTrip::SetAudit(CAudit* value) {
    Throw_IfPropertyIsNull(value, L"Audit");
    m_audit = value;
}
void CTrip::SetStart(CPlace* value) {
    Throw_IfPropertyIsNull(value, L"start");
    Adopt(m_start, value, L"start");
}
void CTrip::SetStop(CPlace* value) {
    Adopt(m_stop, value, L"stop");
}
void CTrip::SetContact(CContact* value) {
    Throw_IfPropertyIsNull(value, L"contact");
    Adopt(m_contact, value, L"contact");
}
void CTrip::SetReadings(CReadings* value) {
    Adopt(m_readings, value, L"readings");
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
        read ? value.SetString(m_id) : SetId(value.GetString());
        return 0;
    case pnPaceAttribute:
        read ? value.SetI4(m_paceAttribute) : void(m_paceAttribute = Pace(value.GetI4()));
        return 0;
    case pnVersion:
        read ? value.SetDecimal(m_version) : void(m_version = value.GetDecimal());
        return 0;
    case pnTitle:
        read ? value.SetString(m_title) : SetTitle(value.GetString());
        return 0;
    case pnNote:
        if (read && m_noteNil) {
            value.SetString(L"");
            value.SetNil();
        } else {
            AccessString(read, value, m_note);
            if (!read) m_noteNil = false;
        }
        return 0;
    case pnDays:
        if (!read)
            SetDays(value.GetUI1());
        else if (m_days)
            value.SetUI1(*m_days);
        return 0;
    case pnMode:
        read ? value.SetI4(m_mode) : void(m_mode = TravelMode(value.GetI4()));
        return 0;
    case pnPace:
        if (read) {
            if (m_pace) value.SetI4(*m_pace);
        } else {
            m_pace = Pace(value.GetI4());
        }
        return 0;
    case pnDistance:
        read ? value.SetXmlObject(m_distance.Get()) : SetDistance(ObjectOf<CDistance>(value, L"distance"));
        return 0;
    case pnAudit:
        read ? value.SetXmlObject(m_audit.Get()) : SetAudit(ObjectOf<CAudit>(value, L"Audit"));
        return 0;
    case pnStart:
        read ? value.SetXmlObject(m_start.Get()) : SetStart(ObjectOf<CPlace>(value, L"start"));
        return 0;
    case pnStop:
        read ? value.SetXmlObject(m_stop.Get()) : SetStop(ObjectOf<CPlace>(value, L"stop"));
        return 0;
    case pnContact:
        read ? value.SetXmlObject(m_contact.Get()) : SetContact(ObjectOf<CContact>(value, L"contact"));
        return 0;
    case pnReadings:
        read ? value.SetXmlObject(m_readings.Get()) : SetReadings(ObjectOf<CReadings>(value, L"readings"));
        return 0;
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
