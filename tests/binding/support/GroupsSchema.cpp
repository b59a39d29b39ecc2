#include "GroupsSchema.h"

using namespace QxXmlLib16Data;

namespace GroupsSchema {

namespace {

typedef CWhitespaceUtils W;
const CPrimitiveRestrictions kNoFacets;
const CPrimitiveRestrictions kCountFacets(L"", -1, -1, L"0", L"99", L"", L"", -1, -1, -1);

const wchar_t* const kColours[] = {L"red", L"green", L"blue"};

void CheckCount(long value) {
    CXmlObjectHelper::CheckRestrictionFori4(L"count", value, kCountFacets);
}

CParentElementInfo* ClassInfo(XmlElementGroupType group, const wchar_t* typeName, bool derived = false,
                              bool reportUnknownAttributes = true) {
    return new CParentElementInfo(group, etElement, typeName, kNamespace, reportUnknownAttributes, derived,
                                  -1, itNone, L"", false);
}

// A group reads its parent's element, whose other attributes are not its business.
CParentElementInfo* GroupInfo(XmlElementGroupType group, const wchar_t* groupName) {
    return new CParentElementInfo(group, etGroup, groupName, kNamespace, false, false, -1, itNone, L"",
                                  false);
}

} // namespace

const wchar_t* ColourToText(int value) {
    return EnumToText(kColours, value);
}

int ColourFromText(const wchar_t* text) {
    return EnumFromText(kColours, text, L"Colour");
}

CSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName) {
    switch (classNumber) {
    case cnPalette:
        return new CPalette(elementName);
    case cnLabel:
        return new CLabel(elementName);
    case cnStamp:
        return new CStamp(elementName);
    case cnItem:
        return new CItem(elementName);
    case cnPick:
        return new CPick(elementName);
    case cnBag:
        return new CBag(elementName);
    }
    return nullptr;
}

CSmartPtr<CXmlObjectBase> CreateShape(CXmlElement* element) {
    const std::wstring name = element->GetLocalName();
    if (CClassfactoryBase::GetElementTypeNamespaceUri(element) != kNamespace) return nullptr;
    const std::wstring type = CClassfactoryBase::GetElementType(element);
    if (type == L"Circle") return new CCircle(name.c_str());
    if (type == L"Square") return new CSquare(name.c_str());
    return nullptr;
}

// --- Item -------------------------------------------------------------------------------------------

CItem::CItem(const wchar_t* elementName, long id)
    : m_id(id) {
    SetElementName(elementName);
}

const CClassMetaData& CItem::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egSequence, L"Item"), {},
        {new CAttributeInfoPrimitive(L"id", L"", 1, false, itI4, L"", W::wsCollapse, kNoFacets, L"")});
    return data;
}

int CItem::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != 1) return UnknownProperty(propertyNumber);
    return AccessValue<itI4>(read, value, m_id, this, &CItem::SetId);
}

void CItem::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_id = 0;
}

// --- Shape and its derived types ---------------------------------------------------------------------

CShape::CShape(const wchar_t* elementName) {
    SetElementName(elementName);
}

int CShape::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != pnColour) return UnknownProperty(propertyNumber);
    return AccessValue<itI4>(read, value, m_colour);
}

void CShape::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_colour.reset();
}

CCircle::CCircle(const wchar_t* elementName, const wchar_t* radius)
    : CGroupsClass(elementName)
    , m_radius(radius) {}

const CClassMetaData& CCircle::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egSequence, L"Circle", true), {},
        {new CAttributeInfoEnum(L"colour", L"", pnColour, true, ColourToText, ColourFromText, L""),
         new CAttributeInfoPrimitive(L"radius", L"", pnLast + 1, false, itDecimal, L"", W::wsCollapse,
                                     kNoFacets, L"")});
    return data;
}

int CCircle::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != pnLast + 1) return CShape::AccessProperty(propertyNumber, read, value);
    return AccessValue<itDecimal>(read, value, m_radius, this, &CCircle::SetRadius);
}

