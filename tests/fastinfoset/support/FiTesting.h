#pragma once

// Octets, documents and trees shared by the Fast Infoset tests, and the reference implementation.

#include "support/TempFile.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace FiTesting {

typedef std::vector<unsigned char> Octets;

// "E0 00 00 01" style, for readable expectations and failure messages.
Octets FromHex(const std::string& hex);
std::string Hex(const Octets& octets);
Octets ToOctets(const QxXmlLib16::CBinaryData& data);
// Deflated with the gzip or the zlib wrapper, however little it shrinks.
Octets Compressed(const Octets& octets, QxXmlLib16::CompressionType type);

Octets ReadFile(const std::string& path);
void WriteFile(const std::string& path, const Octets& octets);
void WriteFile(const std::string& path, const std::wstring& text); // as UTF-8
std::wstring Wide(const std::string& text);                        // ASCII
std::string Utf8(const std::wstring& text);

// The vectors of the shared data folder, as paths without their extension (.finf, .xml).
std::vector<std::string> VectorPaths();

// A document written through a Fast Infoset writer: the header (no declaration), what body writes,
// and the end of the document.
Octets Written(const QxXmlLib16::CFastInfosetContext& context,
               const std::function<void(QxXmlLib16::CFastInfosetWriter&)>& body);

// Loads octets into a new document: Fast Infoset or XML text, compressed or not.
std::unique_ptr<QxXmlLib16::CXmlDocument> Loaded(
    const Octets& octets,
    const QxXmlLib16::CSerializationContext& context = QxXmlLib16::CSerializationContext::m_defaultContext);

// Empty when both trees hold the same names, namespaces, attributes (in any order) and texts;
// otherwise where they first differ. Texts are compared as characters (a surrogate pair of the
// XML text reader counts as the one character it encodes); with numbersByValue, texts that are
// both numbers compare by value ("-2.25E10" equals "-22500000000"). Any depth is walked without
// recursion.
std::wstring TreeDifference(const QxXmlLib16::CXmlElement& expected, const QxXmlLib16::CXmlElement& actual,
                            bool numbersByValue = false);

// Empty when both texts are equal; otherwise where they first differ, with some context (a
// readable message where a full comparison of long documents would not be).
std::string TextDifference(const std::string& expected, const std::string& actual);
// An object's XML text as UTF-8: characters outside the BMP are one character whichever reader
// loaded them (the XML text reader keeps them as two 16-bit units).
std::string
XmlOf(const QxXmlLib16::CXmlObjectBase& object,
      const QxXmlLib16::CSerializationContext& context = QxXmlLib16::CSerializationContext::m_defaultContext);

// Runs the reference converters (the Java FastInfoset library) over pairs of files, in one JVM:
// "encode" turns XML into Fast Infoset, "decode" the reverse. Returns what failed, or "".
std::string Reference(const std::string& direction,
                      const std::vector<std::pair<std::string, std::string>>& files);

} // namespace FiTesting
