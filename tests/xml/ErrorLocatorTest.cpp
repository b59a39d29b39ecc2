// Finding the node a path names in XML text, as load errors are located.

#include "xml/ErrorLocator.h"

#include <gtest/gtest.h>

#include <string>

using QxXmlLib16::internal::CErrorLocator;

namespace {

const char kDocument[] = "<r xmlns='urn:d' xmlns:p='urn:p'>\n"
                         " <a/>\n"
                         " <p:a/>\n"
                         " <a x='1'\n"
                         "    p:y='2'/>\n"
                         "</r>";

// The names the document's paths use: urn:p by its prefix, the default namespace without one.
std::wstring QualifiedName(const std::wstring& namespaceURI, const std::wstring& localName) {
    return namespaceURI == L"urn:p" ? L"p:" + localName : localName;
}

std::string Where(const std::wstring& path) {
    unsigned long line = 0, column = 0;
    const auto* data = reinterpret_cast<const unsigned char*>(kDocument);
    if (!CErrorLocator::Find(data, sizeof kDocument - 1, false, true, path, QualifiedName, line, column))
        return "(not found)";
    return std::to_string(line) + ":" + std::to_string(column);
}

TEST(ErrorLocator, FindsTheNodeAPathNames) {
    const struct {
        const wchar_t* path;
        const char* where;
    } cases[] = {
        {L"/r", "1:1"},
        {L"/r/a[1]", "2:2"},
        {L"/r/p:a", "3:2"},     // another namespace, so another name than the a around it
        {L"/r/a[2]", "4:2"},    // the second a of its namespace
        {L"/r/a[2]/@x", "4:5"}, // an attribute: its name
        {L"/r/a[2]/@p:y", "5:5"},
        {L"/r/a[2]/@z", "4:2"}, // an attribute the tag does not have: its element
        {L"/r/a[3]", "(not found)"},
        {L"/r/b", "(not found)"},
        {L"/x", "(not found)"},
        {L"r/a", "(not found)"},     // no path of a document
        {L"/r/@x/a", "(not found)"}, // nothing below an attribute
        {L"/r/a[0]", "(not found)"},
        {L"", "(not found)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Where(c.path), c.where) << std::string(c.path, c.path + std::wcslen(c.path));
}

} // namespace
