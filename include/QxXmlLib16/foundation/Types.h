#pragma once

namespace QxXmlLib16 {

// Primitive kinds of the binding. The values are part of the interface: generated code and the
// Fast Infoset encoding tables index by them.
enum ItemType : int {
    itNone = 0,
    itHexBinary = 1,
    itBase64Binary = 2,
    itI1 = 3,
    itI2 = 4,
    itI4 = 5,
    itI8 = 6,
    itUi1 = 7,
    itUi2 = 8,
    itUi4 = 9,
    itUi8 = 10,
    itR4 = 11,
    itR8 = 12,
    itDuration = 13,
    itYearMonth = 14,
    itMonthDay = 15,
    itYear = 16,
    itMonth = 17,
    itDay = 18,
    itDate = 19,
    itDateTime = 20,
    itTime = 21,
    itChar = 22,
    itString = 23,
    itBoolean = 24,
    itDecimal = 25,
    itInteger = 26,
    itXmlObject = 27,     // a bound object, held only by QxVariant
    itXmlCollection = 28, // a collection, held only by QxVariant
};

// Byte form of text written to streams and files.
enum XmlEncoding : int {
    encUTF8 = 1,
    encUTF16 = 2, // UTF-16LE code units, one per character (characters above U+FFFF are not paired)
    encUTF32 = 3, // the platform's wide characters as raw octets (UTF-32LE)
};

enum CompressionType : int {
    ctNone = 0,
    ctGzip = 1, // deflate with the gzip wrapper, level 1
    ctZlib = 2, // deflate with the zlib wrapper, level 1
};

enum EOLType : int {
    eolCRLF = 0,
    eolLF = 1,
};

// XML declaration written in front of a Fast Infoset document: 0 none, 1 to 9 the declarations
// "<?xml encoding='finf'?>" ... "<?xml version='1.1' encoding='finf' standalone='no'?>".
enum FInfoDecl : int {
    fidNone = 0,
    fidEncoding = 1,
    fidEncodingStandaloneYes = 2,
    fidEncodingStandaloneNo = 3,
    fidVersion10 = 4,
    fidVersion10StandaloneYes = 5,
    fidVersion10StandaloneNo = 6,
    fidVersion11 = 7,
    fidVersion11StandaloneYes = 8,
    fidVersion11StandaloneNo = 9,
};

// How pattern facets read their regular expression.
enum PatternMode : int {
    // Translated into PCRE syntax by plain text substitution, as the library always has: \i, \c,
    // their negations and four Latin block names are rewritten, everything else is taken as PCRE
    // reads it. The default, so that existing bindings keep their verdicts.
    pmTranslated = 0,
    // Read with the XML Schema grammar and meaning: every block name of XML Schema, class
    // subtraction, the multi-character escapes with their XML Schema sets, '^' and '$' as plain
    // characters, '.' excluding line feed and carriage return; syntax of other dialects is refused.
    pmExact = 1,
};

// How many objects of generated classes may stand one inside the other when they are read or
// written. Only a schema type that contains itself, directly or through others, gets near it.
// Everything else (documents, wildcard content, the writers, copying and releasing objects) takes
// any depth without recursion. Beyond it, reading and writing stop with a CQxValidationException.
constexpr int kMaxObjectDepth = 256;

} // namespace QxXmlLib16
