// With RFC 8259 escaping any string reads back as written, through our reader and through Python's
// json module: a property over random strings of every kind of character.

#include "json/support/Handlers.h"
#include "json/support/PythonJson.h"

#include "support/TempFile.h"
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/json/JsonTextReader.h>
#include <QxXmlLib16/json/JsonTextWriter.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

// Random strings drawn from every class of character a string can hold: each control character,
// the quote, backslash and slash, other ASCII, the rest of the basic plane, characters above
// U+FFFF (one wide character each), surrogate pairs (two wide characters, as text read through
// 16-bit units holds them) and lone surrogates.
std::vector<std::wstring> RandomStrings(size_t count) {
    std::mt19937 random(20240501);
    const auto draw = [&](unsigned long low, unsigned long high) {
        return static_cast<wchar_t>(std::uniform_int_distribution<unsigned long>(low, high)(random));
    };
    std::vector<std::wstring> strings;
    std::wstring controls;
    for (wchar_t c = 0; c < 0x20; ++c)
        controls += c;
    strings.push_back(controls);
    strings.push_back(L"");
    // Each draw takes a class of characters, {low, high}; a second range makes a surrogate pair.
    const unsigned long classes[][4] = {{0, 0x1F},           {'"', '"'},
                                        {'\\', '\\'},        {'/', '/'},
                                        {0x20, 0x7F},        {0x20, 0x7F},
                                        {0x80, 0xD7FF},      {0xE000, 0xFFFF},
                                        {0x10000, 0x10FFFF}, {0xD800, 0xDBFF, 0xDC00, 0xDFFF},
                                        {0xD800, 0xDFFF}};
    while (strings.size() < count) {
        std::wstring text;
        const size_t length = std::uniform_int_distribution<size_t>(1, 40)(random);
        while (text.size() < length) {
            const unsigned long* c =
                classes[std::uniform_int_distribution<size_t>(0, std::size(classes) - 1)(random)];
            text += draw(c[0], c[1]);
            if (c[3]) text += draw(c[2], c[3]);
        }
        strings.push_back(text);
    }
    return strings;
}

// What reading gives back: a high surrogate followed by a low one is the character they encode.
std::wstring Joined(const std::wstring& text) {
    std::wstring joined;
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned long c = static_cast<unsigned long>(text[i]);
        const unsigned long next = i + 1 < text.size() ? static_cast<unsigned long>(text[i + 1]) : 0;
        if (c >= 0xD800 && c <= 0xDBFF && next >= 0xDC00 && next <= 0xDFFF) {
            joined += static_cast<wchar_t>(0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
            ++i;
        } else {
            joined += text[i];
        }
    }
    return joined;
}

// {"r": {"s": [...]}}, the strings written as a collection of string elements.
std::wstring Document(const std::vector<std::wstring>& strings, bool formatted) {
    CTextStream stream;
    CJsonTextWriter writer(stream);
    writer.SetRfc8259Escaping(true);
    writer.SetFormat(formatted);
    writer.WriteStartDocument();
    writer.WriteStartElement(L"r", L"");
    writer.SetContextState(CXmlWriter::csArrayStarting);
    for (const std::wstring& text : strings) {
        writer.WriteStartElement(L"s", L"");
        writer.WriteString(text, itString, false);
        writer.WriteEndElement();
    }
    writer.SetContextState(CXmlWriter::csArrayComplete);
    writer.WriteEndElement();
    writer.WriteEndDocument();
    writer.Close();
    return std::wstring(stream.GetText(), stream.GetLength());
}

std::vector<std::wstring> ReadStrings(const std::wstring& json) {
    struct Strings : CIgnoringHandler {
        std::vector<std::wstring> values;
        void ReadString(const std::wstring& value) override { values.push_back(value); }
    } strings;
    CJsonTextReader reader(json);
    reader.SetJsonReaderHandler(&strings);
    reader.Read();
    return strings.values;
}

} // namespace

TEST(JsonRfc8259, EveryStringReadsBackThroughOurReaderAndThroughPython) {
    const std::vector<std::wstring> strings = RandomStrings(3000);
    const std::string expected = TempPath("rfc8259.expected");
    {
        std::ofstream out(expected);
        for (const std::wstring& text : strings) {
            for (wchar_t c : Joined(text))
                out << std::hex << static_cast<unsigned long>(c) << ' ';
            out << '\n';
        }
    }
    for (bool formatted : {false, true}) {
        const std::wstring json = Document(strings, formatted);
        const std::vector<std::wstring> read = ReadStrings(json);
        ASSERT_EQ(strings.size(), read.size());
        for (size_t i = 0; i < strings.size(); ++i)
            EXPECT_EQ(Joined(strings[i]), read[i]) << "string " << i;
        const std::string document = PythonJson::WriteUtf8File("rfc8259.json", json);
        EXPECT_EQ("", PythonJson::Run({"--strings", document, expected}));
        std::remove(document.c_str());
    }
    std::remove(expected.c_str());
}
