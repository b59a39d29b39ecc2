// gSOAP, from bindings generated at build time with wsdl2h -d -g and soapcpp2 -0, in strict mode.

#include "GpxTool.h"

#include "soapH.h"

#include "ns1.nsmap"

#include <istream>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace bench {
namespace {

// Reads the document where it lies, without a copy into a string stream.
class CMemoryBuffer : public std::streambuf {
public:
    explicit CMemoryBuffer(const std::vector<unsigned char>& bytes) {
        char* begin = const_cast<char*>(reinterpret_cast<const char*>(bytes.data()));
        setg(begin, begin, begin + bytes.size());
    }
};

class CGsoapTool : public CGpxTool {
public:
    CGsoapTool()
        : m_soap(soap_new1(SOAP_XML_STRICT | SOAP_C_UTFSTRING)) {
        m_soap->user = &m_output;
        m_soap->fsend = [](soap* context, const char* bytes, size_t length) {
            static_cast<std::string*>(context->user)->append(bytes, length);
            return SOAP_OK;
        };
    }
    ~CGsoapTool() override {
        Release();
        soap_free(m_soap);
    }

    void Load(const std::vector<unsigned char>& document) override {
        Release();
        CMemoryBuffer buffer(document);
        std::istream input(&buffer);
        m_soap->is = &input;
        m_gpx = soap_new__ns1__gpx(m_soap);
        const int status = soap_read__ns1__gpx(m_soap, m_gpx);
        m_soap->is = nullptr;
        if (status != SOAP_OK) throw std::runtime_error("gSOAP refused the document");
    }

    size_t Write() override {
        m_output.clear();
        soap_set_omode(m_soap, SOAP_XML_INDENT);
        if (soap_write__ns1__gpx(m_soap, m_gpx) != SOAP_OK) throw std::runtime_error("gSOAP failed to write");
        return m_output.size();
    }

private:
    void Release() {
        soap_destroy(m_soap);
        soap_end(m_soap);
        m_gpx = nullptr;
    }

    soap* m_soap;
    _ns1__gpx* m_gpx = nullptr;
    std::string m_output;
};

} // namespace

std::unique_ptr<CGpxTool> MakeGsoapTool() {
    return std::make_unique<CGsoapTool>();
}

} // namespace bench