void CCircle::OnBeforeFromXml(CXmlElement* element, CXmlElement* first, const CSerializationContext& context,
                              bool flag) {
    CShape::OnBeforeFromXml(element, first, context, flag);
    m_radius = CDecimal();
}

CSquare::CSquare(const wchar_t* elementName, const wchar_t* side)
    : CGroupsClass(elementName)
    , m_side(side) {}

const CClassMetaData& CSquare::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egSequence, L"Square", true), {},
        {new CAttributeInfoEnum(L"colour", L"", pnColour, true, ColourToText, ColourFromText, L""),
         new CAttributeInfoPrimitive(L"side", L"", pnLast + 1, false, itDecimal, L"", W::wsCollapse,
                                     kNoFacets, L"")});
    return data;
}

int CSquare::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    if (propertyNumber != pnLast + 1) return CShape::AccessProperty(propertyNumber, read, value);
    return AccessValue<itDecimal>(read, value, m_side, this, &CSquare::SetSide);
}

void CSquare::OnBeforeFromXml(CXmlElement* element, CXmlElement* first, const CSerializationContext& context,
                              bool flag) {
    CShape::OnBeforeFromXml(element, first, context, flag);
    m_side = CDecimal();
}

// --- Pick -------------------------------------------------------------------------------------------

namespace {
enum PickProperty : int { pnPickItem = 1, pnPickShape, pnPickCount, pnPickColour, pnPickAny };
}

CPick::CPick(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CPick::Reset() {
    m_item = nullptr;
    m_shape = nullptr;
    m_count.reset();
    m_colour.reset();
    m_any = nullptr;
}

void CPick::SetItem(CItem* value) {
    Reset();
    AdoptChild(m_item, value, L"item");
}
void CPick::SetShape(CShape* value) {
    Reset();
    AdoptChild(m_shape, value, L"shape");
}
void CPick::SetCount(long value) {
    CheckCount(value);
    Reset();
    m_count = value;
}
void CPick::SetColour(Colour value) {
    Reset();
    m_colour = value;
}
void CPick::SetAny(CElement* value) {
    Reset();
    m_any = value;
}

const CClassMetaData& CPick::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egChoice, L"Pick"),
        {new CElementInfoChoiceClsOpt(L"item", kNamespace, pnPickItem, etElement, CreateClass, cnItem),
         new CElementInfoChoiceAbsClsOpt(L"shape", kNamespace, pnPickShape, etElement, CreateShape),
         new CElementInfoChoicePrimOpt(L"count", kNamespace, pnPickCount, false, itI4, L"", W::wsCollapse,
                                       kCountFacets, L""),
         new CElementInfoChoiceEnumOpt(L"colour", kNamespace, pnPickColour, false, ColourToText,
                                       ColourFromText, L""),
         new CElementInfoChoiceUntpdOpt(L"AnyElement", L"", pnPickAny, L"##other", kNamespace)},
        {});
    return data;
}

int CPick::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPickItem:
        return AccessObject(read, value, m_item, L"item", this, &CPick::SetItem);
    case pnPickShape:
        return AccessObject(read, value, m_shape, L"shape", this, &CPick::SetShape);
    case pnPickCount:
        return AccessValue<itI4>(read, value, m_count, this, &CPick::SetCount);
    case pnPickColour:
        return AccessValue<itI4>(read, value, m_colour, this, &CPick::SetColour);
    case pnPickAny:
        return AccessObject(read, value, m_any, L"AnyElement", this, &CPick::SetAny);
    }
    return UnknownProperty(propertyNumber);
}

void CPick::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

CPickCol::CPickCol()
    : CXmlCollection(L"pick", kNamespace, 1, -1) {}

CPick* CPickCol::Add() {
    CSmartPtr<CPick> pick(new CPick(L"pick"));
    AppendItem(pick.Get());
    return pick.Get();
}

void CPickCol::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                         const CSerializationContext& context, bool flag) const {
    for (CXmlObjectBase* item : *this)
        CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
}

