#pragma once

// Bindings of groups.xsd (namespace urn:qx:test:groups), written as the code generator emits them.

#include <QxXmlLib16/QxXmlLib16.h>

#include <optional>
#include <string>

namespace GroupsSchema {

using namespace QxXmlLib16;

constexpr const wchar_t* kNamespace = L"urn:qx:test:groups";

enum Colour : int { Colour_red, Colour_green, Colour_blue };
const wchar_t* ColourToText(int value);
int ColourFromText(const wchar_t* text);

enum ClassNumber : int { cnItem, cnPick, cnBag, cnPalette, cnLabel, cnStamp };
CSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName);
// The concrete Shape named by the element's xsi:type; none without one, since Shape is abstract.
CSmartPtr<CXmlObjectBase> CreateShape(CXmlElement* element);

// Every class of the schema is in its namespace; T supplies MetaData().
template <class T, class Base = CXmlGeneratedClass>
class CGroupsClass : public TGeneratedClass<T, Base> {
public:
    using TGeneratedClass<T, Base>::TGeneratedClass;
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }
};

class CItem : public CGroupsClass<CItem> {
public:
    explicit CItem(const wchar_t* elementName = L"Item", long id = 0);
    long GetId() const { return m_id; }
    void SetId(long value) { m_id = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    long m_id;
};

// Abstract: an element of this type always holds a Circle or a Square, named by xsi:type.
class CShape : public CXmlGeneratedClass {
public:
    const std::optional<Colour>& GetColour() const { return m_colour; }
    void SetColour(std::optional<Colour> value) { m_colour = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;

protected:
    explicit CShape(const wchar_t* elementName);
    enum { pnColour = 1, pnLast = pnColour };

private:
    std::optional<Colour> m_colour;
};

class CCircle : public CGroupsClass<CCircle, CShape> {
public:
    explicit CCircle(const wchar_t* elementName = L"Circle", const wchar_t* radius = L"1");
    const CDecimal& GetRadius() const { return m_radius; }
    void SetRadius(const CDecimal& value) { m_radius = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    CDecimal m_radius;
};

class CSquare : public CGroupsClass<CSquare, CShape> {
public:
    explicit CSquare(const wchar_t* elementName = L"Square", const wchar_t* side = L"1");
    const CDecimal& GetSide() const { return m_side; }
    void SetSide(const CDecimal& value) { m_side = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    CDecimal m_side;
};

typedef TXmlClassCollection<CItem> CItemCol;
// Items are Circles and Squares, chosen by each element's xsi:type.
typedef TXmlClassCollection<CShape> CShapeCol;

typedef TEnumCol<Colour, ColourToText, ColourFromText> CColourCol;

// A choice: setting one alternative clears the others.
class CPick : public CGroupsClass<CPick> {
public:
    explicit CPick(const wchar_t* elementName = L"Pick");

    CItem* GetItem() const { return m_item.Get(); }
    void SetItem(CItem* value);
    CShape* GetShape() const { return m_shape.Get(); }
    void SetShape(CShape* value);
    const std::optional<long>& GetCount() const { return m_count; }
    void SetCount(long value);
    const std::optional<Colour>& GetColour() const { return m_colour; }
    void SetColour(Colour value);
    // Any element of another namespace.
    CElement* GetAny() const { return m_any.Get(); }
    void SetAny(CElement* value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    void Reset();
    CSmartPtr<CItem> m_item;
    CSmartPtr<CShape> m_shape;
    std::optional<long> m_count;
    std::optional<Colour> m_colour;
    CSmartPtr<CElement> m_any;
};

// The repeated pick of Groups.
class CPickCol : public CXmlCollection {
public:
    CPickCol();
    CPick* Add();
    CPick* GetPick(int index) const { return static_cast<CPick*>(Item(index)); }

    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;
};

// One turn of the repeated choice of Palette: a count or a note. A group: its content stands inline.
class CEntry : public CGroupsClass<CEntry> {
public:
    explicit CEntry(const wchar_t* elementName = L"Entry");
    const std::optional<long>& GetCount() const { return m_count; }
    void SetCount(long value);
    const std::optional<std::wstring>& GetNote() const { return m_note; }
    void SetNote(std::wstring value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    std::optional<long> m_count;
    std::optional<std::wstring> m_note;
};

// The turns of the repeated choice, read while a new entry finds content of its own.
class CEntryCol : public CXmlCollection {
public:
    explicit CEntryCol(int minOccurs);
    CEntry* Add();
    CEntry* GetEntry(int index) const { return static_cast<CEntry*>(Item(index)); }

    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;
};

// A choice of repeated alternatives: items, two or three colours, a run of entries, shapes, sizes
// or elements of other namespaces.
class CPalette : public CGroupsClass<CPalette> {
public:
    explicit CPalette(const wchar_t* elementName = L"Palette");
    CItemCol* GetItems() const { return m_items.Get(); }
    CColourCol* GetColours() const { return m_colours.Get(); }
    CEntryCol* GetEntries() const { return m_entries.Get(); }
    CShapeCol* GetShapes() const { return m_shapes.Get(); }
    CdecimalCol* GetSizes() const { return m_sizes.Get(); }
    CElementCol* GetOthers() const { return m_others.Get(); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    void Reset();
    CSmartPtr<CItemCol> m_items;
    CSmartPtr<CColourCol> m_colours;
    CSmartPtr<CEntryCol> m_entries;
    CSmartPtr<CShapeCol> m_shapes;
    CSmartPtr<CdecimalCol> m_sizes;
    CSmartPtr<CElementCol> m_others;
};

// The Stamp group with its attribute group: "by" stands among the parent's children, "signed" on
// the parent's element.
class CStamp : public CGroupsClass<CStamp> {
public:
    explicit CStamp(const wchar_t* elementName = L"Stamp");
    const std::wstring& GetBy() const { return m_by; }
    void SetBy(std::wstring value) { m_by = std::move(value); }
    bool GetSigned() const { return m_signed; }
    void SetSigned(bool value) { m_signed = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    std::wstring m_by;
    bool m_signed = false;
};

class CLabel : public CGroupsClass<CLabel> {
public:
    explicit CLabel(const wchar_t* elementName = L"Label");
    const std::wstring& GetText() const { return m_text; }
    void SetText(std::wstring value) { m_text = std::move(value); }
    CStamp* GetStamp() const { return m_stamp.Get(); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    std::wstring m_text;
    CSmartPtr<CStamp> m_stamp;
};

// An all group: members in any order; mandatory class members always exist.
class CBag : public CGroupsClass<CBag> {
public:
    explicit CBag(const wchar_t* elementName = L"Bag");

