#pragma once

// Bindings of testschema.xsd (namespace urn:qx:test:trip), written as the code generator emits them.
// The classes implement every operation of the contract themselves rather than through
// TGeneratedClass, so that code written without the library's helpers stays proven.

#include <QxXmlLib16/QxXmlLib16.h>

#include <optional>
#include <string>

namespace TestSchema {

using namespace QxXmlLib16;

constexpr const wchar_t* kNamespace = L"urn:qx:test:trip";

// Enumerations: a 32-bit value per member of the schema enumeration, and its two conversions. The
// text-to-value function throws CQxInvalidValueException for text the schema does not list.
enum TravelMode : int { TravelMode_walk, TravelMode_cycle, TravelMode_drive };
const wchar_t* TravelModeToText(int value);
int TravelModeFromText(const wchar_t* text);

enum Pace : int { Pace_slow, Pace_steady, Pace_fast };
const wchar_t* PaceToText(int value);
int PaceFromText(const wchar_t* text);

enum Unit : int { Unit_m, Unit_km, Unit_mi };
const wchar_t* UnitToText(int value);
int UnitFromText(const wchar_t* text);

// Class numbers handed to the class factory functions.
enum ClassNumber : int { cnDistance, cnAudit, cnPlace, cnCampsite, cnContact, cnReadings, cnTrip };

// Creates the class of a member by its class number, named after the member's element.
CSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName);

// Honours xsi:type: maps the element's (type namespace, type name) to the generated class, and
// falls back to the member's declared type (Place) without one.
class CTestSchemaFactory : public CClassfactoryBase {
public:
    static CSmartPtr<CXmlObjectBase> CreatePlace(CXmlElement* element);
};

// <distance unit="km" approx="false">12.5</distance>: simple content with attributes.
class CDistance : public CXmlGeneratedClass {
public:
    explicit CDistance(const wchar_t* elementName = L"Distance");

    const CDecimal& GetValue() const { return m_value; }
    void SetValue(const CDecimal& value) { m_value = value; }
    Unit GetUnit() const { return m_unit; }
    void SetUnit(Unit value) { m_unit = value; }
    bool GetApprox() const { return m_approx; }
    void SetApprox(bool value) { m_approx = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData();
    CDecimal m_value;
    Unit m_unit;
    bool m_approx;
};

// The Audit group: its elements stand inline among the parent's children.
class CAudit : public CXmlGeneratedClass {
public:
    CAudit();

    const CDateTime& GetCreated() const { return m_created; }
    void SetCreated(const CDateTime& value) { m_created = value; }
    const std::optional<std::wstring>& GetAuthor() const { return m_author; }
    void SetAuthor(std::optional<std::wstring> value) { m_author = std::move(value); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData();
    CDateTime m_created;
    std::optional<std::wstring> m_author;
};

class CPlace : public CXmlGeneratedClass {
public:
    explicit CPlace(const wchar_t* elementName = L"Place");

    // Setters of members with facets check them before storing; loading goes through them too.
    const CDecimal& GetLat() const { return m_lat; }
    void SetLat(const CDecimal& value);
    const CDecimal& GetLon() const { return m_lon; }
    void SetLon(const CDecimal& value);
    const std::wstring& GetLabel() const { return m_label; }
    void SetLabel(std::wstring value) { m_label = std::move(value); }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

protected:
    // Property numbers of a derived class continue after this one's.
    enum { pnLat = 1, pnLon, pnLabel, pnLast = pnLabel };

private:
    static const CClassMetaData& MetaData();
    CDecimal m_lat;
    CDecimal m_lon;
    std::wstring m_label;
};

// Derived from Place; written with xsi:type wherever it stands in a Place element.
class CCampsite : public CPlace {
public:
    explicit CCampsite(const wchar_t* elementName = L"Campsite");

    unsigned short GetPitches() const { return m_pitches; }
    void SetPitches(unsigned short value) { m_pitches = value; }
    bool GetOpen() const { return m_open; }
    void SetOpen(bool value) { m_open = value; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;

private:
    enum { pnPitches = pnLast + 1, pnOpen };
    static const CClassMetaData& MetaData();
    unsigned short m_pitches;
    bool m_open;
};

// Stands in a nillable element.
class CContact : public CXmlGeneratedClass, public INillable {
public:
    explicit CContact(const wchar_t* elementName = L"Contact");

