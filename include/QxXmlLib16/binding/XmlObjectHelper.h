#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Types.h>

#include <string>

namespace QxXmlLib16 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CPrimitiveRestrictions;
class CSerializationContext;
class CXmlElement;
class QxVariant;

// The one place where element names, wildcard namespace rules and the facets of primitive values
// are enforced. Stateless.
//
// Every CheckRestrictionFor... returns normally when the value satisfies the facets that apply to
// its type, and otherwise throws CQxInvalidValueException "Invalid Value for <name> [<value>]"
// ("[%d]" for the narrow integers, day, month and year, "[%f]" for the reals, "[%ls]." with the
// value's text for every other type). name is used only in messages. Bounds are converted from
// their text on every call with the type's CConversions parser under the collapse rule; a malformed
// bound throws that parser's error unchanged. A bound the value cannot be ordered against (a NaN,
// a date without a time zone near a zoned bound, P1M against P30D) is never violated, inclusive or
// exclusive.
class QX_API CXmlObjectHelper {
public:
    // True when the element has this local name and, unless the context ignores namespaces, this
    // namespace URI (empty matches only empty). False for a null element.
    static bool DoesElementNameMatch(const CSerializationContext& context, const CXmlElement* element,
                                     const std::wstring& name, const std::wstring& namespaceURI);

    // rule is a blank-separated list of "##any", "##other", "##local", "##targetNamespace" and
    // namespace URIs; true when some token allows namespaceURI. "##other" allows every namespace but
    // the target namespace, the empty one included. An empty rule allows nothing.
    static bool IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                 const std::wstring& targetNamespace);
    // As IsNamespaceValid, but throws CQxInvalidNamespaceException when not allowed.
    static void TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                              const std::wstring& targetNamespace);

    // Reads the value with the getter of type and runs its check. A type without a check (char, the
    // reference kinds) throws CQxException "Unknown type [<the variant's type name>]"; a variant
    // whose type has no name shows its number instead.
    static void CheckRestriction(const wchar_t* name, const QxVariant& value, ItemType type,
                                 const CPrimitiveRestrictions& restrictions);

    // Bounds, then totalDigits against the length of the printed value, minus sign included.
    static void CheckRestrictionFori1(const wchar_t* name, char value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori2(const wchar_t* name, short value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori4(const wchar_t* name, long value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori8(const wchar_t* name, long long value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui1(const wchar_t* name, unsigned char value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui2(const wchar_t* name, unsigned short value,
                                       const CPrimitiveRestrictions& restrictions);
    // Shown with "%d" like the narrower kinds, so a value above 2147483647 shows as its signed
    // 32-bit reading.
    static void CheckRestrictionForui4(const wchar_t* name, unsigned long value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui8(const wchar_t* name, unsigned long long value,
                                       const CPrimitiveRestrictions& restrictions);

    // Bounds only.
    static void CheckRestrictionForr4(const wchar_t* name, float value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForr8(const wchar_t* name, double value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForday(const wchar_t* name, unsigned char value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFormonth(const wchar_t* name, unsigned char value,
                                         const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForyear(const wchar_t* name, unsigned short value,
                                        const CPrimitiveRestrictions& restrictions);

    // Bounds, then totalDigits against integer plus fraction digits, then fractionDigits.
    static void CheckRestrictionFordecimal(const wchar_t* name, const CDecimal& value,
                                           const CPrimitiveRestrictions& restrictions);
    // Bounds, then totalDigits against the printed length, minus sign included.
    static void CheckRestrictionForinteger(const wchar_t* name, const CBigInteger& value,
                                           const CPrimitiveRestrictions& restrictions);

    // Bounds only, each parsed as the value's own kind.
    static void CheckRestrictionFordate(const wchar_t* name, const CDateTime& value,
                                        const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFordatetime(const wchar_t* name, const CDateTime& value,
                                            const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFortime(const wchar_t* name, const CDateTime& value,
                                        const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFormonthDay(const wchar_t* name, const CDateTime& value,
                                            const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFormonthYear(const wchar_t* name, const CDateTime& value,
                                             const CPrimitiveRestrictions& restrictions);
    // The same check as CheckRestrictionFormonthYear.
    static void CheckRestrictionForyearMonth(const wchar_t* name, const CDateTime& value,
                                             const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForduration(const wchar_t* name, const CDateTimeSpan& value,
                                            const CPrimitiveRestrictions& restrictions);

    // minLength, maxLength and length on the number of bytes; the message shows the data's text.
    static void CheckRestrictionForhexBinary(const wchar_t* name, const CBinaryData& value,
                                             const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForbase64Binary(const wchar_t* name, const CBinaryData& value,
                                                const CPrimitiveRestrictions& restrictions);

    // The length facets on the number of characters, then the pattern over the whole value. An
    // invalid pattern throws CQxInvalidValueException "<the pattern error's full message>\nInvalid
    // Value for <name> [<value>].".
    static void CheckRestrictionForstring(const wchar_t* name, const std::wstring& value,
                                          const CPrimitiveRestrictions& restrictions);
    // No facet applies to a boolean.
    static void CheckRestrictionForboolean(const wchar_t* name, bool value,
                                           const CPrimitiveRestrictions& restrictions);

    // Digits of the absolute value's integer part (none for a zero integer part, as in "0.5") and
    // of its fraction without trailing zeros.
    static int GetDecimalIntegerPartLen(const CDecimal& value);
    static int GetDecimalFractionPartLen(const CDecimal& value);
};

} // namespace QxXmlLib16
