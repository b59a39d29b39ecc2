#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/json/JsonReaderHandler.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include <string>
#include <vector>

namespace QxXmlLib16 {

// Turns JSON events back into XML text, reversing the JSON writer's mapping: a member is an element
// named after it (an object its content, a simple value its text, null a nil element), each item of
// an array an element named after the array's member, and at levels 1 and 2 "@x" members are
// attributes and "#text" the element's own text (null there makes the element nil). Namespace
// declarations ("@xmlns", "@xmlns:p") are written as the attributes they are.
//
// Refused, with the reader's path: an empty name or a value without one ("JSON item has an empty
// Name."), an object or array as an attribute or text, and names and values XML cannot hold
// ("Failed to convert name ..." and "Failed to convert value ..."). Several members at the top level
// make as many root elements, which only a root element name (CJsonContext) turns into a document.
class QX_API CJsonReaderToXmlHandler : public IJsonReaderHandler {
public:
    CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip level, IErrorPathProvider& pathProvider);
    ~CJsonReaderToXmlHandler() override;
    CJsonReaderToXmlHandler(const CJsonReaderToXmlHandler&) = delete;
    CJsonReaderToXmlHandler& operator=(const CJsonReaderToXmlHandler&) = delete;

    void ReadStartDocument() override;
    // Throws when the document held no element at all.
    void ReadEndDocument() override;
    void ReadName(const std::wstring& name) override;
    void ReadString(const std::wstring& value) override;
    void ReadNumber(const std::wstring& value) override;
    void ReadStartObject() override;
    void ReadEndObject() override;
    void ReadStartArray() override;
    void ReadEndArray() override;
    void ReadBool(bool value) override;
    void ReadNull() override;

    void StartElement(const std::wstring& name);
    void StartAttribute(const std::wstring& name);
    // The value of the pending attribute, text or element.
    void WriteString(const std::wstring& value);
    void EndItem();

private:
    // What the last name announced.
    enum class Pending { None, Element, Attribute, Text };
    // One open object or array.
    struct Frame {
        bool isArray;
        bool closesElement;    // an object that is an element's content
        std::wstring itemName; // an array's member name, which each item takes
    };

    void PushFrame(bool isArray, bool closesElement);
    // Checks the attribute name held as the current name.
    void BeginAttribute();
    // An object or array cannot be an attribute's value or an element's text.
    void RefuseContainerValue() const;
    // Starts the element a value or object stands for: the pending member's, or the next item of
    // the array on top. Throws "JSON item has an empty Name." when there is neither.
    void StartValueElement();
    void Nil();
    [[noreturn]] void Fail(const std::wstring& message) const;
    [[noreturn]] void FailValue(const wchar_t* format, const std::wstring& value,
                                const CQxException* cause) const;
    void CheckValue(const wchar_t* format, const std::wstring& value) const;

    CXmlTextWriter& m_writer;
    JsonRoundTrip m_level;
    IErrorPathProvider& m_pathProvider;
    std::vector<Frame> m_frames; // kept allocated across documents, with their names
    size_t m_depth;
    int m_openElements;
    bool m_hasElement;
    std::wstring m_currentName;
    Pending m_pending;
};

} // namespace QxXmlLib16
