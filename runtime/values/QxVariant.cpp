#include <QxXmlLib16/values/QxVariant.h>

#include <QxXmlLib16/binding/ItemTraits.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>

#include <type_traits>
#include <utility>

namespace QxXmlLib16 {

namespace {

// Calls action(TItemTraits<type>()) for the kinds held as an owned copy; the kinds held inline
// have nothing to copy or free.
template <class Action>
void ForOwnedKind(ItemType type, Action action) {
    VisitItemType(
        type,
        [&](auto traits) {
            if constexpr (!std::is_arithmetic<typename decltype(traits)::Type>::value) action(traits);
        },
        [] {});
}

template <class Traits>
using Held = typename Traits::Type;

// Bound objects and collections are shared by reference count rather than copied.
bool IsReference(ItemType type) {
    return type == itXmlObject || type == itXmlCollection;
}

} // namespace

QxVariant::QxVariant(const QxVariant& other)
    : m_nil(other.m_nil)
    , m_type(other.m_type)
    , m_bits(other.m_bits) {
    ForOwnedKind(m_type, [&](auto traits) {
        using T = Held<decltype(traits)>;
        m_object = other.m_object ? new T(*static_cast<const T*>(other.m_object)) : nullptr;
    });
    if (IsReference(m_type) && m_object) static_cast<CXmlObjectBase*>(m_object)->AddRef();
}

QxVariant::QxVariant(QxVariant&& other) noexcept
    : m_nil(other.m_nil)
    , m_type(other.m_type)
    , m_bits(other.m_bits) {
    other.m_type = itNone;
    other.m_bits = 0;
}

QxVariant& QxVariant::operator=(const QxVariant& other) {
    if (this != &other) *this = QxVariant(other);
    return *this;
}

QxVariant& QxVariant::operator=(QxVariant&& other) noexcept {
    if (this != &other) {
        Clear();
        m_nil = other.m_nil;
        m_type = std::exchange(other.m_type, itNone);
        m_bits = std::exchange(other.m_bits, 0);
    }
    return *this;
}

void QxVariant::Clear() {
    ForOwnedKind(m_type, [&](auto traits) { delete static_cast<Held<decltype(traits)>*>(m_object); });
    // Reset before releasing: the last Release runs a destructor that might reach this variant.
    CXmlObjectBase* reference = IsReference(m_type) ? static_cast<CXmlObjectBase*>(m_object) : nullptr;
    m_type = itNone;
    m_bits = 0;
    if (reference) reference->Release();
}

void QxVariant::SetInvalid() {
    Clear();
    m_nil = false;
}

void QxVariant::SetNil() {
    ItemType type = m_type;
    Clear();
    m_type = type;
    m_nil = true;
}

std::wstring QxVariant::GetType() const {
    return VisitItemType(
        m_type, [](auto traits) -> std::wstring { return decltype(traits)::kName; },
        [&]() -> std::wstring { throw CQxInvalidStateException(FormatString(L"Invalid Type %d", m_type)); });
}

void QxVariant::SetOwned(ItemType type, void* value) {
    Clear();
    m_nil = false;
    m_type = type;
    m_object = value;
}

template <class T>
const T& QxVariant::Owned(ItemType type) const {
    if (m_type != type || !m_object) throw CQxInvalidStateException(FormatString(L"Invalid Type %d", m_type));
    return *static_cast<const T*>(m_object);
}

void QxVariant::SetHexBinary(const CBinaryData& value) {
    SetOwned(itHexBinary, new CBinaryData(value));
}
void QxVariant::SetBase64Binary(const CBinaryData& value) {
    SetOwned(itBase64Binary, new CBinaryData(value));
}
void QxVariant::SetDuration(const CDateTimeSpan& value) {
    SetOwned(itDuration, new CDateTimeSpan(value));
}
void QxVariant::SetDateTimeKind(ItemType type, const CDateTime& value) {
    SetOwned(type, new CDateTime(value));
}
void QxVariant::SetDecimal(const CDecimal& value) {
    SetOwned(itDecimal, new CDecimal(value));
}
void QxVariant::SetInteger(const CBigInteger& value) {
    SetOwned(itInteger, new CBigInteger(value));
}
void QxVariant::SetString(std::wstring value) {
    SetOwned(itString, new std::wstring(std::move(value)));
}

void QxVariant::SetXmlObject(CXmlObjectBase* value) {
    if (value) value->AddRef(); // before SetOwned releases the old one, which may be the same
    SetOwned(itXmlObject, value);
}
void QxVariant::SetXmlCollection(CXmlCollectionBase* value) {
    if (value) value->AddRef();
    SetOwned(itXmlCollection, static_cast<CXmlObjectBase*>(value));
}

CSmartPtr<CXmlObjectBase> QxVariant::GetXmlObject() const {
    if (!IsReference(m_type)) return nullptr;
    return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(m_object));
}
CSmartPtr<CXmlCollectionBase> QxVariant::GetXmlCollection() const {
    if (m_type != itXmlCollection) return nullptr;
    return CSmartPtr<CXmlCollectionBase>(
        static_cast<CXmlCollectionBase*>(static_cast<CXmlObjectBase*>(m_object)));
}

const CBinaryData& QxVariant::GetHexBinary() const {
    return Owned<CBinaryData>(itHexBinary);
}
const CBinaryData& QxVariant::GetBase64Binary() const {
    return Owned<CBinaryData>(itBase64Binary);
}
const CDateTimeSpan& QxVariant::GetDuration() const {
    return Owned<CDateTimeSpan>(itDuration);
}
const CDateTime& QxVariant::GetYearMonth() const {
    return Owned<CDateTime>(itYearMonth);
}
const CDateTime& QxVariant::GetMonthDay() const {
    return Owned<CDateTime>(itMonthDay);
}
const CDateTime& QxVariant::GetDate() const {
    return Owned<CDateTime>(itDate);
}
const CDateTime& QxVariant::GetDateTime() const {
    return Owned<CDateTime>(itDateTime);
}
const CDateTime& QxVariant::GetTime() const {
    return Owned<CDateTime>(itTime);
}
const CDecimal& QxVariant::GetDecimal() const {
    return Owned<CDecimal>(itDecimal);
}
const CBigInteger& QxVariant::GetInteger() const {
    return Owned<CBigInteger>(itInteger);
}
const std::wstring& QxVariant::GetString() const {
    return Owned<std::wstring>(itString);
}

std::wstring QxVariant::TakeString() {
    return std::move(const_cast<std::wstring&>(GetString()));
}

std::wstring QxVariant::ToString(const std::wstring& format) const {
    if (m_nil) return std::wstring();
    return VisitItemType(
        m_type,
        [&](auto traits) {
            using Traits = decltype(traits);
            return Traits::Print(Traits::Get(*this), format);
        },
        [&]() -> std::wstring {
            throw CQxInvalidStateException(FormatString(L"Invalid Type %d to convert to string", m_type));
        });
}

void QxVariant::FromString(const std::wstring& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    VisitItemType(
        type,
        [&](auto traits) {
            using Traits = decltype(traits);
            using T = typename Traits::Type;
            // The parsed value becomes the owned copy itself, and a failed parse changes nothing.
            if constexpr (std::is_arithmetic<T>::value)
                Traits::Put(*this, Traits::Parse(text, rule));
            else
                SetOwned(type, new T(Traits::Parse(text, rule)));
        },
        [] { throw CQxInvalidParamException(L"Unknown Type"); });
}

} // namespace QxXmlLib16
