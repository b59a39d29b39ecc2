// XML Schema patterns: the first line of the input is a pattern, the rest a value. The grammar check
// and both modes must never fail other than by the library's exceptions, and every pattern the
// grammar accepts must compile in the exact mode, unless it outgrows PCRE2's compiled size.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace QxXmlLib16;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t lineEnd = input.find('\n');
    const std::string pattern = input.substr(0, lineEnd);
    const std::string valueBytes = lineEnd == std::string::npos ? std::string() : input.substr(lineEnd + 1);
    const std::wstring value = CEncoder::Utf8ToUnicode(reinterpret_cast<const unsigned char*>(valueBytes.data()),
                                                       static_cast<int>(valueBytes.size()));
    const std::wstring widePattern = CEncoder::Utf8ToUnicode(reinterpret_cast<const unsigned char*>(pattern.data()),
                                                             static_cast<int>(pattern.size()));
    const bool valid = !CheckXmlSchemaPattern(widePattern);
    try {
        TestRegEx(pattern, value, pmExact);
    } catch (const CQxException& e) {
        const std::wstring& message = e.GetMessage();
        const bool refused = message.rfind(L"Invalid Regular Expression: ", 0) == 0;
        if (valid && refused && message.find(L"regular expression is too large") == std::wstring::npos) std::abort();
    }
    try {
        TestRegEx(pattern, value);
    } catch (const CQxException&) {
    }
    return 0;
}
