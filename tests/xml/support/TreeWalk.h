#pragma once

#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <string>

// Writes an element and its subtree through a writer: attributes, then the element's own text,
// then its children. Without formatting the output loads back into the same tree.
void WriteTree(const QxXmlLib16::CXmlElement& element, QxXmlLib16::CXmlWriter& writer);

// Empty when both trees hold the same names, namespaces, attributes and text; otherwise where and
// how they first differ.
std::wstring TreeDifference(const QxXmlLib16::CXmlElement& expected, const QxXmlLib16::CXmlElement& actual);
