#pragma once

// Bindings of the GPX 1.1 schema (gpx.xsd, namespace http://www.topografix.com/GPX/1/1), written as
// the code generator emits them. Setters of primitive members check the member's facets, and reading
// a document stores every value through them, so a document that violates a facet is refused.

#include <QxXmlLib16/QxXmlLib16.h>

#include <optional>
#include <string>

namespace Gpx {

using namespace QxXmlLib16;

constexpr const wchar_t* kNamespace = L"http://www.topografix.com/GPX/1/1";

enum Fix : int { Fix_none, Fix_2d, Fix_3d, Fix_dgps, Fix_pps };
const wchar_t* FixToText(int value);
int FixFromText(const wchar_t* text);

// The declarations every generated class repeats.
#define GPX_GENERATED_CLASS_MEMBERS                                                                          \
    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;                            \
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {          \
        Reset();                                                                                             \
    }                                                                                                        \
    std::wstring GetTargetNamespace() const override {                                                       \
        return kNamespace;                                                                                   \
    }                                                                                                        \
    std::wstring GetNamespace() const override {                                                             \
        return kNamespace;                                                                                   \
    }                                                                                                        \
                                                                                                             \
private:                                                                                                     \
    friend TGeneratedClass;                                                                                  \
    static const CClassMetaData& MetaData();                                                                 \
    void Reset();                                                                                            \
                                                                                                             \
public:

class CExtensions;
class CLink;

typedef TXmlClassCollection<CLink> CLinkCol;

// <extensions>: elements of other namespaces, kept as they were read.
class CExtensions : public TGeneratedClass<CExtensions> {
public:
    explicit CExtensions(const wchar_t* elementName = L"extensionsType");

    CElementCol* GetAny() const { return m_any.Get(); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    CSmartPtr<CElementCol> m_any;
};

class CLink : public TGeneratedClass<CLink> {
public:
    explicit CLink(const wchar_t* elementName = L"linkType");

    const std::wstring& GetHref() const { return m_href; }
    void SetHref(std::wstring value) { m_href = std::move(value); }
    const TOptional<std::wstring>& GetText() const { return m_text; }
    void SetText(TOptional<std::wstring> value) { m_text = std::move(value); }
    const TOptional<std::wstring>& GetType() const { return m_type; }
    void SetType(TOptional<std::wstring> value) { m_type = std::move(value); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    std::wstring m_href;
    TOptional<std::wstring> m_text, m_type;
};

class CEmail : public TGeneratedClass<CEmail> {
public:
    explicit CEmail(const wchar_t* elementName = L"emailType");

    const std::wstring& GetId() const { return m_id; }
    void SetId(std::wstring value) { m_id = std::move(value); }
    const std::wstring& GetDomain() const { return m_domain; }
    void SetDomain(std::wstring value) { m_domain = std::move(value); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    std::wstring m_id, m_domain;
};

class CPerson : public TGeneratedClass<CPerson> {
public:
    explicit CPerson(const wchar_t* elementName = L"personType");

    const TOptional<std::wstring>& GetName() const { return m_name; }
    void SetName(TOptional<std::wstring> value) { m_name = std::move(value); }
    CEmail* GetEmail() const { return m_email.Get(); }
    void SetEmail(CEmail* value);
    CLink* GetLink() const { return m_link.Get(); }
    void SetLink(CLink* value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    TOptional<std::wstring> m_name;
    CSmartPtr<CEmail> m_email;
    CSmartPtr<CLink> m_link;
};

class CCopyright : public TGeneratedClass<CCopyright> {
public:
    explicit CCopyright(const wchar_t* elementName = L"copyrightType");

    const std::wstring& GetAuthor() const { return m_author; }
    void SetAuthor(std::wstring value) { m_author = std::move(value); }
    const std::optional<unsigned short>& GetYear() const { return m_year; }
    void SetYear(std::optional<unsigned short> value) { m_year = value; }
    const TOptional<std::wstring>& GetLicense() const { return m_license; }
    void SetLicense(TOptional<std::wstring> value) { m_license = std::move(value); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    std::wstring m_author;
    std::optional<unsigned short> m_year;
    TOptional<std::wstring> m_license;
};

// minlat/maxlat are latitudes, minlon/maxlon longitudes; the setters refuse values out of range.
class CBounds : public TGeneratedClass<CBounds> {
public:
    explicit CBounds(const wchar_t* elementName = L"boundsType");

