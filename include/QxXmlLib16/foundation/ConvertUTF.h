#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <cstddef>

// Conversions between UTF-32 (the platform's wide characters), UTF-16 and UTF-8, with the
// published interface and behaviour of the Unicode Consortium's reference converter. These are
// global functions on purpose: they are the standard algorithm under its standard names.

typedef unsigned int UTF32;
typedef unsigned short UTF16;
typedef unsigned char UTF8;
typedef bool Boolean;

enum ConversionResult {
    conversionOK,    // conversion successful
    sourceExhausted, // partial character in source, but hit end
    targetExhausted, // insufficient room in target for conversion
    sourceIllegal    // source sequence is illegal or malformed
};

enum ConversionFlags { strictConversion = 0, lenientConversion };

QX_API ConversionResult ConvertUTF32toUTF8(const UTF32** sourceStart, const UTF32* sourceEnd,
                                           UTF8** targetStart, UTF8* targetEnd, ConversionFlags flags);
QX_API ConversionResult ConvertUTF8toUTF32(const UTF8** sourceStart, const UTF8* sourceEnd,
                                           UTF32** targetStart, UTF32* targetEnd, ConversionFlags flags);
QX_API ConversionResult ConvertUTF32toUTF16(const UTF32** sourceStart, const UTF32* sourceEnd,
                                            UTF16** targetStart, UTF16* targetEnd, ConversionFlags flags);
QX_API ConversionResult ConvertUTF16toUTF32(const UTF16** sourceStart, const UTF16* sourceEnd,
                                            UTF32** targetStart, UTF32* targetEnd, ConversionFlags flags);
// True when the length bytes at source form one legal UTF-8 character.
QX_API Boolean IsLegalUTF8(const UTF8* source, int length);
// True when the character starting at source (not reaching sourceEnd) is legal UTF-8.
QX_API Boolean IsLegalUTF8Sequence(const UTF8* source, const UTF8* sourceEnd);

// The library's wrappers, in lenient mode (an illegal sequence becomes U+FFFD and conversion goes
// on). Each returns the number of units written; with a null target, the number needed.
// UnicodeToUTF8 joins a high surrogate followed by a low one into the one character they encode,
// as text read through 16-bit units keeps them as two wide characters.
QX_API size_t UnicodeToUTF8(const wchar_t* source, size_t length, unsigned char* target, size_t capacity);
QX_API size_t UTF8ToUnicode(const unsigned char* source, size_t length, wchar_t* target, size_t capacity);
QX_API size_t UnicodeToUTF16(const wchar_t* source, size_t length, unsigned short* target, size_t capacity);
QX_API size_t UTF16ToUnicode(const unsigned short* source, size_t length, wchar_t* target, size_t capacity);

// True when some character is above U+007F (needs more than one UTF-8 byte).
QX_API bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int length);
QX_API bool DoesUTF8StrContainAnyCharsLargerThanOneByte(const unsigned char* text, unsigned long length);