CXmlElement* CPickCol::FromXml_Int(CXmlElement*, CXmlElement* current, const CSerializationContext& context,
                                   bool) {
    for (; CXmlObjectHelper::DoesElementNameMatch(context, current, L"pick", kNamespace);
         current = current->GetNextSiblingElement())
        CXmlObjectBase::FromXml_Int(Add(), current, current->GetFirstElement(), context);
    return current;
}

// --- Entry, Palette ---------------------------------------------------------------------------------

namespace {
enum EntryProperty : int { pnEntryCount = 1, pnEntryNote };
enum PaletteProperty : int {
    pnPaletteItems = 1,
    pnPaletteColours,
    pnPaletteEntries,
    pnPaletteShapes,
    pnPaletteSizes,
    pnPaletteOthers
};
} // namespace

CEntry::CEntry(const wchar_t* elementName) {
    SetElementName(elementName);
}

void CEntry::SetCount(long value) {
    CheckCount(value);
    m_note.reset();
    m_count = value;
}
void CEntry::SetNote(std::wstring value) {
    m_count.reset();
    m_note = std::move(value);
}

const CClassMetaData& CEntry::MetaData() {
    static const CClassMetaData data(
        GroupInfo(egChoice, L"Entry"),
        {new CElementInfoChoicePrimOpt(L"count", kNamespace, pnEntryCount, false, itI4, L"", W::wsCollapse,
                                       kCountFacets, L""),
         new CElementInfoChoicePrimOpt(L"note", kNamespace, pnEntryNote, false, itString, L"", W::wsPreserve,
                                       kNoFacets, L"")},
        {});
    return data;
}

int CEntry::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnEntryCount:
        return AccessValue<itI4>(read, value, m_count, this, &CEntry::SetCount);
    case pnEntryNote:
        return AccessValue<itString>(read, value, m_note, this, &CEntry::SetNote);
    }
    return UnknownProperty(propertyNumber);
}

void CEntry::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_count.reset();
    m_note.reset();
}

CEntryCol::CEntryCol(int minOccurs)
    : CXmlCollection(L"Entry", kNamespace, minOccurs, -1) {}

CEntry* CEntryCol::Add() {
    CSmartPtr<CEntry> entry(new CEntry());
    AppendItem(entry.Get());
    return entry.Get();
}

void CEntryCol::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                          const CSerializationContext& context, bool flag) const {
    for (CXmlObjectBase* item : *this)
        CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
}

CXmlElement* CEntryCol::FromXml_Int(CXmlElement* parent, CXmlElement* current,
                                    const CSerializationContext& context, bool) {
    while (current) {
        CSmartPtr<CEntry> entry(new CEntry());
        CXmlElement* stopped = CXmlObjectBase::FromXml_Int(entry.Get(), parent, current, context);
        if (stopped == current) break;
        AppendItem(entry.Get());
        current = stopped;
    }
    return current;
}

CPalette::CPalette(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CPalette::Reset() {
    m_items = new CItemCol(L"item", kNamespace, 1, -1);
    m_colours = new CColourCol(L"colour", kNamespace, 2, 3);
    m_entries = new CEntryCol(1);
    m_shapes = new CShapeCol(L"shape", kNamespace, 1, -1, CreateShape);
    m_sizes = new CdecimalCol(L"size", kNamespace, 1, 4, L"", -1, -1, L"", L"", L"", L"", -1, -1, -1,
                              W::wsCollapse, L"");
    m_others = new CElementCol(L"", L"##other", kNamespace, 1, -1);
}

const CClassMetaData& CPalette::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egChoice, L"Palette"),
        {new CElementInfoChoiceClsCol(L"item", kNamespace, pnPaletteItems, etElement),
         new CElementInfoChoiceEnumCol(L"colour", kNamespace, pnPaletteColours),
         new CElementInfoChoiceCol(L"Entry", kNamespace, pnPaletteEntries),
         new CElementInfoChoiceAbsClsCol(L"shape", kNamespace, pnPaletteShapes, etElement),
         new CElementInfoChoicePrimCol(L"size", kNamespace, pnPaletteSizes),
         new CElementInfoChoiceUntpdCol(L"AnyElement", kNamespace, pnPaletteOthers)},
        {});
    return data;
}

