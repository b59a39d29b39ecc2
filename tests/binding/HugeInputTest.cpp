// Large and hostile shapes of documents in the GPX bindings, through every encoding that reads them:
// one enormous text, an extension element with a great many attributes and a great many siblings.

#include <QxXmlLib16/QxXmlLib16.h>

#include "GpxBindings.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

namespace {

const std::string kGpxStart = "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='huge'>";

CSmartPtr<Gpx::CGpx> Loaded(const std::string& xml) {
    const CSmartPtr<CXmlObjectBase> loaded =
        Gpx::LoadDocument(CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(xml.data())),
                                      static_cast<unsigned long>(xml.size()), false));
    return CSmartPtr<Gpx::CGpx>(dynamic_cast<Gpx::CGpx*>(loaded.Get()));
}

// The object written in each encoding and read back into new bindings.
struct Encoding {
    const char* name;
    CSmartPtr<Gpx::CGpx> (*roundTrip)(const Gpx::CGpx&);
};

CSerializationContext& GpxContext() {
    static CSerializationContext context = [] {
        CSerializationContext made;
        made.SetDefaultNamespaceURI(Gpx::kNamespace);
        made.GetNamespaceAliases().Add(L"x", L"urn:x");
        made.GetJsonContext()->SetRfc8259Escaping(true);
        return made;
    }();
    return context;
}

const Encoding kEncodings[] = {
    {"Xml",
     [](const Gpx::CGpx& gpx) {
         CSmartPtr<Gpx::CGpx> read(new Gpx::CGpx);
         read->FromXmlStream(gpx.ToXmlStream(true, false, encUTF8, eolLF, GpxContext()), GpxContext());
         return read;
     }},
    {"FastInfoset",
     [](const Gpx::CGpx& gpx) {
         CSmartPtr<Gpx::CGpx> read(new Gpx::CGpx);
         read->FromXmlStream(gpx.ToFastInfosetStream(fidNone, GpxContext()), GpxContext());
         return read;
     }},
    {"Json",
     [](const Gpx::CGpx& gpx) {
         CSmartPtr<Gpx::CGpx> read(new Gpx::CGpx);
         read->FromJsonStream(gpx.ToJsonStream(false, encUTF8, eolLF, GpxContext()), GpxContext());
         return read;
     }},
};

class HugeShapes : public testing::TestWithParam<Encoding> {};

// 16 MB of text with line ends and markup characters, in the metadata's description.
TEST_P(HugeShapes, OneEnormousTextComesBackWhole) {
    const std::string unit = "a &lt;b&gt; &amp; c\n";
    std::string text;
    for (size_t i = 0; i < (16u << 20) / unit.size(); ++i)
        text += unit;
    const CSmartPtr<Gpx::CGpx> gpx =
        Loaded(kGpxStart + "<metadata><desc>" + text + "</desc></metadata></gpx>");
    const std::wstring& desc = *gpx->GetMetadata()->GetDesc();
    ASSERT_EQ(text.size() / unit.size() * 10, desc.size()); // "a <b> & c\n"
    EXPECT_EQ(L"a <b> & c\n", desc.substr(desc.size() - 10));
    EXPECT_TRUE(desc == *GetParam().roundTrip(*gpx)->GetMetadata()->GetDesc());
}

TEST_P(HugeShapes, ManySiblingsAndAttributesComeBack) {
    const int count = 50000;
    std::string waypoints, attributes;
    for (int i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        waypoints += "<wpt lat='" + std::to_string(i % 90) + "' lon='" + std::to_string(i % 180) + "'/>";
        attributes += " a" + n + "='" + n + "'";
    }
    const CSmartPtr<Gpx::CGpx> gpx = Loaded(kGpxStart + waypoints + "<extensions><x:e xmlns:x='urn:x'" +
                                            attributes + "/></extensions></gpx>");
    const CSmartPtr<Gpx::CGpx> read = GetParam().roundTrip(*gpx);
    for (const Gpx::CGpx* each : {gpx.Get(), read.Get()}) {
        ASSERT_EQ(count, each->GetWpt()->GetCount());
        EXPECT_EQ(std::to_wstring((count - 1) % 180), each->GetWpt()->Item(count - 1)->GetLon().ToString());
        const CElement* extension = each->GetExtensions()->GetAny()->Item(0);
        ASSERT_EQ(count, extension->GetAttributes()->GetCount());
        EXPECT_EQ(std::to_wstring(count - 1), extension->GetAttributes()->Item(count - 1)->GetValue());
    }
}

INSTANTIATE_TEST_SUITE_P(Encodings, HugeShapes, testing::ValuesIn(kEncodings),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
