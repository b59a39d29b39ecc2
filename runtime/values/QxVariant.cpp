#include <QxXmlLib16/values/QxVariant.h>

#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>

#include <type_traits>
#include <utility>

namespace QxXmlLib16 {

namespace {

const wchar_t* const kTypeNames[] = {
    nullptr,      L"hexBinary", L"base64Binary", L"i1",      L"i2",      L"i4",     L"i8",
    L"ui1",       L"ui2",       L"ui4",          L"ui8",     L"r4",      L"r8",     L"duration",
    L"yearMonth", L"monthDay",  L"year",         L"month",   L"day",     L"date",   L"datetime",
    L"time",      L"char",      L"string",       L"boolean", L"decimal", L"integer"};

// Calls action with a null pointer of the class that holds values of type; does nothing for the
// kinds held inline, which have nothing to copy or free.
template <class Action>
void ForOwnedClass(ItemType type, Action action) {
    switch (type) {
    case itHexBinary:
    case itBase64Binary:
        action(static_cast<CBinaryData*>(nullptr));
        break;
    case itDuration:
        action(static_cast<CDateTimeSpan*>(nullptr));
        break;
    case itYearMonth:
    case itMonthDay:
    case itDate:
    case itDateTime:
    case itTime:
        action(static_cast<CDateTime*>(nullptr));
        break;
    case itString:
        action(static_cast<std::wstring*>(nullptr));
        break;
    case itDecimal:
        action(static_cast<CDecimal*>(nullptr));
        break;
    case itInteger:
        action(static_cast<CBigInteger*>(nullptr));
        break;
    default:
        break;
    }
}

template <class Tag>
using Held = std::remove_pointer_t<Tag>;

// Bound objects and collections are shared by reference count rather than copied.
bool IsReference(ItemType type) {
    return type == itXmlObject || type == itXmlCollection;
}

} // namespace

QxVariant::QxVariant(const QxVariant& other)
    : m_nil(other.m_nil)
    , m_type(other.m_type)
    , m_bits(other.m_bits) {
    ForOwnedClass(m_type, [&](auto tag) {
        using T = Held<decltype(tag)>;
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
    ForOwnedClass(m_type, [&](auto tag) { delete static_cast<Held<decltype(tag)>*>(m_object); });
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
    if (m_type <= itNone || m_type >= itXmlObject)
        throw CQxInvalidStateException(FormatString(L"Invalid Type %d", m_type));
    return kTypeNames[m_type];
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

std::wstring QxVariant::ToString(const std::wstring& format) const {
    if (m_nil) return std::wstring();
    using C = CConversions;
    switch (m_type) {
    case itHexBinary:
        return C::hexBinaryToString(GetHexBinary());
    case itBase64Binary:
        return C::base64BinaryToString(GetBase64Binary());
    case itI1:
        return C::i1ToString(GetI1());
    case itI2:
        return C::i2ToString(GetI2());
    case itI4:
        return C::i4ToString(GetI4());
    case itI8:
        return C::i8ToString(GetI8());
    case itUi1:
        return C::ui1ToString(GetUI1());
    case itUi2:
        return C::ui2ToString(GetUI2());
    case itUi4:
        return C::ui4ToString(GetUI4());
    case itUi8:
        return C::ui8ToString(GetUI8());
    case itR4:
        return C::r4ToString(GetR4());
    case itR8:
        return C::r8ToString(GetR8());
    case itDuration:
        return C::durationToString(GetDuration());
    case itYearMonth:
        return C::yearMonthToString(GetYearMonth(), format);
    case itMonthDay:
        return C::monthDayToString(GetMonthDay(), format);
    case itYear:
        return C::yearToString(GetYear());
    case itMonth:
        return C::monthToString(GetMonth());
    case itDay:
        return C::dayToString(GetDay());
    case itDate:
        return C::dateToString(GetDate(), format);
    case itDateTime:
        return C::datetimeToString(GetDateTime(), format);
    case itTime:
        return C::timeToString(GetTime(), format);
    case itChar:
        return C::charToString(GetChar());
    case itString:
        return C::stringToString(GetString());
    case itBoolean:
        return C::booleanToString(GetBoolean());
    case itDecimal:
        return C::decimalToString(GetDecimal());
    case itInteger:
        return C::integerToString(GetInteger());
    default:
        throw CQxInvalidStateException(FormatString(L"Invalid Type %d to convert to string", m_type));
    }
}

void QxVariant::FromString(const std::wstring& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    using C = CConversions;
    switch (type) {
    case itHexBinary:
        return SetOwned(type, new CBinaryData(C::hexBinaryFromString(text, rule)));
    case itBase64Binary:
        return SetOwned(type, new CBinaryData(C::base64BinaryFromString(text, rule)));
    case itI1:
        return SetI1(C::i1FromString(text, rule));
    case itI2:
        return SetI2(C::i2FromString(text, rule));
    case itI4:
        return SetI4(C::i4FromString(text, rule));
    case itI8:
        return SetI8(C::i8FromString(text, rule));
    case itUi1:
        return SetUI1(C::ui1FromString(text, rule));
    case itUi2:
        return SetUI2(C::ui2FromString(text, rule));
    case itUi4:
        return SetUI4(C::ui4FromString(text, rule));
    case itUi8:
        return SetUI8(C::ui8FromString(text, rule));
    case itR4:
        return SetR4(C::r4FromString(text, rule));
    case itR8:
        return SetR8(C::r8FromString(text, rule));
    case itDuration:
        return SetOwned(type, new CDateTimeSpan(C::durationFromString(text, rule)));
    case itYearMonth:
        return SetOwned(type, new CDateTime(C::yearMonthFromString(text, rule)));
    case itMonthDay:
        return SetOwned(type, new CDateTime(C::monthDayFromString(text, rule)));
    case itYear:
        return SetYear(C::yearFromString(text, rule));
    case itMonth:
        return SetMonth(C::monthFromString(text, rule));
    case itDay:
        return SetDay(C::dayFromString(text, rule));
    case itDate:
        return SetOwned(type, new CDateTime(C::dateFromString(text, rule)));
    case itDateTime:
        return SetOwned(type, new CDateTime(C::datetimeFromString(text, rule)));
    case itTime:
        return SetOwned(type, new CDateTime(C::timeFromString(text, rule)));
    case itChar:
        return SetChar(C::charFromString(text, rule));
    case itString:
        return SetString(C::stringFromString(text, rule));
    case itBoolean:
        return SetBoolean(C::booleanFromString(text, rule));
    case itDecimal:
        return SetOwned(type, new CDecimal(C::decimalFromString(text, rule)));
    case itInteger:
        return SetOwned(type, new CBigInteger(C::integerFromString(text, rule)));
    default:
        throw CQxInvalidParamException(L"Unknown Type");
    }
}

} // namespace QxXmlLib16
