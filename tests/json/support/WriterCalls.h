#pragma once

// Writer calls as the binding makes them, for any writer.

#include <QxXmlLib16/xml/XmlWriter.h>

#include <functional>

namespace WriterCalls {

typedef std::function<void(QxXmlLib16::CXmlWriter&)> Writes;

// An element with a value, as a primitive member is written.
inline void Value(QxXmlLib16::CXmlWriter& w, const wchar_t* name, const wchar_t* text,
                  QxXmlLib16::ItemType type = QxXmlLib16::itString) {
    w.WriteStartElement(name, L"");
    w.WriteString(text, type, false);
    w.WriteEndElement();
}

// An element with content, as a class member is written.
inline void Element(QxXmlLib16::CXmlWriter& w, const wchar_t* name, const Writes& content,
                    const wchar_t* ns = L"") {
    w.WriteStartElement(name, ns);
    content(w);
    w.WriteEndElement();
}

// Items written as a collection descriptor writes them.
inline void Collection(QxXmlLib16::CXmlWriter& w, const Writes& items) {
    w.SetContextState(QxXmlLib16::CXmlWriter::csArrayStarting);
    items(w);
    w.SetContextState(QxXmlLib16::CXmlWriter::csArrayComplete);
}

} // namespace WriterCalls
