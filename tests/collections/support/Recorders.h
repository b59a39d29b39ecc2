#pragma once

#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <string>

// Logs collection events as compact text: "+" add, "+!" add complete, "-(i)" remove of index i,
// "-!(i)" remove complete, "~" change; entries separated by blanks.
class CRecordingSink : public QxXmlLib16::IEventSink {
public:
    void OnEvent(QxXmlLib16::CXmlObjectBase* source, MsgType type, void* data) override {
        lastSource = source;
        if (!log.empty()) log += L' ';
        switch (type) {
        case mtCollectionAdd:
            log += L"+";
            break;
        case mtCollectionAddComplete:
            log += L"+!";
            break;
        case mtCollectionRemove:
            log += QxXmlLib16::FormatString(L"-(%d)", *static_cast<int*>(data));
            break;
        case mtCollectionRemoveComplete:
            log += QxXmlLib16::FormatString(L"-!(%d)", *static_cast<int*>(data));
            break;
        case mtCollectionChange:
            log += L"~";
            break;
        }
    }

    std::wstring log;
    QxXmlLib16::CXmlObjectBase* lastSource = nullptr;
};

// Logs what is written: "<ns|name>", "text:type", "</>", "@name=value".
class CRecordingWriter : public QxXmlLib16::CXmlWriter {
public:
    CRecordingWriter()
        : CXmlWriter(L"CRecordingWriter") {}

    void WriteComment(const std::wstring&) override {}
    void WritePI(const std::wstring&) override {}
    void WriteInlineSchema(const std::wstring&) override {}
    void WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) override {
        log += L"<" + namespaceURI + L"|" + localName + L">";
    }
    void WriteString(const std::wstring& text, QxXmlLib16::ItemType type, bool) override {
        log += text + QxXmlLib16::FormatString(L":%d", static_cast<int>(type));
    }
    void WriteEndElement() override { log += L"</>"; }
    void WriteAttributeString(const std::wstring& localName, const std::wstring&, const std::wstring& value,
                              QxXmlLib16::ItemType) override {
        log += L"@" + localName + L"=" + value;
    }
    void WriteAttributeType(const std::wstring&, const std::wstring&, QxXmlLib16::ItemType) override {}
    void WriteAttributeNil() override {}

    std::wstring log;
};