    const CDecimal& GetMinlat() const { return m_minlat; }
    void SetMinlat(const CDecimal& value);
    const CDecimal& GetMinlon() const { return m_minlon; }
    void SetMinlon(const CDecimal& value);
    const CDecimal& GetMaxlat() const { return m_maxlat; }
    void SetMaxlat(const CDecimal& value);
    const CDecimal& GetMaxlon() const { return m_maxlon; }
    void SetMaxlon(const CDecimal& value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    CDecimal m_minlat, m_minlon, m_maxlat, m_maxlon;
};

class CMetadata : public TGeneratedClass<CMetadata> {
public:
    explicit CMetadata(const wchar_t* elementName = L"metadataType");

    const TOptional<std::wstring>& GetName() const { return m_name; }
    void SetName(TOptional<std::wstring> value) { m_name = std::move(value); }
    const TOptional<std::wstring>& GetDesc() const { return m_desc; }
    void SetDesc(TOptional<std::wstring> value) { m_desc = std::move(value); }
    CPerson* GetAuthor() const { return m_author.Get(); }
    void SetAuthor(CPerson* value);
    CCopyright* GetCopyright() const { return m_copyright.Get(); }
    void SetCopyright(CCopyright* value);
    CLinkCol* GetLink() const { return m_link.Get(); }
    const TOptional<CDateTime>& GetTime() const { return m_time; }
    void SetTime(TOptional<CDateTime> value) { m_time = std::move(value); }
    const TOptional<std::wstring>& GetKeywords() const { return m_keywords; }
    void SetKeywords(TOptional<std::wstring> value) { m_keywords = std::move(value); }
    CBounds* GetBounds() const { return m_bounds.Get(); }
    void SetBounds(CBounds* value);
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    TOptional<std::wstring> m_name, m_desc;
    CSmartPtr<CPerson> m_author;
    CSmartPtr<CCopyright> m_copyright;
    CSmartPtr<CLinkCol> m_link;
    TOptional<CDateTime> m_time;
    TOptional<std::wstring> m_keywords;
    CSmartPtr<CBounds> m_bounds;
    CSmartPtr<CExtensions> m_extensions;
};

// A waypoint, route point or track point.
class CWpt : public TGeneratedClass<CWpt> {
public:
    explicit CWpt(const wchar_t* elementName = L"wptType");

