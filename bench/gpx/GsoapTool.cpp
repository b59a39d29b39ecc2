// gSOAP, from bindings generated at build time with wsdl2h -d -g and soapcpp2 -0, in strict mode.

#include "GpxTool.h"

#include "soapH.h"

#include "ns1.nsmap"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace bench {
namespace {

// Hands gSOAP the document where it lies, without a copy or a stream in between.
struct CCursor {
    const unsigned char* next;
    const unsigned char* end;
};

size_t ReceiveFromMemory(soap* context, char* buffer, size_t capacity) {
    CCursor& input = *static_cast<CCursor*>(context->user);
    const size_t length = std::min(capacity, static_cast<size_t>(input.end - input.next));
    std::memcpy(buffer, input.next, length);
    input.next += length;
    return length;
}

int SendToMemory(soap* context, const char* bytes, size_t length) {
    static_cast<std::string*>(context->user)->append(bytes, length);
    return SOAP_OK;
}

class CGsoapTool : public CGpxTool {
public:
    CGsoapTool()
        : m_soap(soap_new1(SOAP_XML_STRICT | SOAP_C_UTFSTRING)) {
        m_soap->frecv = ReceiveFromMemory;
        m_soap->fsend = SendToMemory;
    }
    ~CGsoapTool() override {
        Release();
        soap_free(m_soap);
    }

    void Load(const std::vector<unsigned char>& document) override {
        Release();
        CCursor input{document.data(), document.data() + document.size()};
        m_soap->user = &input;
        m_gpx = soap_new__ns1__gpx(m_soap);
        if (soap_read__ns1__gpx(m_soap, m_gpx) != SOAP_OK)
            throw std::runtime_error("gSOAP refused the document");
    }

    size_t Write() override {
        m_output.clear();
        m_soap->user = &m_output;
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
