#pragma once

// Octets of the Fast Infoset format that the writer and the reader share.

#include <cstddef>

namespace QxXmlLib16 {
namespace internal {

// Identification and version 1, the start of every document.
constexpr unsigned char kFiIdentification[] = {0xE0, 0x00, 0x00, 0x01};

// The XML declarations that may precede the identification, by FInfoDecl value 1 to 9.
constexpr const char* kFiDeclarations[] = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};
constexpr size_t kFiDeclarationCount = sizeof(kFiDeclarations) / sizeof(kFiDeclarations[0]);

// Optional components of the document (the octet after the identification).
constexpr unsigned char kFiAdditionalData = 0x40;
constexpr unsigned char kFiInitialVocabulary = 0x20;
constexpr unsigned char kFiNotations = 0x10;
constexpr unsigned char kFiUnparsedEntities = 0x08;
constexpr unsigned char kFiCharacterEncodingScheme = 0x04;
constexpr unsigned char kFiStandalone = 0x02;
constexpr unsigned char kFiVersion = 0x01;
// First presence octet of an initial vocabulary: the external vocabulary alone.
constexpr unsigned char kFiExternalVocabulary = 0x10;

// Items of a children list, by their first octet.
constexpr unsigned char kFiProcessingInstruction = 0xE1;
constexpr unsigned char kFiComment = 0xE2;
constexpr unsigned char kFiTermination = 0xF0;       // one terminator and padding
constexpr unsigned char kFiDoubleTermination = 0xFF; // two terminators in one octet

// Element identification: attributes follow; namespace attributes follow.
constexpr unsigned char kFiElementAttributes = 0x40;
constexpr unsigned char kFiElementNamespaces = 0x38;
constexpr unsigned char kFiNamespaceAttribute = 0xCC; // with 0x02 for a prefix, 0x01 for a name
// Literal qualified names: on the third bit (elements) and on the second (attributes), with 0x02
// for a prefix and 0x01 for a namespace.
constexpr unsigned char kFiLiteralElementName = 0x3C;
constexpr unsigned char kFiLiteralAttributeName = 0x78;

// The largest integer of the index forms, and a table's capacity.
constexpr unsigned kFiMaxIndex = 1u << 20;

} // namespace internal
} // namespace QxXmlLib16
