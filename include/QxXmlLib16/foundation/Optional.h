#pragma once

#include <memory>
#include <optional>
#include <utility>

namespace QxXmlLib16 {

// An optional value kept out of line: one pointer while absent. Generated classes use it for optional
// members of the larger value types (strings, decimals, big integers, dates), of which a bound class
// may have a dozen, mostly absent, in every one of a million instances: std::optional would hold room
// for each of them. Used like std::optional; a copy copies the value.
template <class T>
class TOptional {
public:
    TOptional() noexcept = default;
    TOptional(std::nullopt_t) noexcept {}
    TOptional(const T& value)
        : m_value(new T(value)) {}
    TOptional(T&& value)
        : m_value(new T(std::move(value))) {}
    TOptional(const std::optional<T>& value)
        : m_value(value ? new T(*value) : nullptr) {}
    TOptional(const TOptional& other)
        : m_value(other ? new T(*other) : nullptr) {}
    TOptional(TOptional&&) noexcept = default;
    ~TOptional() = default;

    TOptional& operator=(const TOptional& other) {
        if (!other)
            reset();
        else if (this != &other)
            *this = *other;
        return *this;
    }
    TOptional& operator=(TOptional&&) noexcept = default;
    TOptional& operator=(std::nullopt_t) noexcept {
        reset();
        return *this;
    }
    TOptional& operator=(const T& value) {
        if (m_value)
            *m_value = value;
        else
            m_value.reset(new T(value));
        return *this;
    }
    TOptional& operator=(T&& value) {
        if (m_value)
            *m_value = std::move(value);
        else
            m_value.reset(new T(std::move(value)));
        return *this;
    }

    bool has_value() const noexcept { return m_value != nullptr; }
    explicit operator bool() const noexcept { return has_value(); }
    const T& operator*() const { return *m_value; }
    T& operator*() { return *m_value; }
    const T* operator->() const { return m_value.get(); }
    T* operator->() { return m_value.get(); }
    // Throws std::bad_optional_access when absent.
    const T& value() const {
        if (!m_value) throw std::bad_optional_access();
        return *m_value;
    }
    template <class U>
    T value_or(U&& fallback) const {
        return m_value ? *m_value : static_cast<T>(std::forward<U>(fallback));
    }
    void reset() noexcept { m_value.reset(); }

private:
    std::unique_ptr<T> m_value;
};

template <class T>
bool operator==(const TOptional<T>& a, const TOptional<T>& b) {
    return a && b ? *a == *b : !a && !b;
}
template <class T>
bool operator!=(const TOptional<T>& a, const TOptional<T>& b) {
    return !(a == b);
}

} // namespace QxXmlLib16
