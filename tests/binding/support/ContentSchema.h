#pragma once

// Bindings of content.xsd (namespace urn:qx:test:content), written as the code generator emits them.

#include <QxXmlLib16/QxXmlLib16.h>

namespace ContentSchema {

using namespace QxXmlLib16;

constexpr const wchar_t* kNamespace = L"urn:qx:test:content";

enum Shade : int { Shade_light, Shade_dark };
const wchar_t* ShadeToText(int value);
int ShadeFromText(const wchar_t* text);

typedef TEnumCol<Shade, ShadeToText, ShadeFromText> CShadeCol;

// Wraps a single element of the target namespace.
class COwn : public TGeneratedClass<COwn> {
public:
    explicit COwn(const wchar_t* elementName = L"Own");

    CElement* GetAny() const { return m_any.Get(); }
    void SetAny(CElement* value);

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    friend TGeneratedClass;
    static const CClassMetaData& MetaData();
    CSmartPtr<CElement> m_any;
};

// The document element: one repeated element per built-in value type, then open content.
class CBag : public TGeneratedClass<CBag> {
public:
    explicit CBag(const wchar_t* elementName = L"bag");

    ChexBinaryCol& GetHex() const { return *m_hex; }
    Cbase64BinaryCol& GetB64() const { return *m_b64; }
    Ci1Col& GetI1() const { return *m_i1; }
    Ci2Col& GetI2() const { return *m_i2; }
    Ci4Col& GetI4() const { return *m_i4; }
    Ci8Col& GetI8() const { return *m_i8; }
    Cui1Col& GetUi1() const { return *m_ui1; }
    Cui2Col& GetUi2() const { return *m_ui2; }
    Cui4Col& GetUi4() const { return *m_ui4; }
    Cui8Col& GetUi8() const { return *m_ui8; }
    Cr4Col& GetR4() const { return *m_r4; }
    Cr8Col& GetR8() const { return *m_r8; }
    CdurationCol& GetDur() const { return *m_dur; }
    CyearMonthCol& GetYm() const { return *m_ym; }
    CmonthDayCol& GetMd() const { return *m_md; }
    CyearCol& GetYr() const { return *m_yr; }
    CmonthCol& GetMo() const { return *m_mo; }
    CdayCol& GetDy() const { return *m_dy; }
    CdateCol& GetDate() const { return *m_date; }
    CdatetimeCol& GetDt() const { return *m_dt; }
    CtimeCol& GetTm() const { return *m_tm; }
    CstringCol& GetStr() const { return *m_str; }
    CbooleanCol& GetBool() const { return *m_bool; }
    CdecimalCol& GetDec() const { return *m_dec; }
    CintegerCol& GetInt() const { return *m_int; }
    CShadeCol& GetShade() const { return *m_shade; }

    // Wildcards: exactly one element of another namespace, an optional unqualified one, up to three
    // of urn:qx:a or urn:qx:b, and any number of any namespace after own.
    CElement* GetOther() const { return m_other.Get(); }
    void SetOther(CElement* value) {
        Throw_IfPropertyIsNull(value, L"AnyElement");
        m_other = value;
    }
    CElement* GetLocal() const { return m_local.Get(); }
    void SetLocal(CElement* value) { m_local = value; }
    CElementCol& GetListed() const { return *m_listed; }
    COwn* GetOwn() const { return m_own.Get(); }
    void SetOwn(COwn* value);
    CElementCol& GetRest() const { return *m_rest; }
    // Attributes of other namespaces.
    CAttributeCol& GetAttributes() const { return *m_attributes; }

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override;
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    friend TGeneratedClass;
    static const CClassMetaData& MetaData();
    void Reset();

    CSmartPtr<ChexBinaryCol> m_hex;
    CSmartPtr<Cbase64BinaryCol> m_b64;
    CSmartPtr<Ci1Col> m_i1;
    CSmartPtr<Ci2Col> m_i2;
    CSmartPtr<Ci4Col> m_i4;
    CSmartPtr<Ci8Col> m_i8;
    CSmartPtr<Cui1Col> m_ui1;
    CSmartPtr<Cui2Col> m_ui2;
    CSmartPtr<Cui4Col> m_ui4;
    CSmartPtr<Cui8Col> m_ui8;
    CSmartPtr<Cr4Col> m_r4;
    CSmartPtr<Cr8Col> m_r8;
    CSmartPtr<CdurationCol> m_dur;
    CSmartPtr<CyearMonthCol> m_ym;
    CSmartPtr<CmonthDayCol> m_md;
    CSmartPtr<CyearCol> m_yr;
    CSmartPtr<CmonthCol> m_mo;
    CSmartPtr<CdayCol> m_dy;
    CSmartPtr<CdateCol> m_date;
    CSmartPtr<CdatetimeCol> m_dt;
    CSmartPtr<CtimeCol> m_tm;
    CSmartPtr<CstringCol> m_str;
    CSmartPtr<CbooleanCol> m_bool;
    CSmartPtr<CdecimalCol> m_dec;
    CSmartPtr<CintegerCol> m_int;
    CSmartPtr<CShadeCol> m_shade;
    CSmartPtr<CElement> m_other;
    CSmartPtr<CElement> m_local;
    CSmartPtr<CElementCol> m_listed;
    CSmartPtr<COwn> m_own;
    CSmartPtr<CElementCol> m_rest;
    CSmartPtr<CAttributeCol> m_attributes;
};

} // namespace ContentSchema