int CPalette::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPaletteItems:
        return AccessCollection(read, value, m_items, L"item");
    case pnPaletteColours:
        return AccessCollection(read, value, m_colours, L"colour");
    case pnPaletteEntries:
        return AccessCollection(read, value, m_entries, L"Entry");
    case pnPaletteShapes:
        return AccessCollection(read, value, m_shapes, L"shape");
    case pnPaletteSizes:
        return AccessCollection(read, value, m_sizes, L"size");
    case pnPaletteOthers:
        return AccessCollection(read, value, m_others, L"AnyElement");
    }
    return UnknownProperty(propertyNumber);
}

void CPalette::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

// --- Stamp, Label -----------------------------------------------------------------------------------

namespace {
enum StampProperty : int { pnStampSigned = 1, pnStampBy };
enum LabelProperty : int { pnLabelText = 1, pnLabelStamp };
} // namespace

CStamp::CStamp(const wchar_t* elementName) {
    SetElementName(elementName);
}

const CClassMetaData& CStamp::MetaData() {
    static const CClassMetaData data(
        GroupInfo(egSequence, L"Stamp"),
        {new CElementInfoSeqPrimMnd(L"by", kNamespace, pnStampBy, false, itString, L"", W::wsPreserve,
                                    kNoFacets, L"")},
        {new CAttributeInfoPrimitive(L"signed", L"", pnStampSigned, false, itBoolean, L"", W::wsCollapse,
                                     kNoFacets, L"")});
    return data;
}

int CStamp::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnStampSigned:
        return AccessValue<itBoolean>(read, value, m_signed, this, &CStamp::SetSigned);
    case pnStampBy:
        return AccessValue<itString>(read, value, m_by, this, &CStamp::SetBy);
    }
    return UnknownProperty(propertyNumber);
}

void CStamp::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_by.clear();
    m_signed = false;
}

CLabel::CLabel(const wchar_t* elementName)
    : m_stamp(new CStamp()) {
    SetElementName(elementName);
}

const CClassMetaData& CLabel::MetaData() {
    // The Stamp group's attributes stand on this element, and only the group reads them.
    static const CClassMetaData data(
        ClassInfo(egSequence, L"Label", false, false),
        {new CElementInfoSeqPrimMnd(L"text", kNamespace, pnLabelText, false, itString, L"", W::wsPreserve,
                                    kNoFacets, L""),
         new CElementInfoSeqClsMnd(L"Stamp", kNamespace, pnLabelStamp, etGroup, CreateClass, cnStamp, true)},
        {});
    return data;
}

int CLabel::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnLabelText:
        return AccessValue<itString>(read, value, m_text, this, &CLabel::SetText);
    case pnLabelStamp:
        return AccessObject(read, value, m_stamp, L"Stamp");
    }
    return UnknownProperty(propertyNumber);
}

void CLabel::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    m_text.clear();
    m_stamp = new CStamp();
}

// --- Bag --------------------------------------------------------------------------------------------

namespace {
enum BagProperty : int {
    pnBagItem = 1,
    pnBagShape,
    pnBagCount,
    pnBagColour,
    pnBagExtra,
    pnBagSpare,
    pnBagFigure,
    pnBagNote,
    pnBagTint,
    pnBagMore
};
}

