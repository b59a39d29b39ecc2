#pragma once

#include <string>

// The message of the exception of the given class that action throws, or "(no exception)".
template <typename Exception, typename Action>
std::wstring MessageOf(Action action) {
    try {
        action();
    } catch (const Exception& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
}
