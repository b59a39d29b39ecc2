#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>

#include <ostream>
#include <string>

// What a failing call reports: the innermost message of the exception chain without its path, and
// the deepest path the chain names. "(no exception)" when nothing was thrown.
struct Failure {
    std::wstring message;
    std::wstring path;
    bool operator==(const Failure& other) const { return message == other.message && path == other.path; }
};

inline std::ostream& operator<<(std::ostream& out, const Failure& failure) {
    return out << std::string(failure.message.begin(), failure.message.end()) << " at "
               << std::string(failure.path.begin(), failure.path.end());
}

inline Failure FailureOf(const QxXmlLib16::CQxException& e) {
    Failure failure;
    for (const QxXmlLib16::CQxException* link = &e; link; link = link->GetInnerException()) {
        failure.message = link->GetMessage().substr(0, link->GetMessage().find(L"\nPath: "));
        if (!link->GetPath().empty()) failure.path = link->GetPath();
    }
    return failure;
}

template <typename Action>
Failure FailureOf(Action action) {
    try {
        action();
    } catch (const QxXmlLib16::CQxException& e) {
        return FailureOf(e);
    }
    return {L"(no exception)", L""};
}