CBag::CBag(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CBag::Reset() {
    m_item = new CItem(L"item");
    m_shape = new CCircle(L"shape");
    m_count = 0;
    m_colour = Colour_red;
    m_extra = new CElement(L"extra", kNamespace);
    m_spare = nullptr;
    m_figure = nullptr;
    m_note.reset();
    m_tint.reset();
    m_more = nullptr;
}

void CBag::SetShape(CShape* value) {
    AdoptMandatoryChild(m_shape, value, L"shape");
}
void CBag::SetCount(long value) {
    CheckCount(value);
    m_count = value;
}
void CBag::SetSpare(CItem* value) {
    AdoptChild(m_spare, value, L"spare");
}
void CBag::SetFigure(CShape* value) {
    AdoptChild(m_figure, value, L"figure");
}
void CBag::SetMore(CElement* value) {
    m_more = value;
}

const CClassMetaData& CBag::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egAll, L"Bag"),
        {new CElementInfoAllClsMnd(L"item", kNamespace, pnBagItem, etElement, CreateClass, cnItem, false),
         new CElementInfoAllAbsClsMnd(L"shape", kNamespace, pnBagShape, etElement, CreateShape, 0),
         new CElementInfoAllPrimMnd(L"count", kNamespace, pnBagCount, false, itI4, L"", W::wsCollapse,
                                    kCountFacets, L""),
         new CElementInfoAllEnumMnd(L"colour", kNamespace, pnBagColour, false, ColourToText, ColourFromText,
                                    L""),
         new CElementInfoAllUntpdMnd(L"extra", kNamespace, pnBagExtra, L"##targetNamespace", kNamespace),
         new CElementInfoAllClsOpt(L"spare", kNamespace, pnBagSpare, etElement, CreateClass, cnItem),
         new CElementInfoAllAbsClsOpt(L"figure", kNamespace, pnBagFigure, etElement, CreateShape),
         new CElementInfoAllPrimOpt(L"note", kNamespace, pnBagNote, false, itString, L"", W::wsPreserve,
                                    kNoFacets, L""),
         new CElementInfoAllEnumOpt(L"tint", kNamespace, pnBagTint, false, ColourToText, ColourFromText, L""),
         new CElementInfoAllUntpdOpt(L"more", kNamespace, pnBagMore, L"##targetNamespace", kNamespace)},
        {});
    return data;
}

int CBag::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnBagItem:
        return AccessObject(read, value, m_item, L"item");
    case pnBagShape:
        return AccessObject(read, value, m_shape, L"shape", this, &CBag::SetShape);
    case pnBagCount:
        return AccessValue<itI4>(read, value, m_count, this, &CBag::SetCount);
    case pnBagColour:
        return AccessValue<itI4>(read, value, m_colour, this, &CBag::SetColour);
    case pnBagExtra:
        return AccessObject(read, value, m_extra, L"extra");
    case pnBagSpare:
        return AccessObject(read, value, m_spare, L"spare", this, &CBag::SetSpare);
    case pnBagFigure:
        return AccessObject(read, value, m_figure, L"figure", this, &CBag::SetFigure);
    case pnBagNote:
        return AccessValue<itString>(read, value, m_note);
    case pnBagTint:
        return AccessValue<itI4>(read, value, m_tint);
    case pnBagMore:
        return AccessObject(read, value, m_more, L"more", this, &CBag::SetMore);
    }
    return UnknownProperty(propertyNumber);
}

void CBag::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

// --- Groups -----------------------------------------------------------------------------------------

namespace {
enum GroupsProperty : int { pnPicks = 1, pnBag, pnMain, pnAlt, pnFigures, pnPalettes, pnLabel, pnEntries };
}

