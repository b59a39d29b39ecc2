#pragma once

#include <cstddef>
#include <utility>

namespace QxXmlLib16 {

// Counted reference to a bound object (anything with AddRef and Release). Taking a raw pointer adds
// a reference; Attach adopts one the caller already holds.
template <class T>
class CSmartPtr {
public:
    CSmartPtr() noexcept
        : m_object(nullptr) {}
    CSmartPtr(std::nullptr_t) noexcept
        : m_object(nullptr) {}
    CSmartPtr(T* object)
        : m_object(object) {
        if (m_object) m_object->AddRef();
    }
    CSmartPtr(const CSmartPtr& other)
        : CSmartPtr(other.m_object) {}
    template <class U>
    CSmartPtr(const CSmartPtr<U>& other)
        : CSmartPtr(other.Get()) {}
    CSmartPtr(CSmartPtr&& other) noexcept
        : m_object(other.Detach()) {}
    template <class U>
    CSmartPtr(CSmartPtr<U>&& other) noexcept
        : m_object(other.Detach()) {}
    ~CSmartPtr() {
        if (m_object) m_object->Release();
    }

    CSmartPtr& operator=(const CSmartPtr& other) {
        Reset(other.m_object);
        return *this;
    }
    CSmartPtr& operator=(CSmartPtr&& other) noexcept {
        if (this != &other) Attach(other.Detach());
        return *this;
    }
    CSmartPtr& operator=(T* object) {
        Reset(object);
        return *this;
    }

    T* Get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // Points at object (adding a reference) and releases the previous one.
    void Reset(T* object = nullptr) {
        if (object) object->AddRef();
        T* previous = m_object;
        m_object = object;
        if (previous) previous->Release();
    }
    // Takes over a reference the caller holds, without adding one.
    void Attach(T* object) noexcept {
        T* previous = m_object;
        m_object = object;
        if (previous) previous->Release();
    }
    // Gives up the reference without releasing it; the caller now holds it.
    T* Detach() noexcept { return std::exchange(m_object, nullptr); }

    template <class U>
    CSmartPtr<U> DynamicCast() const {
        return CSmartPtr<U>(dynamic_cast<U*>(m_object));
    }

private:
    T* m_object;
};

template <class T, class U>
bool operator==(const CSmartPtr<T>& a, const CSmartPtr<U>& b) {
    return a.Get() == b.Get();
}
template <class T, class U>
bool operator!=(const CSmartPtr<T>& a, const CSmartPtr<U>& b) {
    return a.Get() != b.Get();
}
template <class T>
bool operator==(const CSmartPtr<T>& a, const T* b) {
    return a.Get() == b;
}
template <class T>
bool operator!=(const CSmartPtr<T>& a, const T* b) {
    return a.Get() != b;
}
template <class T>
bool operator==(const CSmartPtr<T>& a, std::nullptr_t) {
    return !a;
}
template <class T>
bool operator!=(const CSmartPtr<T>& a, std::nullptr_t) {
    return static_cast<bool>(a);
}

} // namespace QxXmlLib16