    CItem* GetItem() const { return m_item.Get(); }
    CShape* GetShape() const { return m_shape.Get(); }
    void SetShape(CShape* value);
    long GetCount() const { return m_count; }
    void SetCount(long value);
    Colour GetColour() const { return m_colour; }
    void SetColour(Colour value) { m_colour = value; }
    CElement* GetExtra() const { return m_extra.Get(); }
    CItem* GetSpare() const { return m_spare.Get(); }
    void SetSpare(CItem* value);
    CShape* GetFigure() const { return m_figure.Get(); }
    void SetFigure(CShape* value);
    const std::optional<std::wstring>& GetNote() const { return m_note; }
    void SetNote(std::optional<std::wstring> value) { m_note = std::move(value); }
    const std::optional<Colour>& GetTint() const { return m_tint; }
    void SetTint(std::optional<Colour> value) { m_tint = value; }
    CElement* GetMore() const { return m_more.Get(); }
    void SetMore(CElement* value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    void Reset();
    CSmartPtr<CItem> m_item;
    CSmartPtr<CShape> m_shape;
    long m_count;
    Colour m_colour;
    CSmartPtr<CElement> m_extra;
    CSmartPtr<CItem> m_spare;
    CSmartPtr<CShape> m_figure;
    std::optional<std::wstring> m_note;
    std::optional<Colour> m_tint;
    CSmartPtr<CElement> m_more;
};

// The document element.
class CGroups : public CGroupsClass<CGroups> {
public:
    explicit CGroups(const wchar_t* elementName = L"groups");

    CPickCol* GetPicks() const { return m_picks.Get(); }
    CBag* GetBag() const { return m_bag.Get(); }
    CShape* GetMain() const { return m_main.Get(); }
    void SetMain(CShape* value);
    CShape* GetAlt() const { return m_alt.Get(); }
    void SetAlt(CShape* value);
    CShapeCol* GetFigures() const { return m_figures.Get(); }
    TXmlClassCollection<CPalette>* GetPalettes() const { return m_palettes.Get(); }
    CLabel* GetLabel() const { return m_label.Get(); }
    void SetLabel(CLabel* value);
    // The closing run of counts and notes.
    CEntryCol* GetEntries() const { return m_entries.Get(); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    void Reset();
    CSmartPtr<CPickCol> m_picks;
    CSmartPtr<CBag> m_bag;
    CSmartPtr<CShape> m_main;
    CSmartPtr<CShape> m_alt;
    CSmartPtr<CShapeCol> m_figures;
    CSmartPtr<TXmlClassCollection<CPalette>> m_palettes;
    CSmartPtr<CLabel> m_label;
    CSmartPtr<CEntryCol> m_entries;
};

// An all group whose members repeat. XML Schema 1.0 allows no xs:all member more than once, so this
// type is not in groups.xsd: only our loader reads it. Repeated all members never count as found and
// are held to their counts only when written.
class CCrate : public CGroupsClass<CCrate> {
public:
    explicit CCrate(const wchar_t* elementName = L"crate");
    CItemCol* GetItems() const { return m_items.Get(); }
    CShapeCol* GetShapes() const { return m_shapes.Get(); }
    Ci4Col* GetCounts() const { return m_counts.Get(); }
    CPickCol* GetPicks() const { return m_picks.Get(); }
    CElementCol* GetExtras() const { return m_extras.Get(); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    static const CClassMetaData& MetaData();

private:
    void Reset();
    CSmartPtr<CItemCol> m_items;
    CSmartPtr<CShapeCol> m_shapes;
    CSmartPtr<Ci4Col> m_counts;
    CSmartPtr<CPickCol> m_picks;
    CSmartPtr<CElementCol> m_extras;
};

} // namespace GroupsSchema
