#include "Documents.h"

namespace Documents {

std::wstring MinimalBody() {
    return L"<title>Coast</title><mode>walk</mode><distance>12.5</distance>"
           L"<created>2024-05-01T10:00:00Z</created><start lat=\"50.1\" lon=\"-4\"><label>Bay</label></start>"
           L"<contact><email>ann@example.org</email></contact>";
}

std::wstring Trip(const std::wstring& rootAttributes, const std::wstring& body) {
    return L"<trip xmlns=\"urn:qx:test:trip\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"" +
           rootAttributes + L">" + (body.empty() ? MinimalBody() : body) + L"</trip>";
}

} // namespace Documents