CGroups::CGroups(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CGroups::Reset() {
    m_picks = new CPickCol();
    m_bag = new CBag(L"bag");
    m_main = new CSquare(L"main");
    m_alt = nullptr;
    m_figures = new CShapeCol(L"figure", kNamespace, 0, -1, CreateShape);
    m_palettes = new TXmlClassCollection<CPalette>(L"palette", kNamespace, 0, -1);
    m_label = nullptr;
    m_entries = new CEntryCol(0);
}

void CGroups::SetMain(CShape* value) {
    AdoptMandatoryChild(m_main, value, L"main");
}
void CGroups::SetAlt(CShape* value) {
    AdoptChild(m_alt, value, L"alt");
}
void CGroups::SetLabel(CLabel* value) {
    AdoptChild(m_label, value, L"label");
}

const CClassMetaData& CGroups::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egSequence, L"Groups"),
        {new CElementInfoSeqClsCol(L"pick", kNamespace, pnPicks, etElement),
         new CElementInfoSeqClsMnd(L"bag", kNamespace, pnBag, etElement, CreateClass, cnBag, false),
         new CElementInfoSeqAbsClsMnd(L"main", kNamespace, pnMain, etElement, CreateShape),
         new CElementInfoSeqAbsClsOpt(L"alt", kNamespace, pnAlt, etElement, CreateShape),
         new CElementInfoSeqAbsClsCol(L"figure", kNamespace, pnFigures, etElement),
         new CElementInfoSeqClsCol(L"palette", kNamespace, pnPalettes, etElement),
         new CElementInfoSeqClsOpt(L"label", kNamespace, pnLabel, etElement, CreateClass, cnLabel),
         new CElementInfoSeqCol(L"Entry", kNamespace, pnEntries)},
        {});
    return data;
}

int CGroups::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnPicks:
        return AccessCollection(read, value, m_picks, L"pick");
    case pnBag:
        return AccessObject(read, value, m_bag, L"bag");
    case pnMain:
        return AccessObject(read, value, m_main, L"main", this, &CGroups::SetMain);
    case pnAlt:
        return AccessObject(read, value, m_alt, L"alt", this, &CGroups::SetAlt);
    case pnFigures:
        return AccessCollection(read, value, m_figures, L"figure");
    case pnPalettes:
        return AccessCollection(read, value, m_palettes, L"palette");
    case pnLabel:
        return AccessObject(read, value, m_label, L"label", this, &CGroups::SetLabel);
    case pnEntries:
        return AccessCollection(read, value, m_entries, L"Entry");
    }
    return UnknownProperty(propertyNumber);
}

void CGroups::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

// --- Crate ------------------------------------------------------------------------------------------

namespace {
enum CrateProperty : int { pnCrateItems = 1, pnCrateShapes, pnCrateCounts, pnCratePicks, pnCrateExtras };
}

CCrate::CCrate(const wchar_t* elementName) {
    SetElementName(elementName);
    Reset();
}

void CCrate::Reset() {
    m_items = new CItemCol(L"item", kNamespace, 1, 3);
    m_shapes = new CShapeCol(L"shape", kNamespace, 0, -1, CreateShape);
    m_counts = new Ci4Col(L"count", kNamespace, 0, -1, L"", -1, -1, L"0", L"99", L"", L"", -1, -1, -1,
                          W::wsCollapse, L"");
    m_picks = new CPickCol();
    m_extras = new CElementCol(L"", L"##other", kNamespace, 0, -1);
}

const CClassMetaData& CCrate::MetaData() {
    static const CClassMetaData data(
        ClassInfo(egAll, L"Crate"),
        {new CElementInfoAllClsCol(L"item", kNamespace, pnCrateItems, etElement),
         new CElementInfoAllAbsClsCol(L"shape", kNamespace, pnCrateShapes, etElement),
         new CElementInfoAllPrimCol(L"count", kNamespace, pnCrateCounts),
         new CElementInfoAllCol(L"pick", kNamespace, pnCratePicks),
         new CElementInfoAllUntpdCol(L"AnyElement", kNamespace, pnCrateExtras)},
        {});
    return data;
}

int CCrate::AccessProperty(int propertyNumber, bool read, QxVariant& value) {
    switch (propertyNumber) {
    case pnCrateItems:
        return AccessCollection(read, value, m_items, L"item");
    case pnCrateShapes:
        return AccessCollection(read, value, m_shapes, L"shape");
    case pnCrateCounts:
        return AccessCollection(read, value, m_counts, L"count");
    case pnCratePicks:
        return AccessCollection(read, value, m_picks, L"pick");
    case pnCrateExtras:
        return AccessCollection(read, value, m_extras, L"AnyElement");
    }
    return UnknownProperty(propertyNumber);
}

void CCrate::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    Reset();
}

} // namespace GroupsSchema
