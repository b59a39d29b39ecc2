#pragma once

#include <string>

// Hand-written documents of the test schema. Valid() is the smallest valid trip; its parts can be
// replaced to make the invalid variants.
namespace Documents {

// A valid trip with only mandatory content, rootAttributes and body spliced into it: rootAttributes
// goes after the namespace declarations, body replaces the children when not empty.
std::wstring Trip(const std::wstring& rootAttributes = L" id=\"T1\"", const std::wstring& body = L"");

// The children of the smallest valid trip.
std::wstring MinimalBody();

// The innermost message of an exception chain, without its path, and the first path found from the
// outside in: where the loader says the fault is.
struct Failure {
    std::wstring message;
    std::wstring path;
};

} // namespace Documents
