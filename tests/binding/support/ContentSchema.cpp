#include "ContentSchema.h"

using namespace QxXmlLib16Data;

namespace ContentSchema {

namespace {

typedef CWhitespaceUtils W;

const wchar_t* const kShades[] = {L"light", L"dark"};

// A repeated element of a built-in type without facets.
template <class C>
C* NewCol(const wchar_t* name, int minOccurs = 0, int maxOccurs = -1) {
    return new C(name, kNamespace, minOccurs, maxOccurs, L"", -1, -1, L"", L"", L"", L"", -1, -1, -1,
                 W::wsCollapse, L"");
}

CSmartPtr<CXmlObjectBase> CreateOwn(int, const wchar_t* elementName) {
    return new COwn(elementName);
}

} // namespace

const wchar_t* ShadeToText(int value) {
    return EnumToText(kShades, value);
}

int ShadeFromText(const wchar_t* text) {
    return EnumFromText(kShades, text, L"Shade");
}

// --- Own --------------------------------------------------------------------------------------------

COwn::COwn(const wchar_t* elementName)
    : m_any(NewAnyElement(L"##targetNamespace", kNamespace, kNamespace)) {
    SetElementName(elementName);
}

void COwn::SetAny(CElement* value) {
    Throw_IfPropertyIsNull(value, L"AnyElement");
    m_any = value;
}

const CClassMetaData& COwn::MetaData() {
    static const CClassMetaData data(
        new CParentElementInfo(egSequence, etElement, L"Own", kNamespace, true, false, -1, itNone, L"",
                               false),
        {new CElementInfoSeqUntpdMnd(L"AnyElement", kNamespace, 1, L"##targetNamespace", kNamespace)}, {});
    return data;
}

int COwn::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    return propertyNumber == 1 ? AccessObject(read, value, m_any, L"any") : UnknownProperty(propertyNumber);
}

void COwn::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_any = NewAnyElement(L"##targetNamespace", kNamespace, kNamespace);
}

// --- Bag --------------------------------------------------------------------------------------------

