// Uses the installed headers, library and schema compiler: formatting, binary data, an exception,
// and a document loaded through bindings generated from order.xsd.
#include "order.h"

#include <cstdio>

namespace {

bool BindingsWork() {
    using namespace QxXmlLib16;
    const char text[] = "<order xmlns='urn:qx:install:order' id='7'><item>a</item><item>b</item></order>";
    CBinaryData document(reinterpret_cast<unsigned char*>(const_cast<char*>(text)), sizeof text - 1, false);
    const CSmartPtr<CXmlObjectBase> loaded = Order::LoadDocument(document);
    const auto* order = dynamic_cast<const Order::COrder*>(loaded.Get());
    if (!order || order->GetId() != 7 || order->GetItem()->GetCount() != 2) return false;
    const char other[] = "<order xmlns='urn:qx:install:order' id='x'/>";
    try {
        CBinaryData invalid(reinterpret_cast<unsigned char*>(const_cast<char*>(other)), sizeof other - 1, false);
        Order::LoadDocument(invalid);
    } catch (const CQxValidationException&) {
        return true;
    }
    return false;
}

} // namespace

int main() {
    using namespace QxXmlLib16;
    CBinaryData data;
    data.SetAsHexString(L"cafe");
    const std::wstring text = FormatString(L"%ls/%ls", data.GetAsHexString().c_str(), data.GetAsBase64().c_str());
    try {
        data.SetAsHexString(L"x");
    } catch (const CQxException& e) {
        if (text == L"CAFE/yv4=" && e.GetMessage() == L"Invalid length in hex string" && BindingsWork()) {
            std::puts("consumer ok");
            return 0;
        }
    }
    std::puts("consumer failed");
    return 1;
}
