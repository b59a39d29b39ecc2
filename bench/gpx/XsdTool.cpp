// CodeSynthesis XSD C++/Tree, from bindings generated at build time with serialization and
// wildcards, validating against the schema through Xerces-C.

#include "GpxTool.h"

#include "gpx.hxx"

#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace bench {
namespace {

const char kGpxNamespace[] = "http://www.topografix.com/GPX/1/1";

class CXsdTool : public CGpxTool {
public:
    CXsdTool() {
        xercesc::XMLPlatformUtils::Initialize();
        m_properties.schema_location(kGpxNamespace, std::string("file://") + QX_GPX_SCHEMA);
        m_namespaces["gpx"].name = kGpxNamespace;
    }
    ~CXsdTool() override {
        m_gpx.reset();
        xercesc::XMLPlatformUtils::Terminate();
    }

    void Load(const std::vector<unsigned char>& document) override {
        m_gpx.reset();
        xercesc::MemBufInputSource source(document.data(), document.size(), "gpx");
        m_gpx = gpx11::gpx(source, 0, m_properties);
    }

    size_t Write() override {
        xercesc::MemBufFormatTarget target;
        gpx11::gpx(target, *m_gpx, m_namespaces, "UTF-8", xml_schema::flags::dont_pretty_print);
        return target.getLen();
    }

private:
    xml_schema::properties m_properties;
    xml_schema::namespace_infomap m_namespaces;
    std::unique_ptr<gpx11::gpxType> m_gpx;
};

} // namespace

std::unique_ptr<CGpxTool> MakeXsdTool() {
    return std::make_unique<CXsdTool>();
}

} // namespace bench