CBag::CBag(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CBag::Reset() {
    m_hex = NewCol<ChexBinaryCol>(L"hex");
    m_b64 = NewCol<Cbase64BinaryCol>(L"b64");
    m_i1 = NewCol<Ci1Col>(L"i1");
    m_i2 = NewCol<Ci2Col>(L"i2");
    m_i4 = new Ci4Col(L"i4", kNamespace, 1, 3, L"", -1, -1, L"0", L"100", L"", L"", -1, -1, -1, W::wsCollapse,
                      L"");
    m_i8 = NewCol<Ci8Col>(L"i8");
    m_ui1 = NewCol<Cui1Col>(L"ui1");
    m_ui2 = NewCol<Cui2Col>(L"ui2");
    m_ui4 = NewCol<Cui4Col>(L"ui4");
    m_ui8 = NewCol<Cui8Col>(L"ui8");
    m_r4 = NewCol<Cr4Col>(L"r4");
    m_r8 = NewCol<Cr8Col>(L"r8");
    m_dur = NewCol<CdurationCol>(L"dur");
    m_ym = NewCol<CyearMonthCol>(L"ym");
    m_md = NewCol<CmonthDayCol>(L"md");
    m_yr = NewCol<CyearCol>(L"yr");
    m_mo = NewCol<CmonthCol>(L"mo");
    m_dy = NewCol<CdayCol>(L"dy");
    m_date = NewCol<CdateCol>(L"date", 0, 2);
    m_dt = NewCol<CdatetimeCol>(L"dt");
    m_tm = NewCol<CtimeCol>(L"tm");
    m_str = new CstringCol(L"str", kNamespace, 0, -1, L"", -1, 5, L"", L"", L"", L"", -1, -1, -1,
                           W::wsPreserve, L"");
    m_bool = NewCol<CbooleanCol>(L"bool");
    m_dec = new CdecimalCol(L"dec", kNamespace, 0, -1, L"", -1, -1, L"", L"", L"", L"", -1, 5, 2,
                            W::wsCollapse, L"");
    m_int = NewCol<CintegerCol>(L"int");
    m_shade = new CShadeCol(L"shade", kNamespace, 0, 4);
    m_other = NewAnyElement(L"##other", kNamespace, kNamespace);
    m_local = nullptr;
    m_listed = new CElementCol(kNamespace, L"urn:qx:a urn:qx:b", kNamespace, 0, 3);
    m_own = new COwn(L"own");
    m_rest = new CElementCol(kNamespace, L"##any", kNamespace, 0, -1);
    m_attributes = new CAttributeCol(kNamespace, L"##other", kNamespace);
}

void CBag::SetOwn(COwn* value) {
    Throw_IfPropertyIsNull(value, L"own");
    value->SetElementName(L"own");
    m_own = value;
}

const CClassMetaData& CBag::MetaData() {
    static const CClassMetaData data(
        // Attributes the wildcard refuses are reported rather than dropped unseen.
        new CParentElementInfo(egSequence, etElement, L"Bag", kNamespace, true, false, -1, itNone, L"",
                               false),
        {new CElementInfoSeqPrimCol(L"hex", kNamespace, 1),
         new CElementInfoSeqPrimCol(L"b64", kNamespace, 2),
         new CElementInfoSeqPrimCol(L"i1", kNamespace, 3),
         new CElementInfoSeqPrimCol(L"i2", kNamespace, 4),
         new CElementInfoSeqPrimCol(L"i4", kNamespace, 5),
         new CElementInfoSeqPrimCol(L"i8", kNamespace, 6),
         new CElementInfoSeqPrimCol(L"ui1", kNamespace, 7),
         new CElementInfoSeqPrimCol(L"ui2", kNamespace, 8),
         new CElementInfoSeqPrimCol(L"ui4", kNamespace, 9),
         new CElementInfoSeqPrimCol(L"ui8", kNamespace, 10),
         new CElementInfoSeqPrimCol(L"r4", kNamespace, 11),
         new CElementInfoSeqPrimCol(L"r8", kNamespace, 12),
         new CElementInfoSeqPrimCol(L"dur", kNamespace, 13),
         new CElementInfoSeqPrimCol(L"ym", kNamespace, 14),
         new CElementInfoSeqPrimCol(L"md", kNamespace, 15),
         new CElementInfoSeqPrimCol(L"yr", kNamespace, 16),
         new CElementInfoSeqPrimCol(L"mo", kNamespace, 17),
         new CElementInfoSeqPrimCol(L"dy", kNamespace, 18),
         new CElementInfoSeqPrimCol(L"date", kNamespace, 19),
         new CElementInfoSeqPrimCol(L"dt", kNamespace, 20),
         new CElementInfoSeqPrimCol(L"tm", kNamespace, 21),
         new CElementInfoSeqPrimCol(L"str", kNamespace, 22),
         new CElementInfoSeqPrimCol(L"bool", kNamespace, 23),
         new CElementInfoSeqPrimCol(L"dec", kNamespace, 24),
         new CElementInfoSeqPrimCol(L"int", kNamespace, 25),
         new CElementInfoSeqEnumCol(L"shade", kNamespace, 26),
         new CElementInfoSeqUntpdMnd(L"AnyElement", kNamespace, 27, L"##other", kNamespace),
         new CElementInfoSeqUntpdOpt(L"AnyElement", kNamespace, 28, L"##local", kNamespace),
         new CElementInfoSeqUntpdCol(L"AnyElement", kNamespace, 29),
         new CElementInfoSeqClsMnd(L"own", kNamespace, 30, etElement, CreateOwn, 0, false),
         new CElementInfoSeqUntpdCol(L"AnyElement", kNamespace, 31)},
        {new CAttributeInfoAny(L"AnyAttribute", L"", 32, true, L"", L"##other", kNamespace)});
    return data;
}

int CBag::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case 1:
        return AccessCollection(read, value, m_hex, L"hex");
    case 2:
        return AccessCollection(read, value, m_b64, L"b64");
    case 3:
        return AccessCollection(read, value, m_i1, L"i1");
    case 4:
        return AccessCollection(read, value, m_i2, L"i2");
    case 5:
        return AccessCollection(read, value, m_i4, L"i4");
    case 6:
        return AccessCollection(read, value, m_i8, L"i8");
    case 7:
        return AccessCollection(read, value, m_ui1, L"ui1");
    case 8:
        return AccessCollection(read, value, m_ui2, L"ui2");
    case 9:
        return AccessCollection(read, value, m_ui4, L"ui4");
    case 10:
        return AccessCollection(read, value, m_ui8, L"ui8");
    case 11:
        return AccessCollection(read, value, m_r4, L"r4");
    case 12:
        return AccessCollection(read, value, m_r8, L"r8");
    case 13:
        return AccessCollection(read, value, m_dur, L"dur");
    case 14:
        return AccessCollection(read, value, m_ym, L"ym");
    case 15:
        return AccessCollection(read, value, m_md, L"md");
    case 16:
        return AccessCollection(read, value, m_yr, L"yr");
    case 17:
        return AccessCollection(read, value, m_mo, L"mo");
    case 18:
        return AccessCollection(read, value, m_dy, L"dy");
    case 19:
        return AccessCollection(read, value, m_date, L"date");
    case 20:
        return AccessCollection(read, value, m_dt, L"dt");
    case 21:
        return AccessCollection(read, value, m_tm, L"tm");
    case 22:
        return AccessCollection(read, value, m_str, L"str");
    case 23:
        return AccessCollection(read, value, m_bool, L"bool");
    case 24:
        return AccessCollection(read, value, m_dec, L"dec");
    case 25:
        return AccessCollection(read, value, m_int, L"int");
    case 26:
        return AccessCollection(read, value, m_shade, L"shade");
    case 27:
        return AccessObject(read, value, m_other, L"other");
    case 28:
        return AccessObject(read, value, m_local, L"local");
    case 29:
        return AccessCollection(read, value, m_listed, L"listed");
    case 30:
        return AccessObject(read, value, m_own, L"own");
    case 31:
        return AccessCollection(read, value, m_rest, L"rest");
    case 32:
        return AccessCollection(read, value, m_attributes, L"attributes");
    }
    return UnknownProperty(propertyNumber);
}

void CBag::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

} // namespace ContentSchema