    const std::wstring& GetEmail() const { return m_email; }
    void SetEmail(std::wstring value);
    const std::optional<std::wstring>& GetPhone() const { return m_phone; }
    void SetPhone(std::optional<std::wstring> value) { m_phone = std::move(value); }

    bool IsNil() const override { return m_nil; }
    void SetNil(bool nil) override { m_nil = nil; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData();
    std::wstring m_email;
    std::optional<std::wstring> m_phone;
    bool m_nil;
};

// One optional attribute of every primitive kind (i4 is required). An absent optional attribute is
// an invalid variant; attributes with a schema default start at it.
class CReadings : public CXmlGeneratedClass {
public:
    explicit CReadings(const wchar_t* elementName = L"Readings");

    // Properties are numbered by the ItemType of the attribute's value, so that the tests can set
    // any of them generically.
    // The unchecked reference lets tests store a value that breaks a facet; SetAttribute checks.
    QxVariant& Attribute(ItemType type) { return m_values[type]; }
    const QxVariant& Attribute(ItemType type) const { return m_values[type]; }
    void SetAttribute(ItemType type, const QxVariant& value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData();
    void Reset();
    QxVariant m_values[itInteger + 1];
};

// The document element.
class CTrip : public CXmlGeneratedClass {
public:
    explicit CTrip(const wchar_t* elementName = L"trip");

    const std::wstring& GetId() const { return m_id; }
    void SetId(std::wstring value);
    Pace GetPaceAttribute() const { return m_paceAttribute; }
    void SetPaceAttribute(Pace value) { m_paceAttribute = value; }
    const CDecimal& GetVersion() const { return m_version; }
    void SetVersion(const CDecimal& value) { m_version = value; }

    const std::wstring& GetTitle() const { return m_title; }
    void SetTitle(std::wstring value);
    // An optional, nillable element: absent, nil, or a text.
    const std::optional<std::wstring>& GetNote() const { return m_note; }
    void SetNote(std::optional<std::wstring> value) { m_note = std::move(value), m_noteNil = false; }
    bool IsNoteNil() const { return m_noteNil; }
    void SetNoteNil() { m_note.reset(), m_noteNil = true; }
    const std::optional<unsigned char>& GetDays() const { return m_days; }
    void SetDays(std::optional<unsigned char> value);
    TravelMode GetMode() const { return m_mode; }
    void SetMode(TravelMode value) { m_mode = value; }
    const std::optional<Pace>& GetPace() const { return m_pace; }
    void SetPace(std::optional<Pace> value) { m_pace = value; }

    // Mandatory children always exist; setters take the element name of the member.
    CDistance* GetDistance() const { return m_distance.Get(); }
    void SetDistance(CDistance* value);
    CAudit* GetAudit() const { return m_audit.Get(); }
    void SetAudit(CAudit* value);
    CPlace* GetStart() const { return m_start.Get(); }
    void SetStart(CPlace* value);
    CPlace* GetStop() const { return m_stop.Get(); }
    void SetStop(CPlace* value);
    CContact* GetContact() const { return m_contact.Get(); }
    void SetContact(CContact* value);
    CReadings* GetReadings() const { return m_readings.Get(); }
    void SetReadings(CReadings* value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override;
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override;
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData();
    void Reset();

    std::wstring m_id;
    Pace m_paceAttribute;
    CDecimal m_version;
    std::wstring m_title;
    std::optional<std::wstring> m_note;
    bool m_noteNil;
    std::optional<unsigned char> m_days;
    TravelMode m_mode;
    std::optional<Pace> m_pace;
    CSmartPtr<CDistance> m_distance;
    CSmartPtr<CAudit> m_audit;
    CSmartPtr<CPlace> m_start;
    CSmartPtr<CPlace> m_stop;
    CSmartPtr<CContact> m_contact;
    CSmartPtr<CReadings> m_readings;
};

} // namespace TestSchema
