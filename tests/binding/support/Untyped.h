#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>

#include <string>

// What a failing call reports: the message without its path, and the path.
struct UntypedFailure {
    std::wstring message;
    std::wstring path;
    bool operator==(const UntypedFailure& other) const {
        return message == other.message && path == other.path;
    }
};

// The innermost failure of the chain that action throws, with the deepest path the chain names;
// "(no exception)" when it throws none.
template <typename Action>
UntypedFailure FailureOf(Action action) {
    try {
        action();
    } catch (const QxXmlLib16::CQxException& e) {
        const QxXmlLib16::CQxException* inner = &e;
        std::wstring path = e.GetPath();
        while (inner->GetInnerException()) {
            inner = inner->GetInnerException();
            if (!inner->GetPath().empty()) path = inner->GetPath();
        }
        const std::wstring& message = inner->GetMessage();
        return {message.substr(0, message.find(L"\nPath: ")), path};
    }
    return {L"(no exception)", L""};
}
