// XML text (or anything else) into a document tree. Any exception other than the library's own is a
// bug, and so is any sanitizer report.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <vector>

using namespace QxXmlLib16;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    std::vector<unsigned char> bytes(data, data + size);
    CXmlDocument document;
    try {
        document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
        if (CXmlElement* root = document.GetDocumentElement()) (void)root->GetXPath();
    } catch (const CQxException&) {
    }
    return 0;
}
