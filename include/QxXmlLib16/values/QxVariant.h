#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <cstring>
#include <string>

namespace QxXmlLib16 {

class CBinaryData;
class CBigInteger;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CXmlCollectionBase;
class CXmlObjectBase;

// One member value of any primitive kind, tagged with its ItemType, through which descriptors and
// generated classes exchange values. Small kinds are held inline, the others as an owned copy.
class QX_API QxVariant {
public:
    QxVariant() = default;
    QxVariant(const QxVariant& other);
    QxVariant(QxVariant&& other) noexcept;
    QxVariant& operator=(const QxVariant& other);
    QxVariant& operator=(QxVariant&& other) noexcept;
    ~QxVariant() { Clear(); }

    // Frees the held value and sets the type to itNone; the nil flag is left as it is.
    void Clear();
    // True when a value of some type is held, or the value is nil.
    bool IsValid() const { return m_type != itNone || m_nil; }
    void SetInvalid();
    // Drops the value but keeps its type, so a nil member still says what it would hold.
    void SetNil();
    bool IsNil() const { return m_nil; }

    ItemType GetItemType() const { return m_type; }
    // The type's name ("i4", "datetime", ...). Throws CQxInvalidStateException "Invalid Type %d"
    // for itNone, the reference kinds (27, 28) and unknown values.
    std::wstring GetType() const;

    // Each setter replaces the held value and clears the nil flag.
    void SetHexBinary(const CBinaryData& value);
    void SetBase64Binary(const CBinaryData& value);
    void SetI1(char value) { SetInline(itI1, value); }
    void SetI2(short value) { SetInline(itI2, value); }
    void SetI4(long value) { SetInline(itI4, value); }
    void SetI8(long long value) { SetInline(itI8, value); }
    void SetUI1(unsigned char value) { SetInline(itUi1, value); }
    void SetUI2(unsigned short value) { SetInline(itUi2, value); }
    void SetUI4(unsigned long value) { SetInline(itUi4, value); }
    void SetUI8(unsigned long long value) { SetInline(itUi8, value); }
    void SetR4(float value) { SetInline(itR4, value); }
    void SetR8(double value) { SetInline(itR8, value); }
    void SetDuration(const CDateTimeSpan& value);
    void SetYearMonth(const CDateTime& value) { SetDateTimeKind(itYearMonth, value); }
    void SetMonthDay(const CDateTime& value) { SetDateTimeKind(itMonthDay, value); }
    void SetYear(unsigned short value) { SetInline(itYear, value); }
    void SetMonth(unsigned char value) { SetInline(itMonth, value); }
    void SetDay(unsigned char value) { SetInline(itDay, value); }
    void SetDate(const CDateTime& value) { SetDateTimeKind(itDate, value); }
    void SetDateTime(const CDateTime& value) { SetDateTimeKind(itDateTime, value); }
    void SetTime(const CDateTime& value) { SetDateTimeKind(itTime, value); }
    void SetChar(wchar_t value) { SetInline(itChar, value); }
    void SetBoolean(bool value) { SetInline(itBoolean, value); }
    void SetDecimal(const CDecimal& value);
    void SetInteger(const CBigInteger& value);
    void SetString(std::wstring value);
    // The variant holds a counted reference to the object (a null one is held as an empty reference
    // of that type); copies add a reference, Clear and destruction release it.
    void SetXmlObject(CXmlObjectBase* value);
    void SetXmlCollection(CXmlCollectionBase* value);

    // Inline kinds: the stored bits, whatever the type (zero after SetNil or Clear).
    char GetI1() const { return Inline<char>(); }
    short GetI2() const { return Inline<short>(); }
    long GetI4() const { return Inline<long>(); }
    long long GetI8() const { return Inline<long long>(); }
    unsigned char GetUI1() const { return Inline<unsigned char>(); }
    unsigned short GetUI2() const { return Inline<unsigned short>(); }
    unsigned long GetUI4() const { return Inline<unsigned long>(); }
    unsigned long long GetUI8() const { return Inline<unsigned long long>(); }
    float GetR4() const { return Inline<float>(); }
    double GetR8() const { return Inline<double>(); }
    unsigned short GetYear() const { return Inline<unsigned short>(); }
    unsigned char GetMonth() const { return Inline<unsigned char>(); }
    unsigned char GetDay() const { return Inline<unsigned char>(); }
    wchar_t GetChar() const { return Inline<wchar_t>(); }
    bool GetBoolean() const { return Inline<unsigned char>() != 0; }

    // Owned kinds: the held value. Throws CQxInvalidStateException "Invalid Type %d" (the type held)
    // when the variant holds another type or is nil.
    const CBinaryData& GetHexBinary() const;
    const CBinaryData& GetBase64Binary() const;
    const CDateTimeSpan& GetDuration() const;
    const CDateTime& GetYearMonth() const;
    const CDateTime& GetMonthDay() const;
    const CDateTime& GetDate() const;
    const CDateTime& GetDateTime() const;
    const CDateTime& GetTime() const;
    const CDecimal& GetDecimal() const;
    const CBigInteger& GetInteger() const;
    const std::wstring& GetString() const;
    // Moves the held string out, leaving the variant holding an empty string; throws as GetString.
    std::wstring TakeString();
    // Null unless the variant holds an object (a collection counts as one) or a collection.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;

    // The value's text; format is passed to the date and time kinds (empty: canonical form). A nil
    // value gives an empty text. Throws CQxInvalidStateException "Invalid Type %d to convert to
    // string" for a type without a text form.
    std::wstring ToString(const std::wstring& format = std::wstring()) const;
    // Parses text as a value of type under the whitespace rule and holds it. Throws
    // CQxInvalidParamException "Unknown Type" for a type without a text form; parse failures are
    // those of CConversions, and leave the variant as it was.
    void FromString(const std::wstring& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

private:
    template <class T>
    void SetInline(ItemType type, T value);
    template <class T>
    T Inline() const;
    void SetDateTimeKind(ItemType type, const CDateTime& value);
    // Takes ownership of value, allocated by the caller, as the new value of the given type.
    void SetOwned(ItemType type, void* value);
    template <class T>
    const T& Owned(ItemType type) const;

    bool m_nil = false;
    ItemType m_type = itNone;
    union {
        unsigned long long m_bits = 0; // every inline kind, read back with memcpy
        void* m_object;                // the owned value of the other kinds, null when nil; for the
                                       // reference kinds a counted CXmlObjectBase*
    };
};

template <class T>
void QxVariant::SetInline(ItemType type, T value) {
    Clear();
    m_nil = false;
    m_type = type;
    std::memcpy(&m_bits, &value, sizeof value);
}

template <class T>
T QxVariant::Inline() const {
    T value;
    std::memcpy(&value, &m_bits, sizeof value);
    return value;
}

} // namespace QxXmlLib16