    const CDecimal& GetLat() const { return m_lat; }
    void SetLat(const CDecimal& value);
    const CDecimal& GetLon() const { return m_lon; }
    void SetLon(const CDecimal& value);
    const TOptional<CDecimal>& GetEle() const { return m_ele; }
    void SetEle(TOptional<CDecimal> value) { m_ele = std::move(value); }
    const TOptional<CDateTime>& GetTime() const { return m_time; }
    void SetTime(TOptional<CDateTime> value) { m_time = std::move(value); }
    const TOptional<CDecimal>& GetMagvar() const { return m_magvar; }
    void SetMagvar(TOptional<CDecimal> value);
    const TOptional<CDecimal>& GetGeoidheight() const { return m_geoidheight; }
    void SetGeoidheight(TOptional<CDecimal> value) { m_geoidheight = std::move(value); }
    const TOptional<std::wstring>& GetName() const { return m_name; }
    void SetName(TOptional<std::wstring> value) { m_name = std::move(value); }
    const TOptional<std::wstring>& GetCmt() const { return m_cmt; }
    void SetCmt(TOptional<std::wstring> value) { m_cmt = std::move(value); }
    const TOptional<std::wstring>& GetDesc() const { return m_desc; }
    void SetDesc(TOptional<std::wstring> value) { m_desc = std::move(value); }
    const TOptional<std::wstring>& GetSrc() const { return m_src; }
    void SetSrc(TOptional<std::wstring> value) { m_src = std::move(value); }
    CLinkCol* GetLink() const { return m_link.Get(); }
    const TOptional<std::wstring>& GetSym() const { return m_sym; }
    void SetSym(TOptional<std::wstring> value) { m_sym = std::move(value); }
    const TOptional<std::wstring>& GetType() const { return m_type; }
    void SetType(TOptional<std::wstring> value) { m_type = std::move(value); }
    const std::optional<Fix>& GetFix() const { return m_fix; }
    void SetFix(std::optional<Fix> value) { m_fix = value; }
    const TOptional<CBigInteger>& GetSat() const { return m_sat; }
    void SetSat(TOptional<CBigInteger> value);
    const TOptional<CDecimal>& GetHdop() const { return m_hdop; }
    void SetHdop(TOptional<CDecimal> value) { m_hdop = std::move(value); }
    const TOptional<CDecimal>& GetVdop() const { return m_vdop; }
    void SetVdop(TOptional<CDecimal> value) { m_vdop = std::move(value); }
    const TOptional<CDecimal>& GetPdop() const { return m_pdop; }
    void SetPdop(TOptional<CDecimal> value) { m_pdop = std::move(value); }
    const TOptional<CDecimal>& GetAgeofdgpsdata() const { return m_ageofdgpsdata; }
    void SetAgeofdgpsdata(TOptional<CDecimal> value) { m_ageofdgpsdata = std::move(value); }
    const TOptional<CBigInteger>& GetDgpsid() const { return m_dgpsid; }
    void SetDgpsid(TOptional<CBigInteger> value);
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    CDecimal m_lat, m_lon;
    TOptional<CDecimal> m_ele;
    TOptional<CDateTime> m_time;
    TOptional<CDecimal> m_magvar, m_geoidheight;
    TOptional<std::wstring> m_name, m_cmt, m_desc, m_src;
    CSmartPtr<CLinkCol> m_link;
    TOptional<std::wstring> m_sym, m_type;
    std::optional<Fix> m_fix;
    TOptional<CBigInteger> m_sat;
    TOptional<CDecimal> m_hdop, m_vdop, m_pdop, m_ageofdgpsdata;
    TOptional<CBigInteger> m_dgpsid;
    CSmartPtr<CExtensions> m_extensions;
};

typedef TXmlClassCollection<CWpt> CWptCol;

class CRte : public TGeneratedClass<CRte> {
public:
    explicit CRte(const wchar_t* elementName = L"rteType");

    const TOptional<std::wstring>& GetName() const { return m_name; }
    void SetName(TOptional<std::wstring> value) { m_name = std::move(value); }
    const TOptional<std::wstring>& GetCmt() const { return m_cmt; }
    void SetCmt(TOptional<std::wstring> value) { m_cmt = std::move(value); }
    const TOptional<std::wstring>& GetDesc() const { return m_desc; }
    void SetDesc(TOptional<std::wstring> value) { m_desc = std::move(value); }
    const TOptional<std::wstring>& GetSrc() const { return m_src; }
    void SetSrc(TOptional<std::wstring> value) { m_src = std::move(value); }
    CLinkCol* GetLink() const { return m_link.Get(); }
    const TOptional<CBigInteger>& GetNumber() const { return m_number; }
    void SetNumber(TOptional<CBigInteger> value);
    const TOptional<std::wstring>& GetType() const { return m_type; }
    void SetType(TOptional<std::wstring> value) { m_type = std::move(value); }
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);
    CWptCol* GetRtept() const { return m_rtept.Get(); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    TOptional<std::wstring> m_name, m_cmt, m_desc, m_src;
    CSmartPtr<CLinkCol> m_link;
    TOptional<CBigInteger> m_number;
    TOptional<std::wstring> m_type;
    CSmartPtr<CExtensions> m_extensions;
    CSmartPtr<CWptCol> m_rtept;
};

class CTrkseg : public TGeneratedClass<CTrkseg> {
public:
    explicit CTrkseg(const wchar_t* elementName = L"trksegType");

    CWptCol* GetTrkpt() const { return m_trkpt.Get(); }
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    CSmartPtr<CWptCol> m_trkpt;
    CSmartPtr<CExtensions> m_extensions;
};

typedef TXmlClassCollection<CTrkseg> CTrksegCol;

class CTrk : public TGeneratedClass<CTrk> {
public:
    explicit CTrk(const wchar_t* elementName = L"trkType");

