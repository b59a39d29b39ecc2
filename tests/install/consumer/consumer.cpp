// Uses the installed headers and library: formatting, binary data and an exception.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdio>

int main() {
    using namespace QxXmlLib16;
    CBinaryData data;
    data.SetAsHexString(L"cafe");
    const std::wstring text = FormatString(L"%ls/%ls", data.GetAsHexString().c_str(), data.GetAsBase64().c_str());
    try {
        data.SetAsHexString(L"x");
    } catch (const CQxException& e) {
        if (text == L"CAFE/yv4=" && e.GetMessage() == L"Invalid length in hex string") {
            std::puts("consumer ok");
            return 0;
        }
    }
    std::puts("consumer failed");
    return 1;
}