    const TOptional<std::wstring>& GetName() const { return m_name; }
    void SetName(TOptional<std::wstring> value) { m_name = std::move(value); }
    const TOptional<std::wstring>& GetCmt() const { return m_cmt; }
    void SetCmt(TOptional<std::wstring> value) { m_cmt = std::move(value); }
    const TOptional<std::wstring>& GetDesc() const { return m_desc; }
    void SetDesc(TOptional<std::wstring> value) { m_desc = std::move(value); }
    const TOptional<std::wstring>& GetSrc() const { return m_src; }
    void SetSrc(TOptional<std::wstring> value) { m_src = std::move(value); }
    CLinkCol* GetLink() const { return m_link.Get(); }
    const TOptional<CBigInteger>& GetNumber() const { return m_number; }
    void SetNumber(TOptional<CBigInteger> value);
    const TOptional<std::wstring>& GetType() const { return m_type; }
    void SetType(TOptional<std::wstring> value) { m_type = std::move(value); }
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);
    CTrksegCol* GetTrkseg() const { return m_trkseg.Get(); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    TOptional<std::wstring> m_name, m_cmt, m_desc, m_src;
    CSmartPtr<CLinkCol> m_link;
    TOptional<CBigInteger> m_number;
    TOptional<std::wstring> m_type;
    CSmartPtr<CExtensions> m_extensions;
    CSmartPtr<CTrksegCol> m_trkseg;
};

typedef TXmlClassCollection<CRte> CRteCol;
typedef TXmlClassCollection<CTrk> CTrkCol;

// The document element.
class CGpx : public TGeneratedClass<CGpx> {
public:
    explicit CGpx(const wchar_t* elementName = L"gpx");

    const std::wstring& GetVersion() const { return m_version; }
    void SetVersion(std::wstring value);
    const std::wstring& GetCreator() const { return m_creator; }
    void SetCreator(std::wstring value) { m_creator = std::move(value); }
    CMetadata* GetMetadata() const { return m_metadata.Get(); }
    void SetMetadata(CMetadata* value);
    CWptCol* GetWpt() const { return m_wpt.Get(); }
    CRteCol* GetRte() const { return m_rte.Get(); }
    CTrkCol* GetTrk() const { return m_trk.Get(); }
    CExtensions* GetExtensions() const { return m_extensions.Get(); }
    void SetExtensions(CExtensions* value);

    GPX_GENERATED_CLASS_MEMBERS
private:
    std::wstring m_version, m_creator;
    CSmartPtr<CMetadata> m_metadata;
    CSmartPtr<CWptCol> m_wpt;
    CSmartPtr<CRteCol> m_rte;
    CSmartPtr<CTrkCol> m_trk;
    CSmartPtr<CExtensions> m_extensions;
};

// ptType and ptsegType are declared by the schema but used by no element of it.
class CPt : public TGeneratedClass<CPt> {
public:
    explicit CPt(const wchar_t* elementName = L"ptType");

    const CDecimal& GetLat() const { return m_lat; }
    void SetLat(const CDecimal& value);
    const CDecimal& GetLon() const { return m_lon; }
    void SetLon(const CDecimal& value);
    const TOptional<CDecimal>& GetEle() const { return m_ele; }
    void SetEle(TOptional<CDecimal> value) { m_ele = std::move(value); }
    const TOptional<CDateTime>& GetTime() const { return m_time; }
    void SetTime(TOptional<CDateTime> value) { m_time = std::move(value); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    CDecimal m_lat, m_lon;
    TOptional<CDecimal> m_ele;
    TOptional<CDateTime> m_time;
};

typedef TXmlClassCollection<CPt> CPtCol;

class CPtseg : public TGeneratedClass<CPtseg> {
public:
    explicit CPtseg(const wchar_t* elementName = L"ptsegType");

    CPtCol* GetPt() const { return m_pt.Get(); }

    GPX_GENERATED_CLASS_MEMBERS
private:
    CSmartPtr<CPtCol> m_pt;
};

#undef GPX_GENERATED_CLASS_MEMBERS

} // namespace Gpx
